// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/WaveformPeaks.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace media {

/// Sums samples up into the levels of a waveform, in constant memory whatever the length.
///
/// The length need not be known: it begins with fine levels, and whenever there are too many of them
/// two become one. Not thread-safe.
class PeakCollector
{
public:
    /// So many levels there are at most, and half as many at least of all that is long enough.
    static constexpr std::size_t kMostLevels = 4096;

    /// `sampleRate` in Hz; 0 counts as 1.
    explicit PeakCollector(std::uint32_t sampleRate);

    /// Interleaved `samples` of `channels` channels, of which the first stands `firstFrame` frames after
    /// the beginning. What is before the beginning or later than a day is left out; a sample that is
    /// not a number is silence.
    void add(std::int64_t firstFrame, std::span<const float> samples, std::size_t channels);

    /// What was added so far.
    [[nodiscard]] const WaveformPeaks &peaks() const { return m_peaks; }

private:
    /// `frame` is not negative.
    [[nodiscard]] float &levelOf(std::int64_t frame);
    void halve();

    std::uint32_t m_sampleRate;
    std::int64_t m_framesPerLevel;
    WaveformPeaks m_peaks;
};

} // namespace media
