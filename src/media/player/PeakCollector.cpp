// SPDX-License-Identifier: MIT
#include "media/player/PeakCollector.h"

#include <algorithm>
#include <cmath>

namespace media {

namespace {

// Finer than a pixel of any song that is worth a waveform.
constexpr std::uint32_t kFirstLevelsPerSecond = 200;
constexpr std::int64_t kLongestSeconds = 24 * 3600;

float largest(std::span<const float> samples)
{
    float peak = 0.0F;
    for (const float sample : samples) {
        const float size = std::fabs(sample);
        // False for what is not a number.
        peak = size > peak ? size : peak;
    }
    return std::min(peak, 1.0F);
}

} // namespace

PeakCollector::PeakCollector(std::uint32_t sampleRate)
    : m_sampleRate(std::max(sampleRate, 1U)),
      m_framesPerLevel(std::max(m_sampleRate / kFirstLevelsPerSecond, 1U))
{
    m_peaks.secondsPerLevel = static_cast<double>(m_framesPerLevel) / m_sampleRate;
}

void PeakCollector::add(std::int64_t firstFrame, std::span<const float> samples, std::size_t channels)
{
    const auto frames = static_cast<std::int64_t>(samples.size() / std::max<std::size_t>(channels, 1));
    const std::int64_t longest = kLongestSeconds * m_sampleRate;
    std::int64_t at = std::max<std::int64_t>(0, -std::max(firstFrame, -longest));
    while (at < frames && firstFrame + at >= 0 && firstFrame + at < longest) {
        float &level = levelOf(firstFrame + at);
        const std::int64_t untilNext = m_framesPerLevel - (firstFrame + at) % m_framesPerLevel;
        const std::int64_t count = std::min(untilNext, frames - at);
        level = std::max(level,
            largest(samples.subspan(
                static_cast<std::size_t>(at) * channels, static_cast<std::size_t>(count) * channels)));
        at += count;
    }
}

float &PeakCollector::levelOf(std::int64_t frame)
{
    while (frame / m_framesPerLevel >= static_cast<std::int64_t>(kMostLevels)) {
        halve();
    }
    const auto index = static_cast<std::size_t>(frame / m_framesPerLevel);
    if (index >= m_peaks.levels.size()) {
        m_peaks.levels.resize(index + 1, 0.0F);
    }
    return m_peaks.levels[index];
}

void PeakCollector::halve()
{
    auto &levels = m_peaks.levels;
    for (std::size_t i = 0; i < levels.size(); i += 2) {
        levels[i / 2] = i + 1 < levels.size() ? std::max(levels[i], levels[i + 1]) : levels[i];
    }
    levels.resize((levels.size() + 1) / 2);
    m_framesPerLevel *= 2;
    m_peaks.secondsPerLevel = static_cast<double>(m_framesPerLevel) / m_sampleRate;
}

} // namespace media
