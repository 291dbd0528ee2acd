// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/MpegFrame.h"

#include <cstdint>
#include <optional>

namespace tags {

class ByteSource;

/// Where the first ADTS frame (bare AAC) begins, searched from `from` over 128 KiB. It counts when
/// another of the same kind follows it, or when the file ends with it.
[[nodiscard]] std::optional<std::uint64_t> firstAdtsFrame(const ByteSource &source, std::uint64_t from);

/// The length of the ADTS frame at `at`; null when none stands there.
[[nodiscard]] std::optional<FrameLength> adtsFrameLength(const ByteSource &source, std::uint64_t at);

/// Seconds from `at` to the end of the file, told from the first frames: there is no header that knows.
[[nodiscard]] double adtsDuration(const ByteSource &source, std::uint64_t at);

} // namespace tags
