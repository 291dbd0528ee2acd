// SPDX-License-Identifier: MIT
//
// The ways out of the line editor: to the finished lyric, and to the help page.
#include "editor/TQLRCEditorViewCtl.h"
#include "kit/TQAlert.h"
#include "lyrics/RBPreviewSong.h"
#include "resources/Localized.h"
#include "shell/contracts/EditorContainer.h"
#include "shell/contracts/TQLRCEditorConfig.h"

#include <QtGui/QDesktopServices>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QPushButton>

void TQLRCEditorViewCtl::previewClicked(QObject *sender)
{
    const auto alive = self();
    m_song.updateSongText();
    if (!RBPreviewSong::hasLines(m_song.songText())) {
        TQAlert::OK_info(localized(QStringLiteral("No tags have been entered yet. Please insert tags first "
                                                  "and then preview the lyrics.")),
            {});
    } else if (const auto container = parentVC()) {
        container->prPreviewClicked(sender);
    }
}

void TQLRCEditorViewCtl::helpClick(QObject *sender)
{
    Q_UNUSED(sender)
    if (hasHelpPage()) {
        QDesktopServices::openUrl(gEditorConfig->helpUrl());
    }
}

bool TQLRCEditorViewCtl::hasHelpPage()
{
    return gEditorConfig && !gEditorConfig->helpUrl().isEmpty();
}

void TQLRCEditorViewCtl::wirePreviewAndHelp()
{
    wireButton(m_btnPreview, &TQLRCEditorViewCtl::previewClicked);
    if (hasHelpPage()) {
        // It shows once it is connected.
        QAbstractButton *help = m_tableView->dropTipView()->btnHelp();
        wireButton(help, &TQLRCEditorViewCtl::helpClick);
        QWidget::setTabOrder(m_tableView->dropTipView()->btnFunction(), help);
        QWidget::setTabOrder(help, m_btnInsertTime);
    }
}
