// SPDX-License-Identifier: MIT
#include "media/tags/RiffGuard.h"

#include "media/tags/ByteSlice.h"
#include "media/tags/Id3v2Guard.h"

#include <algorithm>
#include <iterator>

namespace tags {

namespace {

/// The chunks that are read as a whole, and how much of one is still harmless.
constexpr std::string_view kReadWhole[] = {"LIST", "fmt ", "COMM"};
constexpr std::uint64_t kMaxReadWhole = 4ULL << 20;

bool isTooLong(const RiffChunk &chunk)
{
    return chunk.size > kMaxReadWhole
        && std::find(std::begin(kReadWhole), std::end(kReadWhole), chunk.id) != std::end(kReadWhole);
}

} // namespace

std::optional<Failure> hostileRiff(const ByteSource &source, RiffOrder order)
{
    const Outcome<RiffChunks> riff = RiffChunks::parse(source, order);
    if (!riff.ok())
        return riff.failure();
    for (const RiffChunk &chunk : riff.value().chunks) {
        if (isTooLong(chunk)) {
            return Failure{Reason::Hostile,
                "A part of the file that holds a few words takes megabytes, which cannot be read safely."};
        }
        if (!chunk.holdsId3v2())
            continue;
        const Outcome<Id3v2Tag> tag = Id3v2Tag::parse(ByteSlice(source, chunk.bodyAt(), chunk.size));
        if (auto failure = tag.ok() ? hostileTag(tag.value()) : tag.failure())
            return failure;
    }
    return std::nullopt;
}

} // namespace tags
