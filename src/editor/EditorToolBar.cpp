// SPDX-License-Identifier: MIT
//
// The toolbar: how it fits its width, which keys it names, and the sign of a stamp.
#include "editor/CommandTitles.h"
#include "editor/EditorActions.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "editor/ToolBarFolding.h"
#include "kit/AccentButton.h"
#include "resources/Localized.h"
#include "resources/TQLrcUtils.h"

#include <QtWidgets/QLabel>

namespace {

// What a button's tooltip says without the key.
constexpr const char *kHint = "hint";

} // namespace

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

void TQLRCEditorViewCtl::refreshToolTips()
{
    if (!viewIfLoaded()) {
        return;
    }
    using enum EditorCommand;
    const std::initializer_list<std::pair<QAbstractButton *, EditorCommand>> buttons = {
        {m_btnInsertTime, isSourceShown() ? SplitAtCaret : Stamp},
        {m_btnInsertTitle, MakeTitle},
        {m_btnInsertArtist, MakeArtist},
        {m_btnInsertAlbum, MakeAlbum},
        {m_btnInsertEditBy, MakeEditedBy},
        {m_btnDelCur, Untag},
        {m_btnDelAll, UntagAll},
        {m_btnOffset, OffsetAll},
        {m_btnRestoreAll, RestoreAll},
        {m_btnSource, ShowSource},
        {m_btnSearch, SearchLyric},
        {m_btnPreview, Preview},
    };
    for (const auto &[button, command] : buttons) {
        if (!button->property(kHint).isValid()) {
            button->setProperty(kHint, button->toolTip());
        }
        button->setToolTip(editor::toolTipWithKey(button->property(kHint).toString(), m_keys, command));
    }
    if (auto *label = view()->findChild<QLabel *>(QStringLiteral("lblStampKey"))) {
        // In the source, Return is a line break.
        const auto keys = m_keys.keys(isSourceShown() ? SplitAtCaret : Stamp);
        label->setText(keys.isEmpty()
                ? localized(QStringLiteral("Stamp"))
                : localized(QStringLiteral("Stamp · %1")).arg(editor::keyText(keys.first())));
    }
}

void TQLRCEditorViewCtl::wireSourceButton()
{
    m_btnSource->setIcon(TQLrcUtils::iconNamed(QStringLiteral("view_source")));
    connect(m_btnSource, &QAbstractButton::clicked, this, [this] {
        const auto alive = self();
        perform(EditorCommand::ShowSource);
    });
    connect(action(EditorCommand::ShowSource), &QAction::toggled, m_btnSource, &QAbstractButton::setChecked);
}
