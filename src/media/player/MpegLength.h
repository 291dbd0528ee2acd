// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <fstream>

namespace media {

/// The samples of all frames of the MPEG stream that begins at `offset` of `file` or soon after.
/// 0 when there is none, or when the file is too long for reading it only to count.
[[nodiscard]] std::uint64_t countMpegSamples(std::ifstream &file, std::uint64_t offset);

} // namespace media
