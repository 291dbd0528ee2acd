// SPDX-License-Identifier: MIT
#pragma once

#include "kit/CellDrawing.h"
#include "kit/CellTextEditor.h"

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

    /// Makes the editors of columns that use one; an empty function, or one that answers null,
    /// leaves them plain fields.
    void setTextEditorFactory(CellTextEditorFactory factory) { m_textEditorFactory = std::move(factory); }

    /// Null while no cell is edited.
    [[nodiscard]] QWidget *editor() const { return m_editor; }
    /// Null while no cell is edited by one.
    [[nodiscard]] CellTextEditor *textEditor() const { return m_editor ? m_textEditor : nullptr; }
    /// The cell that it edits.
    [[nodiscard]] QModelIndex cell() const { return m_cell; }

    QWidget *createEditor(
        QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(
        QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    void paint(
        QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
        const QModelIndex &index) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    QWidget *createField(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    QWidget *createTextEditor(QWidget *parent, const QModelIndex &index) const;
    void placeTextEditor(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    bool leaveTextEditor(QWidget *editor, int key);
    void dress(QStyleOptionViewItem *option, const CellLook &look) const;
    [[nodiscard]] const CellInk &inkOf(const QStyleOptionViewItem &option) const;

    CellTextEditorFactory m_textEditorFactory;
    mutable std::optional<CellInk> m_ink;
    mutable qint64 m_inkPalette = 0;
    mutable QFont m_inkFont;
    mutable QPointer<QWidget> m_editor;
    mutable CellTextEditor *m_textEditor = nullptr;
    // What the text editor was given last; what is typed does not count.
    mutable std::optional<QString> m_givenText;
    mutable QPersistentModelIndex m_cell;
};

} // namespace kit
