// SPDX-License-Identifier: MIT
#include "media/player/MpegFrame.h"

#include <array>

namespace media {

namespace {

// In kbit/s, by the header's index from 1; index 0 is free format and 15 is forbidden.
constexpr std::array<std::uint32_t, 14> kLayer2FullRate{
    32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
constexpr std::array<std::uint32_t, 14> kLayer3FullRate{
    32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr std::array<std::uint32_t, 14> kHalfRate{8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
constexpr std::array<std::uint32_t, 3> kSampleRates{44100, 48000, 32000};

constexpr std::size_t kHeaderBytes = 4;

std::uint32_t kilobits(const MpegFrame &frame, std::size_t index)
{
    if (!frame.fullRate) {
        return kHalfRate.at(index - 1);
    }
    return frame.layer == 2 ? kLayer2FullRate.at(index - 1) : kLayer3FullRate.at(index - 1);
}

} // namespace

std::size_t MpegFrame::infoOffset() const
{
    const std::size_t sideInfo = fullRate ? (mono ? 17 : 32) : (mono ? 9 : 17);
    return kHeaderBytes + (checksum ? 2 : 0) + sideInfo;
}

std::optional<MpegFrame> readMpegFrame(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < kHeaderBytes || bytes[0] != 0xff || (bytes[1] & 0xe0U) != 0xe0U) {
        return std::nullopt;
    }
    const unsigned version = (bytes[1] >> 3U) & 3U; // 3 is MPEG-1, 2 is MPEG-2, 0 is 2.5
    const unsigned layerBits = (bytes[1] >> 1U) & 3U; // 1 is layer III, 2 is layer II
    const unsigned rateIndex = bytes[2] >> 4U;
    const unsigned samplingIndex = (bytes[2] >> 2U) & 3U;
    if (version == 1 || layerBits == 0 || layerBits == 3 || rateIndex == 0 || rateIndex == 15
        || samplingIndex == 3) {
        return std::nullopt;
    }
    MpegFrame frame;
    frame.layer = static_cast<int>(4 - layerBits);
    frame.fullRate = version == 3;
    frame.checksum = (bytes[1] & 1U) == 0;
    frame.mono = (bytes[3] >> 6U) == 3;
    frame.sampleRate = kSampleRates.at(samplingIndex) >> (version == 3 ? 0U : version == 2 ? 1U : 2U);
    frame.samples = frame.layer == 3 && !frame.fullRate ? 576 : 1152;
    const std::uint32_t padding = (bytes[2] >> 1U) & 1U;
    frame.bytes = frame.samples / 8 * kilobits(frame, rateIndex) * 1000 / frame.sampleRate + padding;
    return frame;
}

std::optional<std::size_t> findMpegFrame(std::span<const std::uint8_t> bytes)
{
    for (std::size_t at = 0; at + kHeaderBytes <= bytes.size(); ++at) {
        const auto frame = readMpegFrame(bytes.subspan(at));
        if (!frame) {
            continue;
        }
        const std::size_t next = at + frame->bytes;
        if (next + kHeaderBytes > bytes.size()) {
            return at;
        }
        const auto following = readMpegFrame(bytes.subspan(next));
        if (following && following->isLike(*frame)) {
            return at;
        }
    }
    return std::nullopt;
}

} // namespace media
