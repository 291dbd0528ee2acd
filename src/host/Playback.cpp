// SPDX-License-Identifier: MIT
#include "host/Playback.h"

#include "media/items/TaggedAudioFile.h"
#include "media/player/Player.h"

#include <utility>

namespace desk {

Playback::Playback(std::shared_ptr<media::Player> player) : m_player(std::move(player))
{ }

void Playback::lrcEditorPlayAudioFile(const std::shared_ptr<WXEAudioFile> &item)
{
    const auto file = std::dynamic_pointer_cast<media::TaggedAudioFile>(item);
    if (!file) {
        m_player->load(nullptr, {});
        return;
    }
    if (m_player->playingMusic() == item && m_player->isPlaying()) {
        m_player->pause();
        return;
    }
    m_player->load(item, file->path());
    m_player->play();
}

void Playback::lrcEditorLrcDidChanged()
{
    if (m_onLyricChanged) {
        m_onLyricChanged();
    }
}

} // namespace desk
