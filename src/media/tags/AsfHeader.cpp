// SPDX-License-Identifier: MIT
#include "media/tags/AsfHeader.h"

#include "media/tags/ByteSource.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace tags {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kHeaderHead = 30;
constexpr std::size_t kObjectHead = 24; ///< identifier and size
constexpr std::size_t kExtensionHead = 46;
constexpr std::size_t kFilePropertiesBytes = 104;
constexpr std::size_t kSizeAt = 16;
constexpr std::size_t kCountAt = 24;
constexpr std::size_t kExtensionSizeAt = 42;
constexpr std::size_t kFileSizeAt = 40;
constexpr std::uint64_t kMaxHeaderBytes = 32U << 20;
constexpr std::size_t kMaxParts = 100000;
constexpr std::size_t kMaxAttributesOfAnObject = 0xFFFF;

constexpr auto kHeader = "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C"sv;
constexpr auto kData = "\x36\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C"sv;

struct Known
{
    AsfKind kind;
    std::string_view guid;
};

constexpr std::array<Known, 6> kKnown = {{
    {AsfKind::FileProperties, "\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4\x00\xC0\x0C\x20\x53\x65"sv},
    {AsfKind::HeaderExtension, "\xB5\x03\xBF\x5F\x2E\xA9\xCF\x11\x8E\xE3\x00\xC0\x0C\x20\x53\x65"sv},
    {AsfKind::ExtendedContent, "\x40\xA4\xD0\xD2\x07\xE3\xD2\x11\x97\xF0\x00\xA0\xC9\x5E\xA8\x50"sv},
    {AsfKind::Metadata, "\xEA\xCB\xF8\xC5\xAF\x5B\x77\x48\x84\x67\xAA\x8C\x44\xFA\x4C\xCA"sv},
    {AsfKind::MetadataLibrary, "\x94\x1C\x23\x44\x98\x94\xD1\x49\xA1\x41\x1D\x13\x4E\x45\x70\x54"sv},
    {AsfKind::Signature, "\xFC\xB3\x11\x22\x23\xBD\xD2\x11\xB4\xB7\x00\xA0\xC9\x55\xFC\x6E"sv},
}};

AsfKind kindOf(std::string_view guid)
{
    const auto known = std::find_if(
        kKnown.begin(), kKnown.end(), [guid](const Known &entry) { return entry.guid == guid; });
    return known == kKnown.end() ? AsfKind::Other : known->kind;
}

Failure damaged()
{
    return {Reason::Damaged,
        "The parts of the WMA file's header do not fit together: the file is damaged or incomplete."};
}

Failure hostile()
{
    return {Reason::Hostile, "The WMA file's header has too many parts to be read safely."};
}

/// The attribute at the start of `bytes`, which are of an object of `kind`; null when none fits.
std::optional<AsfAttribute> takeAttribute(std::string_view bytes, AsfKind kind)
{
    const bool isExtended = kind == AsfKind::ExtendedContent;
    const std::size_t nameAt = isExtended ? 2 : 12;
    if (bytes.size() < nameAt)
        return std::nullopt;
    AsfAttribute attribute;
    const auto nameBytes = std::size_t(littleEndian(bytes, isExtended ? 0 : 4, 2));
    attribute.valueAt = nameAt + nameBytes + (isExtended ? 4 : 0);
    if (attribute.valueAt > bytes.size())
        return std::nullopt;
    if (!isExtended) {
        attribute.language = unsigned(littleEndian(bytes, 0, 2));
        attribute.stream = unsigned(littleEndian(bytes, 2, 2));
    }
    const std::size_t typeAt = isExtended ? nameAt + nameBytes : 6;
    attribute.type = unsigned(littleEndian(bytes, typeAt, 2));
    const std::uint64_t valueBytes = littleEndian(bytes, typeAt + 2, isExtended ? 2 : 4);
    if (valueBytes > bytes.size() - attribute.valueAt)
        return std::nullopt;
    attribute.name = bytes.substr(nameAt, nameBytes);
    attribute.raw = bytes.substr(0, attribute.valueAt + std::size_t(valueBytes));
    return attribute;
}

class Parser
{
public:
    /// The object at the start of `bytes`; null when none fits.
    [[nodiscard]] std::optional<AsfObject> object(std::string_view bytes, bool isNested)
    {
        const std::uint64_t size = littleEndian(bytes, kSizeAt, 8);
        if (size < kObjectHead || size > bytes.size() || isTooMuch())
            return std::nullopt;
        bytes = bytes.substr(0, std::size_t(size));
        AsfObject object;
        object.kind = kindOf(bytes.substr(0, kSizeAt));
        if (object.holdsAttributes())
            return attributes(std::move(object), bytes);
        if (object.kind == AsfKind::HeaderExtension && !isNested)
            return extension(std::move(object), bytes);
        if (object.kind == AsfKind::HeaderExtension)
            object.kind = AsfKind::Other; // one within another has no meaning
        if (object.kind == AsfKind::FileProperties && bytes.size() < kFilePropertiesBytes)
            return std::nullopt;
        object.head = bytes;
        return object;
    }

    [[nodiscard]] bool isExhausted() const { return m_parts > kMaxParts; }

private:
    [[nodiscard]] bool isTooMuch() { return ++m_parts > kMaxParts; }

    [[nodiscard]] std::optional<AsfObject> attributes(AsfObject object, std::string_view bytes)
    {
        if (bytes.size() < kCountAt + 2)
            return std::nullopt;
        object.head = bytes.substr(0, kCountAt + 2);
        std::string_view rest = bytes.substr(kCountAt + 2);
        for (std::uint64_t left = littleEndian(bytes, kCountAt, 2); left > 0; --left) {
            std::optional<AsfAttribute> attribute = takeAttribute(rest, object.kind);
            if (!attribute || isTooMuch())
                return std::nullopt;
            rest.remove_prefix(attribute->raw.size());
            object.attributes.push_back(std::move(*attribute));
        }
        object.tail = rest;
        return object;
    }

    [[nodiscard]] std::optional<AsfObject> extension(AsfObject object, std::string_view bytes)
    {
        if (bytes.size() < kExtensionHead
            || littleEndian(bytes, kExtensionSizeAt, 4) != bytes.size() - kExtensionHead)
            return std::nullopt;
        object.head = bytes.substr(0, kExtensionHead);
        for (std::string_view rest = bytes.substr(kExtensionHead); !rest.empty();) {
            std::optional<AsfObject> child = this->object(rest, true);
            if (!child)
                return std::nullopt;
            rest.remove_prefix(std::size_t(littleEndian(rest, kSizeAt, 8)));
            object.children.push_back(std::move(*child));
        }
        return object;
    }

    std::size_t m_parts = 0;
};

} // namespace

AsfObject AsfObject::make(AsfKind kind)
{
    AsfObject object;
    object.kind = kind;
    const auto known = std::find_if(
        kKnown.begin(), kKnown.end(), [kind](const Known &entry) { return entry.kind == kind; });
    object.head = std::string(known->guid) + std::string(kCountAt + 2 - kSizeAt, '\0');
    return object;
}

bool AsfObject::holdsAttributes() const
{
    return kind == AsfKind::ExtendedContent || kind == AsfKind::Metadata || kind == AsfKind::MetadataLibrary;
}

std::string AsfObject::render() const
{
    std::string out = head;
    for (const AsfAttribute &attribute : attributes)
        out += attribute.raw;
    for (const AsfObject &child : children)
        out += child.render();
    out += tail;
    out.replace(kSizeAt, 8, toLittleEndian(out.size(), 8));
    if (holdsAttributes())
        out.replace(kCountAt, 2, toLittleEndian(attributes.size(), 2));
    else if (kind == AsfKind::HeaderExtension)
        out.replace(kExtensionSizeAt, 4, toLittleEndian(out.size() - kExtensionHead, 4));
    return out;
}

Outcome<AsfHeader> AsfHeader::parse(const ByteSource &source)
{
    AsfHeader header;
    header.head = source.read(0, kHeaderHead);
    header.bytes = littleEndian(header.head, kSizeAt, 8);
    if (header.head.size() < kHeaderHead || header.bytes < kHeaderHead || header.bytes > source.size())
        return damaged();
    if (header.bytes > kMaxHeaderBytes)
        return hostile();
    // Without sound behind it the file was cut off, or its header lies.
    if (source.read(header.bytes, kData.size()) != kData)
        return damaged();
    const std::string bytes = source.read(kHeaderHead, std::size_t(header.bytes) - kHeaderHead);
    std::string_view rest = bytes;
    Parser parser;
    for (std::uint64_t left = littleEndian(header.head, kCountAt, 4); left > 0; --left) {
        std::optional<AsfObject> object = parser.object(rest, false);
        if (!object)
            return parser.isExhausted() ? hostile() : damaged();
        rest.remove_prefix(std::size_t(littleEndian(rest, kSizeAt, 8)));
        header.objects.push_back(std::move(*object));
    }
    header.tail = rest;
    return header;
}

Outcome<std::string> AsfHeader::render() const
{
    std::string out = head;
    for (const AsfObject &object : objects) {
        if (object.attributes.size() > kMaxAttributesOfAnObject)
            return Failure{Reason::TooLarge, "The WMA file has no room for one more field."};
        out += object.render();
    }
    out += tail;
    if (out.size() > kMaxHeaderBytes)
        return Failure{
            Reason::TooLarge, "The lyric is too long for this WMA file: its header would exceed 32 MiB."};
    out.replace(kSizeAt, 8, toLittleEndian(out.size(), 8));
    out.replace(kCountAt, 4, toLittleEndian(objects.size(), 4));
    return out;
}

std::uint64_t largestAsfValue(AsfKind kind)
{
    return kind == AsfKind::MetadataLibrary ? kMaxHeaderBytes : 0xFFFF;
}

AsfAttribute makeAsfAttribute(AsfKind kind, const AsfAttribute &like, std::string_view value)
{
    AsfAttribute made = like;
    const std::string name = toLittleEndian(like.name.size(), 2);
    const std::string type = toLittleEndian(like.type, 2);
    if (kind == AsfKind::ExtendedContent) {
        made.raw = name + like.name + type + toLittleEndian(value.size(), 2);
    } else {
        made.raw = toLittleEndian(like.language, 2) + toLittleEndian(like.stream, 2) + name + type
            + toLittleEndian(value.size(), 4) + like.name;
    }
    made.valueAt = made.raw.size();
    made.raw += value;
    return made;
}

std::string_view asfHeaderGuid()
{
    return kHeader;
}

std::uint64_t asfHeaderSize(const ByteSource &source)
{
    return std::min(littleEndian(source.read(0, kHeaderHead), kSizeAt, 8), source.size());
}

std::uint64_t asfFileSize(const AsfObject &object)
{
    return littleEndian(object.head, kFileSizeAt, 8);
}

void setAsfFileSize(AsfObject &object, std::uint64_t size)
{
    object.head.replace(kFileSizeAt, 8, toLittleEndian(size, 8));
}

} // namespace tags
