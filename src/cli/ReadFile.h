// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace cli {

/// The largest lyric that is read: 64 MiB, some thousand times the longest that there are.
inline constexpr std::uint64_t kLargestLyric = 64ULL << 20;

/// The bytes of a file, or why they are not there.
struct FileText
{
    std::string bytes;
    std::string refusal; ///< a sentence that says what to do; empty when there are bytes

    [[nodiscard]] bool ok() const { return refusal.empty(); }
};

/// Reads the file at `path`. A pipe is read to its end when somebody writes to it; folders, devices and what
/// is larger than `limit` bytes are refused. Never reads further than that.
[[nodiscard]] FileText readFile(const std::string &path, std::uint64_t limit = kLargestLyric);

/// The same from an open descriptor, which may be a terminal.
[[nodiscard]] FileText readDescriptor(int fd, std::uint64_t limit = kLargestLyric);

} // namespace cli
