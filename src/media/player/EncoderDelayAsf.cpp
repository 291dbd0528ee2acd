// SPDX-License-Identifier: MIT
#include "media/player/EncoderDelay.h"

#include <algorithm>
#include <array>

namespace media {

namespace {

using Guid = std::array<std::uint8_t, 16>;

constexpr Guid kAudioMedia{
    0x40, 0x9e, 0x69, 0xf8, 0x4d, 0x5b, 0xcf, 0x11, 0xa8, 0xfd, 0x00, 0x80, 0x5f, 0x5c, 0x44, 0x2b};
// From the stream's type to the description of its sound, past the other fields of the object.
constexpr std::size_t kTypeToFormat = 54;
constexpr std::size_t kFormatBytes = 8;

constexpr unsigned kVersion1 = 0x160;
constexpr unsigned kVersion2 = 0x161;

std::uint32_t littleEndian(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t count)
{
    std::uint32_t value = 0;
    for (std::size_t i = count; i > 0; --i) {
        value = value << 8U | bytes[at + i - 1];
    }
    return value;
}

/// The coder overlaps its blocks: the first one holds no music yet.
std::uint32_t blockSamples(std::uint32_t sampleRate, unsigned version)
{
    if (sampleRate <= 16000) {
        return 512;
    }
    return sampleRate <= 22050 || (sampleRate <= 32000 && version == kVersion1) ? 1024 : 2048;
}

} // namespace

EncoderDelay encoderDelayOfAsf(std::span<const std::uint8_t> start)
{
    const auto found = std::search(start.begin(), start.end(), kAudioMedia.begin(), kAudioMedia.end());
    const auto at = static_cast<std::size_t>(found - start.begin()) + kTypeToFormat;
    if (found == start.end() || at + kFormatBytes > start.size()) {
        return {};
    }
    const unsigned version = littleEndian(start, at, 2);
    const std::uint32_t sampleRate = littleEndian(start, at + 4, 4);
    if ((version != kVersion1 && version != kVersion2) || sampleRate == 0) {
        return {};
    }
    return {.sampleRate = sampleRate, .front = blockSamples(sampleRate, version)};
}

} // namespace media
