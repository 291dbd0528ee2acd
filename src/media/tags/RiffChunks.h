// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Container.h"
#include "media/tags/Outcome.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tags {

class ByteSource;

/// One chunk of a RIFF or IFF file.
struct RiffChunk
{
    static constexpr std::size_t kHeaderBytes = 8;

    std::string id; ///< four characters
    std::uint64_t offset = 0; ///< of its header
    std::uint64_t size = 0; ///< of its body
    bool padded = false; ///< whether a byte that counts for nothing follows its body

    [[nodiscard]] std::uint64_t bodyAt() const { return offset + kHeaderBytes; }
    [[nodiscard]] std::uint64_t bodyEnd() const { return bodyAt() + size; }
    [[nodiscard]] std::uint64_t end() const { return bodyEnd() + (padded ? 1 : 0); }
    [[nodiscard]] bool holdsId3v2() const { return id == "ID3 " || id == "id3 "; }
};

/// How a file writes its numbers.
enum class RiffOrder { Little, Big };

/// The order of a file of `format`; null when it has no chunks of this kind.
[[nodiscard]] std::optional<RiffOrder> riffOrder(Format format);

/// The chunks of a RIFF (little-endian) or IFF (big-endian) file, one behind the other from the start, as far
/// as they make sense. Source: "Multimedia Programming Interface and Data Specifications 1.0", and "EA IFF
/// 85".
struct RiffChunks
{
    RiffOrder order = RiffOrder::Little;
    std::uint64_t fileSize = 0;
    std::uint64_t claimedEnd = 0; ///< where the form ends by its own word
    std::vector<RiffChunk> chunks;

    /// Refused beyond 10,000 chunks.
    [[nodiscard]] static Outcome<RiffChunks> parse(const ByteSource &source, RiffOrder order);

    /// Where the last chunk ends.
    [[nodiscard]] std::uint64_t end() const;
    /// The first chunk that holds a tag, as an index; null when there is none.
    [[nodiscard]] std::optional<std::size_t> tagChunk() const;
    /// A number of four bytes, and a whole chunk with its padding, as the file writes them.
    [[nodiscard]] std::string number(std::uint64_t value) const;
    [[nodiscard]] std::string rendered(const std::string &id, const std::string &body) const;

    /// Why nothing can be put behind the last chunk, or moved: the file is cut off, or its sizes contradict
    /// one another. Null when all fits.
    [[nodiscard]] std::optional<Failure> inconsistency() const;
};

} // namespace tags
