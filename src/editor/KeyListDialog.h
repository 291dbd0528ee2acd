// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/EditorKeys.h"

#include <QtWidgets/QDialog>

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace editor {

/// All commands of the line editor with their keys, in groups, to be searched by typing. A list
/// to read: hosts change keys, this does not.
class KeyListDialog : public QDialog
{
    Q_OBJECT

public:
    /// Shows the list over the window of `parent` and returns at once, so that it can be read
    /// while working; Escape closes it. Each window has one: asked again, it shows `keys` in the same.
    /// \param parent  may be null.
    static void run(const EditorKeys &keys, QWidget *parent);

    explicit KeyListDialog(const EditorKeys &keys, QWidget *parent = nullptr);

    void setKeys(const EditorKeys &keys);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void buildSearch();
    void buildTree();
    void applyTheme();
    void fitColumns();
    void filter(const QString &words);
    [[nodiscard]] QSize fittingSize() const;

    QLineEdit *m_search;
    QTreeWidget *m_tree;
    QLabel *m_nothing;
};

} // namespace editor
