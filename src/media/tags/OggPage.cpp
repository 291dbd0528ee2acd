// SPDX-License-Identifier: MIT
#include "media/tags/OggPage.h"

#include "media/tags/ByteSource.h"

#include <algorithm>
#include <array>

namespace tags {

namespace {

constexpr std::size_t kFixedBytes = 27;
constexpr std::size_t kMaxSegments = 255;
constexpr std::uint64_t kNoPacketEnds = ~0ULL;

constexpr std::array<std::uint32_t, 256> checksumTable()
{
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t value = i << 24;
        for (int bit = 0; bit < 8; ++bit)
            value = (value << 1) ^ ((value & 0x80000000U) ? 0x04C11DB7U : 0U);
        table[i] = value;
    }
    return table;
}

std::string lacingOf(const std::vector<std::string> &packets)
{
    std::string lacing;
    for (const std::string &packet : packets) {
        lacing.append(packet.size() / 255, '\xFF');
        lacing += static_cast<char>(packet.size() % 255);
    }
    return lacing;
}

struct Draft
{
    unsigned flags = 0;
    std::uint64_t granule = 0;
    std::uint32_t serial = 0;
    std::uint32_t sequence = 0;
};

std::string renderPage(const Draft &draft, std::string_view lacing, std::string_view body)
{
    std::string page = "OggS";
    page += '\0';
    page += static_cast<char>(draft.flags);
    page += toLittleEndian(draft.granule, 8);
    page += toLittleEndian(draft.serial, 4);
    page += std::string(8, '\0');
    page += static_cast<char>(lacing.size());
    page += lacing;
    page += body;
    return renumbered(std::move(page), draft.sequence);
}

} // namespace

std::uint64_t OggPage::bodySize() const
{
    std::uint64_t size = 0;
    for (const char segment : lacing)
        size += static_cast<unsigned char>(segment);
    return size;
}

std::optional<OggPage> OggPage::parse(const ByteSource &source, std::uint64_t offset)
{
    const std::string bytes = source.read(offset, kFixedBytes + kMaxSegments);
    if (bytes.size() < kFixedBytes || bytes.compare(0, 4, "OggS") != 0 || bytes[4] != '\0')
        return std::nullopt;
    OggPage page;
    page.offset = offset;
    page.flags = unsigned(littleEndian(bytes, 5, 1));
    page.granule = littleEndian(bytes, 6, 8);
    page.serial = std::uint32_t(littleEndian(bytes, 14, 4));
    page.sequence = std::uint32_t(littleEndian(bytes, kSequenceAt, 4));
    const auto segments = std::size_t(littleEndian(bytes, 26, 1));
    page.lacing = bytes.substr(kFixedBytes, segments);
    if (page.lacing.size() < segments || page.end() > source.size())
        return std::nullopt;
    return page;
}

std::uint32_t oggChecksum(std::string_view page)
{
    static constexpr std::array<std::uint32_t, 256> table = checksumTable();
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < page.size(); ++i) {
        const bool own = i >= OggPage::kChecksumAt && i < OggPage::kChecksumAt + 4;
        const unsigned byte = own ? 0U : static_cast<unsigned char>(page[i]);
        value = (value << 8) ^ table[(value >> 24) ^ byte];
    }
    return value;
}

std::string renumbered(std::string page, std::uint32_t sequence)
{
    page.replace(OggPage::kSequenceAt, 4, toLittleEndian(sequence, 4));
    page.replace(OggPage::kChecksumAt, 4, toLittleEndian(oggChecksum(page), 4));
    return page;
}

std::vector<std::string> oggPages(
    const std::vector<std::string> &packets, std::uint32_t sequence, const OggPage &last)
{
    const std::string lacing = lacingOf(packets);
    std::string body;
    for (const std::string &packet : packets)
        body += packet;
    std::vector<std::string> pages;
    std::size_t bodyAt = 0;
    for (std::size_t at = 0; at < lacing.size(); at += kMaxSegments) {
        const std::string_view segments = std::string_view(lacing).substr(at, kMaxSegments);
        std::size_t size = 0;
        for (const char segment : segments)
            size += static_cast<unsigned char>(segment);
        const bool continued = at > 0 && lacing[at - 1] == '\xFF';
        const bool final = at + segments.size() == lacing.size();
        const bool ends = std::any_of(segments.begin(), segments.end(), [](char c) { return c != '\xFF'; });
        Draft draft;
        draft.flags = (continued ? OggPage::kContinued : 0U) | (final ? last.flags & OggPage::kLast : 0U);
        draft.granule = final ? last.granule : ends ? 0 : kNoPacketEnds;
        draft.serial = last.serial;
        draft.sequence = sequence++;
        pages.push_back(renderPage(draft, segments, std::string_view(body).substr(bodyAt, size)));
        bodyAt += size;
    }
    return pages;
}

} // namespace tags
