// SPDX-License-Identifier: MIT
//
// The toolbar: how it fits its width, and the sign of a stamp.
#include "editor/TQLRCEditorViewCtl.h"
#include "editor/ToolBarFolding.h"
#include "kit/AccentButton.h"

void TQLRCEditorViewCtl::viewWillLayout()
{
    ViewController::viewWillLayout();
    auto *toolBar = view()->findChild<QWidget *>(QStringLiteral("toolBarView"));
    if (!toolBar) {
        return;
    }
    auto *folding = toolBar->findChild<editor::ToolBarFolding *>(QString(), Qt::FindDirectChildrenOnly);
    if (!folding) {
        folding = new editor::ToolBarFolding(toolBar);
    }
    folding->fit(view()->width());
}

void TQLRCEditorViewCtl::showThatItStamped()
{
    if (auto *button = qobject_cast<AccentButton *>(m_btnInsertTime)) {
        button->flash();
    }
}
