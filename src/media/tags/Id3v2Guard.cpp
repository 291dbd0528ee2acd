// SPDX-License-Identifier: MIT
#include "media/tags/Id3v2Guard.h"

#include "media/tags/Id3v2Synced.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <zlib.h>

namespace tags {

namespace {

constexpr std::uint64_t kMaxInflated = 16ULL << 20;
constexpr std::size_t kMaxNested = 64;
constexpr std::size_t kSmallestEntry = 5; ///< a terminator and a time

/// Bytes that `deflated` inflates to, counted up to a little above `limit`.
std::uint64_t inflatedSize(std::string_view deflated, std::uint64_t limit)
{
    z_stream stream = {};
    if (inflateInit(&stream) != Z_OK)
        return 0;
    // zlib does not write to its input; its interface is older than const.
    stream.next_in = const_cast<Bytef *>(reinterpret_cast<const Bytef *>(deflated.data()));
    stream.avail_in = static_cast<uInt>(deflated.size());
    std::array<Bytef, 16384> out;
    int answer = Z_OK;
    while (answer == Z_OK && stream.total_out <= limit) {
        stream.next_out = out.data();
        stream.avail_out = out.size();
        answer = inflate(&stream, Z_NO_FLUSH);
    }
    const std::uint64_t size = stream.total_out;
    inflateEnd(&stream);
    return size;
}

/// Bytes before the deflated data differ between writers, so each place is tried where they
/// could begin: the library does the same.
std::uint64_t inflatedSize(const Id3v2Frame &frame, std::uint64_t limit)
{
    const std::string_view body = frame.body();
    std::uint64_t largest = 0;
    for (std::size_t skipped = 0; skipped <= std::min<std::size_t>(body.size(), 6); ++skipped)
        largest = std::max(largest, inflatedSize(body.substr(skipped), limit));
    return largest;
}

/// Whether the synchronised lyrics have more entries than any song: each takes the library 200 bytes.
bool hasTooManyEntries(const Id3v2Tag &tag)
{
    std::uint64_t bytes = 0;
    std::uint64_t entries = 0;
    for (const Id3v2Frame &frame : tag.frames) {
        if (!isSynced(frame))
            continue;
        const bool compressed = isCompressed(tag, frame);
        const std::uint64_t size = compressed ? inflatedSize(frame, kMaxSyncedBody) : frame.raw.size();
        bytes += size;
        if (bytes > kMaxSyncedBody)
            return true;
        entries += compressed ? size / kSmallestEntry
                              : syncedEntryCount(plainBody(tag, frame).value_or(""), kMaxSyncedEntries);
    }
    return entries > kMaxSyncedEntries;
}

std::size_t occurrences(std::string_view body, std::string_view name)
{
    std::size_t count = 0;
    for (std::size_t at = body.find(name); at != std::string_view::npos;
         at = body.find(name, at + name.size()))
        ++count;
    return count;
}

Failure hostile(const char *what)
{
    return {Reason::Hostile, {"The file's ID3 tag %1, which cannot be read safely.", {what}}};
}

} // namespace

std::optional<Failure> hostileTag(const Id3v2Tag &tag)
{
    if (hasTooManyEntries(tag))
        return hostile("holds hundreds of thousands of times");
    std::uint64_t inflated = 0;
    for (const Id3v2Frame &frame : tag.frames) {
        if (isCompressed(tag, frame))
            inflated += inflatedSize(frame, kMaxInflated - inflated);
        if (inflated > kMaxInflated)
            return hostile("inflates to more than 16 MiB");
        const bool nests = frame.id == "CHAP" || frame.id == "CTOC";
        if (nests && occurrences(frame.body(), "CHAP") + occurrences(frame.body(), "CTOC") > kMaxNested)
            return hostile("is nested without end");
    }
    return std::nullopt;
}

} // namespace tags
