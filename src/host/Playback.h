// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/TQLRCEditorViewCtlDelegate.h"

#include <functional>
#include <memory>

namespace media {
class Player;
}

namespace desk {

/// The host's side of the component: plays what the component asks for, and passes on what it
/// tells.
class Playback final : public TQLRCEditorViewCtlDelegate
{
public:
    explicit Playback(std::shared_ptr<media::Player> player);

    /// Pauses `item` when it is playing, otherwise makes it the current one and plays it. Null
    /// unloads the player.
    void lrcEditorPlayAudioFile(const std::shared_ptr<WXEAudioFile> &item) override;
    void lrcEditorLrcDidChanged() override;

    /// Called whenever the lyric changed.
    void setOnLyricChanged(std::function<void()> callback) { m_onLyricChanged = std::move(callback); }

private:
    std::shared_ptr<media::Player> m_player;
    std::function<void()> m_onLyricChanged;
};

} // namespace desk
