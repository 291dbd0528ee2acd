// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace tags {

class ByteSource;

/// How long each frame of a stream lasts.
struct FrameLength
{
    unsigned samples = 0; ///< at least 1
    unsigned rate = 0; ///< samples a second, at least 1
};

/// That of the MPEG audio frame at `at`; null when none stands there.
[[nodiscard]] std::optional<FrameLength> mpegFrameLength(const ByteSource &source, std::uint64_t at);

/// Where the first MPEG audio frame (layer I, II or III) begins, searched from `from` over
/// 128 KiB. It counts when a second one of the same kind follows it, or when the file ends
/// with it; with `oneIsEnough` a frame alone counts, for files that a tag announces as MPEG.
[[nodiscard]] std::optional<std::uint64_t> firstMpegFrame(
    const ByteSource &source, std::uint64_t from, bool oneIsEnough);

} // namespace tags
