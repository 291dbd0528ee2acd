// SPDX-License-Identifier: MIT
// The component in a stranger's window: it plays the item that it is given, and an item that
// nobody edited is not written.
#include "StandIns.h"
#include "shell/TQWLRCEditorViewCtl.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const auto player = std::make_shared<StandInPlayer>();
    const auto host = std::make_shared<StandInHost>(player);
    const auto item = std::make_shared<StandInItem>(QStringLiteral("a"), "[00:01.00]a\n");

    QMainWindow window;
    const auto editor = TQWLRCEditorViewCtl::initWithPlayer(player);
    if (!editor) {
        return 1;
    }
    editor->setDelegate(host);
    window.setCentralWidget(editor->view());
    window.show();
    editor->flushWithAudioItem(item);

    const bool right = window.centralWidget() != nullptr && editor->isPlayingCurrent() && player->isPlaying()
        && !editor->serializeToAudioItem() && item->lyric() == "[00:01.00]a\n";
    return right ? 0 : 2;
}
