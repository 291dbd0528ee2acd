// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

class ByteSource;

/// The header of an Ogg page. Source: RFC 3533, section 6.
struct OggPage
{
    static constexpr unsigned kContinued = 1;
    static constexpr unsigned kFirst = 2;
    static constexpr unsigned kLast = 4;
    /// Where sequence number and checksum stand, side by side.
    static constexpr std::uint64_t kSequenceAt = 18;
    static constexpr std::uint64_t kChecksumAt = 22;

    std::uint64_t offset = 0;
    unsigned flags = 0;
    std::uint64_t granule = 0;
    std::uint32_t serial = 0;
    std::uint32_t sequence = 0;
    std::string lacing; ///< one byte a segment

    [[nodiscard]] std::uint64_t bodyAt() const { return offset + 27 + lacing.size(); }
    [[nodiscard]] std::uint64_t bodySize() const;
    [[nodiscard]] std::uint64_t end() const { return bodyAt() + bodySize(); }
    /// Whether a packet ends with the page.
    [[nodiscard]] bool endsPacket() const { return !lacing.empty() && lacing.back() != '\xFF'; }

    /// The page at `offset`; null when there is none, or not a whole one.
    [[nodiscard]] static std::optional<OggPage> parse(const ByteSource &source, std::uint64_t offset);
};

/// The checksum of a whole page whose own field is taken as 0.
[[nodiscard]] std::uint32_t oggChecksum(std::string_view page);

/// `page` (whole) with another sequence number and the checksum that goes with it.
[[nodiscard]] std::string renumbered(std::string page, std::uint32_t sequence);

/// The pages that hold `packets` from `sequence` on, each packet whole; `last` are the flags
/// and the granule position of the page that ends the last one.
[[nodiscard]] std::vector<std::string> oggPages(
    const std::vector<std::string> &packets, std::uint32_t sequence, const OggPage &last);

} // namespace tags
