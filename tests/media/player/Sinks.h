// SPDX-License-Identifier: MIT
#pragma once

#include "media/player/Player.h"

#include <mutex>
#include <vector>

struct _GstAppSink;

/// Outputs for tests. None of them needs a sound device.
namespace sinks {

/// Keeps real time, in silence.
[[nodiscard]] media::PlayerOutput realTime();
/// Takes everything as fast as it comes.
[[nodiscard]] media::PlayerOutput fast();

/// Keeps what would be heard: mono, `audiofiles::kSampleRate`.
class Capture
{
public:
    /// A stretch of sound, and how far behind the place it begins where the library was last sent to.
    struct Block
    {
        double secondsAfterSeek = 0;
        std::vector<float> samples;
        /// When its first sample was due, on the steady clock.
        double renderedAt = 0;
    };
    enum class Pace { Fast, RealTime };

    explicit Capture(Pace pace) : m_pace(pace) { }
    /// It must live as long as the player.
    [[nodiscard]] media::PlayerOutput output();

    [[nodiscard]] std::vector<Block> blocks() const;
    [[nodiscard]] double seconds() const;
    void clear();
    /// Called by the library.
    void take(_GstAppSink *sink);

private:
    Pace m_pace;
    mutable std::mutex m_mutex;
    std::vector<Block> m_blocks;
};

/// Seconds on the steady clock.
[[nodiscard]] double steadySeconds();

} // namespace sinks
