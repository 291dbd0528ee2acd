// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class TQAudioPlayerObserver;
class WXEAudioFile;

/// The host's audio player, as the component uses it.
///
/// One item at a time is current, playing or paused. Every time is in seconds from the start of
/// the current item. All calls are made on the GUI thread.
class TQAudioPlayerProtocol
{
public:
    virtual ~TQAudioPlayerProtocol() = default;

    /// True while audio plays, whatever the item. Answers what was asked for from the moment of
    /// the call of `play()`, also while the sound is still starting.
    [[nodiscard]] virtual bool isPlaying() const = 0;
    /// The current item, playing or paused; null when there is none. Compared by identity.
    [[nodiscard]] virtual std::shared_ptr<WXEAudioFile> playingMusic() const = 0;
    /// Length of the current item in seconds; 0 when there is none or it is not known yet.
    [[nodiscard]] virtual double duration() const = 0;

    /// Starts or resumes the current item. Nothing without one.
    virtual void play() = 0;
    /// Stops playing and keeps the position.
    virtual void pause() = 0;
    /// Moves the position of the current item. Clamped to its length; not a number does nothing.
    virtual void seek(double seconds) = 0;
    /// Starts playing from the position that was just set by `seek()`.
    virtual void lightPlay() = 0;

    /// From now on `observer` is told. Held weakly: an observer that no longer exists is told
    /// nothing. Registering twice is registering once.
    virtual void registObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer) = 0;
    /// From now on `observer` is told nothing. Harmless when it is not registered, and allowed
    /// from the observer's own destructor.
    virtual void removeObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer) = 0;

protected:
    TQAudioPlayerProtocol() = default;
    TQAudioPlayerProtocol(const TQAudioPlayerProtocol &) = default;
    TQAudioPlayerProtocol &operator=(const TQAudioPlayerProtocol &) = default;
};
