// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class TQAudioPlayerProtocol;
class WXEAudioFile;

/// What a player tells those who registered with it.
///
/// Every call is optional: what an observer does not override is skipped. All calls come on the
/// GUI thread. `player` is the sender; it is never null and valid for the length of the call.
class TQAudioPlayerObserver
{
public:
    virtual ~TQAudioPlayerObserver() = default;

    /// `item` became the player's current item and begins to play.
    virtual void audioPlayer_startPlay(
        TQAudioPlayerProtocol *player, const std::shared_ptr<WXEAudioFile> &item)
    {
        static_cast<void>(player);
        static_cast<void>(item);
    }

    /// The current item was played to its end.
    virtual void audioPlayerPlayFinished(TQAudioPlayerProtocol *player) { static_cast<void>(player); }

    /// The position that is heard now, in seconds from the start of the item.
    ///
    /// At least 100 times a second while playing, and once after each seek and when an item
    /// becomes current, also while paused.
    virtual void audioPlayer_updateProgress(TQAudioPlayerProtocol *player, double seconds)
    {
        static_cast<void>(player);
        static_cast<void>(seconds);
    }

    /// Playing began or ended; `playing` is the player's `isPlaying()` as of now.
    virtual void audioPlayer_playStateChanged(TQAudioPlayerProtocol *player, bool playing)
    {
        static_cast<void>(player);
        static_cast<void>(playing);
    }

protected:
    TQAudioPlayerObserver() = default;
    TQAudioPlayerObserver(const TQAudioPlayerObserver &) = default;
    TQAudioPlayerObserver &operator=(const TQAudioPlayerObserver &) = default;
};
