// SPDX-License-Identifier: MIT
#include "media/tags/RiffChunks.h"

#include "media/tags/ByteSource.h"

#include <algorithm>

namespace tags {

namespace {

constexpr std::uint64_t kFormHeaderBytes = 12;
/// No file has as many, and a library that looks them up one by one takes minutes for some hundred thousand.
constexpr std::size_t kMaxChunks = 10000;

bool isChunkId(std::string_view id)
{
    return id.size() == 4 && std::all_of(id.begin(), id.end(), [](char c) { return c >= ' ' && c < '\x7F'; });
}

std::uint64_t numberAt(std::string_view bytes, std::size_t at, RiffOrder order)
{
    return order == RiffOrder::Little ? littleEndian(bytes, at, 4) : bigEndian(bytes, at, 4);
}

/// Chunks begin at even places, for which a byte may be put in that does not count; some writers leave it
/// out.
bool isPadded(const ByteSource &source, const RiffChunk &chunk)
{
    if (chunk.bodyEnd() % 2 == 0)
        return false;
    const std::string next = source.read(chunk.bodyEnd(), 5);
    return !next.empty() && (next.front() == '\0' || isChunkId(std::string_view(next).substr(1)));
}

/// The chunk at `at`; null when none stands there, or when it is longer than the file.
std::optional<RiffChunk> chunkAt(const ByteSource &source, std::uint64_t at, RiffOrder order)
{
    const std::string header = source.read(at, RiffChunk::kHeaderBytes);
    if (header.size() < RiffChunk::kHeaderBytes)
        return std::nullopt;
    RiffChunk chunk;
    chunk.id = header.substr(0, 4);
    chunk.offset = at;
    chunk.size = numberAt(header, 4, order);
    if (!isChunkId(chunk.id) || chunk.bodyEnd() > source.size())
        return std::nullopt;
    chunk.padded = isPadded(source, chunk);
    return chunk;
}

} // namespace

std::optional<RiffOrder> riffOrder(Format format)
{
    if (format == Format::Wav)
        return RiffOrder::Little;
    return format == Format::Aiff ? std::optional(RiffOrder::Big) : std::nullopt;
}

Outcome<RiffChunks> RiffChunks::parse(const ByteSource &source, RiffOrder order)
{
    RiffChunks out;
    out.order = order;
    out.fileSize = source.size();
    out.claimedEnd = RiffChunk::kHeaderBytes + numberAt(source.read(0, RiffChunk::kHeaderBytes), 4, order);
    while (const std::optional<RiffChunk> chunk = chunkAt(source, out.end(), order)) {
        if (out.chunks.size() == kMaxChunks)
            return Failure{
                Reason::Hostile, "The file has more than 10,000 parts, which cannot be read safely."};
        out.chunks.push_back(*chunk);
    }
    return out;
}

std::uint64_t RiffChunks::end() const
{
    return chunks.empty() ? kFormHeaderBytes : chunks.back().end();
}

std::optional<std::size_t> RiffChunks::tagChunk() const
{
    const auto found = std::find_if(
        chunks.begin(), chunks.end(), [](const RiffChunk &chunk) { return chunk.holdsId3v2(); });
    return found == chunks.end() ? std::nullopt : std::optional(std::size_t(found - chunks.begin()));
}

std::string RiffChunks::number(std::uint64_t value) const
{
    return order == RiffOrder::Little ? toLittleEndian(value, 4) : toBigEndian(value, 4);
}

std::string RiffChunks::rendered(const std::string &id, const std::string &body) const
{
    return id + number(body.size()) + body + std::string(body.size() % 2, '\0');
}

std::optional<Failure> RiffChunks::inconsistency() const
{
    // A last byte of padding may be missing, and need not be counted.
    const bool exact = claimedEnd == end() || claimedEnd == end() + 1
        || (!chunks.empty() && claimedEnd == chunks.back().bodyEnd());
    // Some writers count the file's own header in.
    const bool isWhole = end() == fileSize && claimedEnd <= end() + RiffChunk::kHeaderBytes;
    // Sound of no length with something behind it is a recording whose sizes were never filled in.
    const bool isOpenEnded = end() < fileSize && !chunks.empty() && chunks.back().size == 0;
    if ((exact || isWhole) && !isOpenEnded)
        return std::nullopt;
    return Failure{Reason::Damaged,
        "The sizes that the file tells of its parts do not fit the file: it is damaged, or the program that "
        "wrote "
        "it never finished it, so it cannot be saved safely. Convert it with an audio program."};
}

} // namespace tags
