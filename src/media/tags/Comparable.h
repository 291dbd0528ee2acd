// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tags {

class ByteSource;

/// `bytes` to be compared with others: themselves, or where they are more than 64 KiB their size and hash.
[[nodiscard]] std::string comparable(std::string_view bytes);
/// The same of a stretch of `source`, which is read block by block.
[[nodiscard]] std::string comparable(const ByteSource &source, std::uint64_t offset, std::uint64_t size);

} // namespace tags
