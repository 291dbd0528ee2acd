// SPDX-License-Identifier: MIT
// The audio items and the player that come with the component, in somebody else's program.
#include "media/items/TaggedAudioFile.h"
#include "media/player/Player.h"

#include <QtCore/QCoreApplication>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const auto missing = media::TaggedAudioFile::open(QStringLiteral("no such file.mp3"));
    const auto player = media::Player::create();
    const bool right = !missing.item && !missing.message.isEmpty() && player && !player->isPlaying()
        && !player->playingMusic();
    return right ? 0 : 1;
}
