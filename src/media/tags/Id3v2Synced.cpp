// SPDX-License-Identifier: MIT
#include "media/tags/Id3v2Synced.h"

#include "media/tags/ByteSource.h"
#include "media/tags/Id3v2Text.h"
#include "media/tags/LrcTime.h"
#include "media/tags/TextCodec.h"

#include <algorithm>

namespace tags {

namespace {

constexpr std::size_t kHeadBytes = 6; // encoding, language, unit, content type
constexpr std::size_t kTimeBytes = 4;

/// The terminated string at `at`, which moves behind its terminator; null when none ends there.
std::optional<std::string_view> takeString(std::string_view body, std::size_t &at, Id3v2Encoding encoding)
{
    const std::string_view rest = body.substr(at);
    const std::size_t end = terminator(rest, encoding);
    if (end + unitBytes(encoding) > rest.size())
        return std::nullopt;
    at += end + unitBytes(encoding);
    return rest.substr(0, end);
}

using Unit = SyncedFrame::Unit;

std::optional<std::uint64_t> toMilliseconds(
    std::uint64_t time, Unit unit, const std::optional<FrameLength> &frameLength)
{
    if (unit == Unit::MpegFrames)
        time = millisecondsOf(time, *frameLength);
    return time <= kMaxLrcTime ? std::optional(time) : std::nullopt;
}

/// The time as the file has it; null when no number of frames lasts exactly as long.
std::optional<std::uint64_t> fromMilliseconds(
    std::uint64_t time, Unit unit, const std::optional<FrameLength> &frameLength)
{
    if (unit == Unit::Milliseconds)
        return time;
    if (!frameLength)
        return std::nullopt;
    const std::uint64_t samples = frameLength->samples * 1000ULL;
    const std::uint64_t frames = (time * frameLength->rate + samples / 2) / samples;
    return millisecondsOf(frames, *frameLength) == time ? std::optional(frames) : std::nullopt;
}

Failure inexact()
{
    return {Reason::Unsupported,
        "The file's synchronised lyric counts its times in frames of sound, and some of the new times lie "
        "between two of them. Save the lyric in another field."};
}

bool isAllAscii(const SyncedFrame &frame)
{
    return isAscii(frame.description)
        && std::all_of(frame.entries.begin(), frame.entries.end(),
            [](const SyncedEntry &entry) { return isAscii(entry.text); });
}

} // namespace

bool isSynced(const Id3v2Frame &frame)
{
    return frame.id == "SYLT" || frame.id == "SLT";
}

std::uint64_t millisecondsOf(std::uint64_t frames, const FrameLength &length)
{
    return (frames * length.samples * 1000 + length.rate / 2) / length.rate;
}

std::optional<SyncedFrame> SyncedFrame::parse(
    std::string_view body, const std::optional<FrameLength> &frameLength)
{
    if (body.size() < kHeadBytes || body.size() > kMaxSyncedBody)
        return std::nullopt;
    const Id3v2Encoding encoding = id3v2Encoding(body[0]);
    SyncedFrame frame;
    frame.language = body.substr(1, 3);
    frame.unit = Unit(body[4]);
    frame.contentType = body[5];
    const bool known = frame.unit == Unit::Milliseconds || (frame.unit == Unit::MpegFrames && frameLength);
    if (!known || frame.contentType < 1 || frame.contentType > 2)
        return std::nullopt;
    std::size_t at = kHeadBytes;
    const std::optional<std::string_view> description = takeString(body, at, encoding);
    if (!description)
        return std::nullopt;
    const bool littleEndian = description->starts_with("\xFF\xFE");
    frame.description = decodeId3v2(*description, encoding);
    while (at < body.size()) {
        const std::optional<std::string_view> text = takeString(body, at, encoding);
        if (!text || body.size() - at < kTimeBytes || frame.entries.size() == kMaxSyncedEntries)
            return std::nullopt;
        const auto time = toMilliseconds(bigEndian(body, at, kTimeBytes), frame.unit, frameLength);
        if (!time)
            return std::nullopt;
        frame.entries.push_back({*time, decodeId3v2(*text, encoding, littleEndian)});
        at += kTimeBytes;
    }
    return frame;
}

Outcome<std::string> SyncedFrame::render(
    unsigned version, const std::optional<FrameLength> &frameLength) const
{
    const Id3v2Encoding encoding = encodingFor(version, isAllAscii(*this));
    const std::string end(unitBytes(encoding), '\0');
    std::string out(1, static_cast<char>(encoding));
    out += language.substr(0, 3) + std::string(3 - std::min<std::size_t>(3, language.size()), ' ');
    out += static_cast<char>(unit);
    out += contentType;
    out += encodeId3v2(description, encoding) + end;
    for (const SyncedEntry &entry : entries) {
        const std::optional<std::uint64_t> time = fromMilliseconds(entry.time, unit, frameLength);
        if (!time)
            return inexact();
        out += encodeId3v2(entry.text, encoding) + end + toBigEndian(*time, kTimeBytes);
    }
    if (out.size() > kMaxSyncedBody || entries.size() > kMaxSyncedEntries)
        return Failure{Reason::TooLarge, "The lyric is too long to be kept as a synchronised one."};
    return out;
}

std::size_t syncedEntryCount(std::string_view body, std::size_t limit)
{
    if (body.size() < kHeadBytes)
        return 0;
    const Id3v2Encoding encoding = id3v2Encoding(body[0]);
    std::size_t at = kHeadBytes;
    std::size_t count = 0;
    if (!takeString(body, at, encoding))
        return 0;
    while (count <= limit && at < body.size() && takeString(body, at, encoding)) {
        ++count;
        at = std::min(body.size(), at + kTimeBytes);
    }
    return count;
}

} // namespace tags
