// SPDX-License-Identifier: MIT
#include "media/tags/ApeTag.h"

#include "media/tags/ByteSource.h"
#include "media/tags/TagsAtEnd.h"

#include <algorithm>

namespace tags {

namespace {

constexpr std::string_view kMagic = "APETAGEX";
constexpr std::size_t kFooterBytes = kApeFooterBytes;
constexpr std::size_t kItemHeadBytes = 8;
constexpr std::size_t kLongestKey = 255;
constexpr std::uint64_t kMaxTagBytes = 16U << 20; // as others bound it
/// No song has as many, and a library that keeps them in lists takes a gigabyte for some millions.
constexpr std::size_t kMaxValues = 100000;

constexpr std::uint32_t kHasHeader = 1U << 31;
constexpr std::uint32_t kIsHeader = 1U << 29;

std::uint32_t flagsOf(std::string_view headOrFooter)
{
    return std::uint32_t(littleEndian(headOrFooter, 20, 4));
}

Failure damaged()
{
    return {Reason::Damaged,
        "The items of the APE tag at the end of the file do not fit together: the file is damaged."};
}

Failure hostile()
{
    return {Reason::Hostile, "The APE tag at the end of the file is too large to be read safely."};
}

/// A header or footer like `old`, or a new one with these flags, for items of `bytes` bytes.
std::string frame(std::string old, std::uint32_t flags, std::size_t count, std::size_t bytes)
{
    if (old.empty())
        old = std::string(kMagic) + toLittleEndian(2000, 4) + std::string(8, '\0') + toLittleEndian(flags, 4)
            + std::string(8, '\0');
    old.replace(12, 4, toLittleEndian(bytes + kFooterBytes, 4));
    old.replace(16, 4, toLittleEndian(count, 4));
    return old;
}

/// The item at the start of `bytes`, null when there is none that fits.
std::optional<ApeItem> takeItem(std::string_view bytes)
{
    const std::size_t keyEnd = bytes.substr(0, kItemHeadBytes + kLongestKey + 1).find('\0', kItemHeadBytes);
    if (bytes.size() <= kItemHeadBytes || keyEnd == std::string_view::npos)
        return std::nullopt;
    const std::uint64_t length = littleEndian(bytes, 0, 4);
    if (length > bytes.size() - keyEnd - 1)
        return std::nullopt;
    return ApeItem{std::string(bytes.substr(0, keyEnd + 1 + std::size_t(length))), keyEnd - kItemHeadBytes};
}

std::optional<Failure> takeItems(std::string_view bytes, std::size_t count, ApeTag &tag)
{
    std::size_t values = 0;
    for (std::size_t i = 0; i < count; ++i) {
        std::optional<ApeItem> item = takeItem(bytes);
        if (!item)
            return damaged();
        const std::string_view value = item->value();
        values += 1 + (item->isText() ? std::size_t(std::count(value.begin(), value.end(), '\0')) : 0);
        if (values > kMaxValues)
            return hostile();
        bytes.remove_prefix(item->raw.size());
        tag.items.push_back(std::move(*item));
    }
    tag.tail = bytes;
    return std::nullopt;
}

/// The header that stands before `itemsAt`; empty when none does.
std::string headerBefore(const ByteSource &source, std::uint64_t itemsAt, std::string_view footer)
{
    if (itemsAt < kFooterBytes)
        return {};
    std::string header = source.read(itemsAt - kFooterBytes, kFooterBytes);
    const bool isHeader = header.compare(0, kMagic.size(), kMagic) == 0 && (flagsOf(header) & kIsHeader) != 0
        && header.compare(12, 4, footer, 12, 4) == 0;
    return isHeader ? header : std::string();
}

} // namespace

std::uint32_t ApeItem::flags() const
{
    return std::uint32_t(littleEndian(raw, 4, 4));
}

Outcome<ApeTag> ApeTag::parse(const ByteSource &source)
{
    const TagsAtEnd ends = tagsAtEnd(source);
    ApeTag tag;
    tag.offset = ends.lyrics3;
    if (!ends.hasApe)
        return tag;
    tag.footer = source.read(ends.lyrics3 - kFooterBytes, kFooterBytes);
    const std::uint64_t version = littleEndian(tag.footer, 8, 4);
    if (version != 1000 && version != 2000)
        return Failure{Reason::Unsupported, "The APE tag at the end of the file is of an unknown version."};
    const std::uint64_t size = littleEndian(tag.footer, 12, 4);
    const std::uint64_t count = littleEndian(tag.footer, 16, 4);
    if (size < kFooterBytes || size > ends.lyrics3)
        return damaged();
    if (size > kMaxTagBytes || count > kMaxValues)
        return hostile();
    const std::uint64_t itemsAt = ends.lyrics3 - size;
    if (version == 2000)
        tag.header = headerBefore(source, itemsAt, tag.footer);
    if (version == 2000 && tag.header.empty() && (flagsOf(tag.footer) & kHasHeader) != 0)
        return damaged();
    tag.offset = itemsAt - tag.header.size();
    tag.bytes = size + tag.header.size();
    const std::string bytes = source.read(itemsAt, std::size_t(size - kFooterBytes));
    if (std::optional<Failure> failure = takeItems(bytes, std::size_t(count), tag))
        return *failure;
    return tag;
}

unsigned ApeTag::version() const
{
    return littleEndian(footer, 8, 4) == 1000 ? 1 : 2;
}

Outcome<std::string> ApeTag::render() const
{
    if (items.empty() && tail.empty())
        return std::string();
    std::string body;
    for (const ApeItem &item : items)
        body += item.raw;
    body += tail;
    if (body.size() > kMaxTagBytes - kFooterBytes)
        return Failure{Reason::TooLarge, "The lyric is too long for this file, whose tag holds 16 MiB."};
    std::string out;
    if (footer.empty() || !header.empty())
        out = frame(header, kHasHeader | kIsHeader, items.size(), body.size());
    return out + body + frame(footer, kHasHeader, items.size(), body.size());
}

} // namespace tags
