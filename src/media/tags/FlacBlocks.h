// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Outcome.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tags {

class ByteSource;

/// One block of what stands before the sound of a FLAC file. Source: RFC 9639, section 8.
struct FlacBlock
{
    static constexpr std::size_t kHeaderBytes = 4;
    static constexpr unsigned kVorbisComment = 4;
    static constexpr unsigned kPicture = 6;
    static constexpr unsigned kLast = 0x80; ///< in the first byte, beside the type

    std::uint64_t offset = 0; ///< of its header
    unsigned type = 0;
    std::uint64_t size = 0; ///< of its body

    [[nodiscard]] std::uint64_t bodyAt() const { return offset + kHeaderBytes; }
    [[nodiscard]] std::uint64_t end() const { return bodyAt() + size; }
};

struct FlacBlocks
{
    std::uint64_t start = 0; ///< of "fLaC", behind an ID3v2 tag that has no business there
    std::vector<FlacBlock> blocks; ///< never empty

    /// Refused beyond 100,000 blocks, or when they do not fit the file.
    [[nodiscard]] static Outcome<FlacBlocks> parse(const ByteSource &source);

    [[nodiscard]] std::uint64_t audioStart() const { return blocks.back().end(); }
};

} // namespace tags
