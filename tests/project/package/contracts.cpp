// SPDX-License-Identifier: MIT
// A host's own audio item, made by the component's factory.
#include "StandIns.h"
#include "shell/contracts/TQLRCNotifications.h"
#include "shell/contracts/WXEAudioFileMgr.h"

int main()
{
    WXEAudioFileMgr::setFactory([](const QString &path, bool) -> std::shared_ptr<WXEAudioFile> {
        return std::make_shared<StandInItem>(path, "[00:01.00]a\n");
    });
    const auto item = WXEAudioFileMgr::createAudioFileWithPath_dumpImmediately(QStringLiteral("a.mp3"), true);
    const bool right = item && item->title() == QStringLiteral("a.mp3")
        && !TQLRCEditorAdjustTimeFinishNotification.isEmpty();
    return right ? 0 : 1;
}
