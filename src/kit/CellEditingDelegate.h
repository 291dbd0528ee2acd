// SPDX-License-Identifier: MIT
#pragma once

#include "kit/Theme.h"

#include <QtCore/QPointer>
#include <QtWidgets/QStyledItemDelegate>

#include <optional>

namespace kit {

/// Draws the cells of a `MyTableView` and knows the one editor that may be open in it.
class CellEditingDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Null while no cell is edited.
    [[nodiscard]] QWidget *editor() const { return m_editor; }
    /// The cell that it edits.
    [[nodiscard]] QModelIndex cell() const { return m_cell; }

    QWidget *createEditor(
        QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void updateEditorGeometry(
        QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    void paint(
        QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    [[nodiscard]] const Theme &themeOf(const QPalette &palette) const;

    mutable std::optional<Theme> m_theme;
    mutable qint64 m_themeKey = 0;
    mutable QPointer<QWidget> m_editor;
    mutable QPersistentModelIndex m_cell;
};

} // namespace kit
