// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace tags {

/// What tells one content of a file from another, taken when it was read.
///
/// A save compares it with the file as it is then, so that nobody's later change is overwritten.
struct FileState
{
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0; ///< bytes
    std::int64_t modifiedSeconds = 0; ///< since 1970
    std::int64_t modifiedNanoseconds = 0;
    std::optional<std::uint64_t> hash; ///< of the whole content; absent above `kMaxHashedBytes`

    friend bool operator==(const FileState &, const FileState &) = default;
};

/// The largest file that is held in memory: 16 MiB. A larger one is read where it lies.
inline constexpr std::uint64_t kMaxMemoryBytes = 16ULL << 20;

/// The largest file whose content is hashed when it is opened, so that a change of it is noticed whatever its
/// time says: 128 MiB. Of a larger one size and time are compared.
inline constexpr std::uint64_t kMaxHashedBytes = 128ULL << 20;

/// The largest file that is opened and saved at all: 2 GiB.
inline constexpr std::uint64_t kMaxReadBytes = 2ULL << 30;

} // namespace tags
