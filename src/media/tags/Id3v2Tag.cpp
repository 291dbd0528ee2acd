// SPDX-License-Identifier: MIT
#include "media/tags/Id3v2Tag.h"

#include "media/tags/ByteSource.h"

#include <algorithm>
#include <utility>
#include <zlib.h>

namespace tags {

namespace {

constexpr std::size_t kMaxFrames = 200000;
constexpr int kMaxLeadingTags = 64;
constexpr std::size_t kHeaderBytes = 10;
constexpr unsigned kUnsynchronised = 0x80;
constexpr unsigned kExtendedHeader = 0x40;
constexpr unsigned kFooter = 0x10;
constexpr std::uint64_t kMaxTagBytes = 32ULL << 20;
constexpr std::size_t kNewPadding = 2048;
constexpr std::uint64_t kMaxInflated = 16ULL << 20;

/// Four bytes of seven bits each; nothing when a top bit is set.
std::optional<std::uint64_t> syncSafe(std::string_view bytes, std::size_t at)
{
    if (bytes.size() < at + 4)
        return std::nullopt;
    std::uint64_t value = 0;
    for (std::size_t i = at; i < at + 4; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte & 0x80U)
            return std::nullopt;
        value = (value << 7) | byte;
    }
    return value;
}

std::string toSyncSafe(std::uint64_t value)
{
    std::string out(4, '\0');
    for (std::size_t i = 4; i-- > 0; value >>= 7)
        out[i] = static_cast<char>(value & 0x7F);
    return out;
}

/// Undoes unsynchronisation: FF 00 is FF.
std::string synchronised(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        out += bytes[i];
        if (bytes[i] == '\xFF' && i + 1 < bytes.size() && bytes[i + 1] == '\0')
            ++i;
    }
    return out;
}

/// What `deflated` inflates to, when that has `size` bytes.
std::optional<std::string> inflated(const std::string &deflated, std::uint64_t size)
{
    if (size == 0 || size > kMaxInflated)
        return std::nullopt;
    std::string out(std::size_t(size), '\0');
    auto length = static_cast<uLongf>(size);
    const auto *in = reinterpret_cast<const Bytef *>(deflated.data());
    const int answer
        = uncompress(reinterpret_cast<Bytef *>(out.data()), &length, in, static_cast<uLong>(deflated.size()));
    return answer == Z_OK && length == size ? std::optional(std::move(out)) : std::nullopt;
}

bool isFrameId(std::string_view id)
{
    return std::all_of(
        id.begin(), id.end(), [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

std::size_t frameHeaderBytes(unsigned version)
{
    return version == 2 ? 6 : 10;
}

/// Whether a frame, padding or the end of the tag stands at `at`.
bool isBoundary(std::string_view body, std::uint64_t at)
{
    if (at >= body.size())
        return at == body.size();
    return body[std::size_t(at)] == '\0' || isFrameId(body.substr(std::size_t(at), 4));
}

/// Size of the body of the frame at `at`. Some writers of 2.4 left sizes as 2.3 has them: where
/// the right reading ends between frames and the wrong one does not, the wrong one is meant.
std::uint64_t frameSize(unsigned version, std::string_view body, std::size_t at)
{
    if (version == 2)
        return bigEndian(body, at + 3, 3);
    const std::uint64_t plain = bigEndian(body, at + 4, 4);
    if (version == 3)
        return plain;
    const std::optional<std::uint64_t> safe = syncSafe(body, at + 4);
    const std::uint64_t start = at + kHeaderBytes;
    if (!safe || (plain > 127 && !isBoundary(body, start + *safe) && isBoundary(body, start + plain)))
        return plain;
    return *safe;
}

std::size_t extendedHeaderBytes(unsigned version, std::string_view body)
{
    const std::uint64_t size = version == 4 ? syncSafe(body, 0).value_or(0) : bigEndian(body, 0, 4) + 4;
    return std::size_t(std::min<std::uint64_t>(size, body.size()));
}

void parseFrames(Id3v2Tag &tag, const SharedBytes &bytes)
{
    const std::string_view body = bytes.view();
    const std::size_t header = frameHeaderBytes(tag.version);
    const std::size_t idBytes = tag.version == 2 ? 3 : 4;
    std::size_t at = 0;
    while (
        body.size() - at > header && isFrameId(body.substr(at, idBytes)) && tag.frames.size() <= kMaxFrames) {
        const std::uint64_t size = frameSize(tag.version, body, at);
        if (size > body.size() - at - header)
            break;
        Id3v2Frame frame;
        frame.id = body.substr(at, idBytes);
        frame.format = tag.version == 2 ? 0 : unsigned(bigEndian(body, at + 9, 1));
        frame.raw = bytes.slice(at, header + std::size_t(size));
        frame.bodyAt = header;
        tag.frames.push_back(std::move(frame));
        at += header + std::size_t(size);
    }
    const std::string_view rest = body.substr(at);
    if (rest.find_first_not_of('\0') != std::string_view::npos)
        tag.tail = rest;
}

Failure cutOff()
{
    return {Reason::Damaged,
        "The file's ID3 tag is longer than the place it stands in: the file is damaged or incomplete."};
}

} // namespace

std::uint64_t id3v2Size(const ByteSource &source, std::uint64_t offset)
{
    const std::string header = source.read(offset, kHeaderBytes);
    const std::optional<std::uint64_t> size = syncSafe(header, 6);
    const bool known = header.size() == kHeaderBytes && header.compare(0, 3, "ID3") == 0 && header[3] >= 2
        && header[3] <= 4 && header[4] != '\xFF';
    if (!known || !size)
        return 0;
    const bool footer = header[3] == 4 && (static_cast<unsigned char>(header[5]) & kFooter);
    return kHeaderBytes + *size + (footer ? kHeaderBytes : 0);
}

std::uint64_t leadingId3v2Size(const ByteSource &source)
{
    std::uint64_t end = 0;
    // More than a few are made to be read one by one.
    for (int tags = 0; tags < kMaxLeadingTags; ++tags) {
        const std::uint64_t size = id3v2Size(source, end);
        if (size == 0)
            break;
        end += size;
    }
    return end;
}

Outcome<Id3v2Tag> Id3v2Tag::parse(const ByteSource &source)
{
    Id3v2Tag tag;
    tag.bytes = id3v2Size(source, 0);
    if (tag.bytes == 0)
        return tag;
    if (tag.bytes > source.size())
        return cutOff();
    if (tag.bytes > kMaxTagBytes)
        return Failure{
            Reason::TooLarge, "The file's ID3 tag is larger than 32 MiB, which is more than can be read."};
    const std::string header = source.read(0, kHeaderBytes);
    tag.version = unsigned(bigEndian(header, 3, 1));
    tag.revision = unsigned(bigEndian(header, 4, 1));
    tag.flags = unsigned(bigEndian(header, 5, 1));
    if (tag.version == 2
        && (tag.flags & kExtendedHeader)) // there, the bit means a compression nobody defined
        return Failure{Reason::Unsupported, "The file's ID3 tag is compressed in a way that cannot be read."};
    std::string body = source.read(kHeaderBytes, std::size_t(syncSafe(header, 6).value_or(0)));
    if ((tag.flags & kUnsynchronised) && tag.version < 4)
        body = synchronised(body);
    if (tag.flags & kExtendedHeader)
        body.erase(0, extendedHeaderBytes(tag.version, body));
    parseFrames(tag, SharedBytes(std::move(body)));
    if (tag.frames.size() > kMaxFrames) {
        return Failure{Reason::Hostile,
            "The tag of the file has hundreds of thousands of entries, which cannot be read safely."};
    }
    return tag;
}

Outcome<std::string> Id3v2Tag::render() const
{
    std::uint64_t size = tail.size();
    for (const Id3v2Frame &frame : frames)
        size += frame.raw.size();
    if (size == 0)
        return std::string();
    const std::uint64_t room = bytes > kHeaderBytes ? bytes - kHeaderBytes : 0;
    const std::uint64_t padded = size <= room ? room : size + kNewPadding;
    if (padded > kMaxTagBytes)
        return Failure{Reason::TooLarge, "The lyric is too long for this kind of file."};
    const unsigned gone = kExtendedHeader | kFooter | (version < 4 ? kUnsynchronised : 0U);
    std::string out = "ID3";
    out.reserve(kHeaderBytes + std::size_t(padded));
    out += static_cast<char>(version);
    out += static_cast<char>(revision);
    out += static_cast<char>(flags & ~gone);
    out += toSyncSafe(padded);
    for (const Id3v2Frame &frame : frames)
        out += frame.raw.view();
    out += tail;
    out.resize(kHeaderBytes + std::size_t(padded), '\0');
    return out;
}

bool isCompressed(const Id3v2Tag &tag, const Id3v2Frame &frame)
{
    return tag.version != 2 && (frame.format & (tag.version == 3 ? 0x80U : 0x08U));
}

std::optional<std::string> plainBody(const Id3v2Tag &tag, const Id3v2Frame &frame)
{
    std::string_view body = frame.body();
    if (tag.version == 2)
        return std::string(body);
    const bool isVersion3 = tag.version == 3;
    if (frame.format & (isVersion3 ? 0x40U : 0x04U)) // encrypted
        return std::nullopt;
    const std::size_t group = frame.format & (isVersion3 ? 0x20U : 0x40U) ? 1 : 0;
    const bool hasLength = isVersion3 ? isCompressed(tag, frame) : (frame.format & 0x01U) != 0;
    // The length of what was deflated stands before the group in 2.3, and behind it in 2.4.
    const std::size_t lengthAt = isVersion3 ? 0 : group;
    const std::uint64_t length
        = isVersion3 ? bigEndian(body, lengthAt, 4) : syncSafe(body, lengthAt).value_or(0);
    body.remove_prefix(std::min(group + (hasLength ? 4 : 0), body.size()));
    std::string plain = !isVersion3 && (frame.format & 0x02U) ? synchronised(body) : std::string(body);
    return isCompressed(tag, frame) ? inflated(plain, hasLength ? length : 0) : std::move(plain);
}

Id3v2Frame makeFrame(unsigned version, const std::string &id, const std::string &body)
{
    std::string raw = version == 2
        ? id + toBigEndian(body.size(), 3)
        : id + (version == 4 ? toSyncSafe(body.size()) : toBigEndian(body.size(), 4)) + std::string(2, '\0');
    Id3v2Frame frame;
    frame.id = id;
    frame.bodyAt = raw.size();
    frame.raw = SharedBytes(std::move(raw += body));
    return frame;
}

} // namespace tags
