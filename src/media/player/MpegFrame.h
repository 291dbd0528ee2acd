// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace media {

/// What the four bytes in front of a frame of MPEG audio say.
struct MpegFrame
{
    int layer = 0;
    /// MPEG-1; otherwise the half and quarter sampling rates of MPEG-2 and 2.5.
    bool fullRate = false;
    bool mono = false;
    bool checksum = false;
    std::uint32_t sampleRate = 0;
    std::uint32_t samples = 0;
    /// With the header.
    std::size_t bytes = 0;

    /// Where the data of the frame begins that an encoder's info header takes the place of.
    [[nodiscard]] std::size_t infoOffset() const;
    /// Whether both can stand in one stream.
    [[nodiscard]] bool isLike(const MpegFrame &other) const
    {
        return layer == other.layer && sampleRate == other.sampleRate;
    }
};

/// Reads the header at the beginning of `bytes`. Nothing when it is none, or is of a kind that
/// does not tell its length (free format, layer I).
[[nodiscard]] std::optional<MpegFrame> readMpegFrame(std::span<const std::uint8_t> bytes);

/// The first place in `bytes` where a frame stands that another one of its kind follows, as far
/// as `bytes` reaches. Nothing when there is none.
[[nodiscard]] std::optional<std::size_t> findMpegFrame(std::span<const std::uint8_t> bytes);

} // namespace media
