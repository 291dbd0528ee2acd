// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <vector>

namespace media {

/// At most `most` bytes of `file` from `offset` on; fewer at the end or when reading fails.
[[nodiscard]] std::vector<std::uint8_t> readAt(std::ifstream &file, std::uint64_t offset, std::size_t most);

} // namespace media
