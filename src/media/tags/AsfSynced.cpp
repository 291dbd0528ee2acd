// SPDX-License-Identifier: MIT
#include "media/tags/AsfSynced.h"

#include "media/tags/ByteSource.h"
#include "media/tags/LrcTime.h"
#include "media/tags/TextCodec.h"

namespace tags {

namespace {

constexpr std::size_t kHeadBytes = 6; // unit, content type, length of what follows the description
constexpr std::size_t kLengthAt = 2;
constexpr std::size_t kTimeBytes = 4;
constexpr std::size_t kUnitBytes = 2; // of UTF-16
constexpr char kMilliseconds = 2;

/// The terminated text at the start of `rest`, which begins behind its terminator then; null when none ends.
std::optional<std::string_view> takeText(std::string_view &rest)
{
    for (std::size_t end = 0; end + kUnitBytes <= rest.size(); end += kUnitBytes) {
        if (rest[end] == '\0' && rest[end + 1] == '\0') {
            const std::string_view text = rest.substr(0, end);
            rest.remove_prefix(end + kUnitBytes);
            return text;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<AsfSynced> AsfSynced::parse(std::string_view value)
{
    if (value.size() < kHeadBytes || value[0] != kMilliseconds || value[1] < 1 || value[1] > 2)
        return std::nullopt;
    AsfSynced out;
    out.contentType = value[1];
    std::string_view rest = value.substr(kHeadBytes);
    const std::optional<std::string_view> description = takeText(rest);
    if (!description || littleEndian(value, kLengthAt, 4) != rest.size())
        return std::nullopt;
    out.description = *description;
    while (!rest.empty()) {
        const std::optional<std::string_view> text = takeText(rest);
        const std::uint64_t time = littleEndian(rest, 0, kTimeBytes);
        if (!text || rest.size() < kTimeBytes || time > kMaxLrcTime
            || out.entries.size() == kMaxSyncedEntries)
            return std::nullopt;
        out.entries.push_back({time, utf8FromUtf16(*text, false)});
        rest.remove_prefix(kTimeBytes);
    }
    return out;
}

std::string AsfSynced::render() const
{
    const std::string end(kUnitBytes, '\0');
    std::string pieces;
    for (const SyncedEntry &entry : entries)
        pieces += markedUtf16FromUtf8(entry.text).substr(kUnitBytes) + end
            + toLittleEndian(entry.time, kTimeBytes);
    return std::string{kMilliseconds, contentType} + toLittleEndian(pieces.size(), 4) + description + end
        + pieces;
}

} // namespace tags
