// SPDX-License-Identifier: MIT
#include "media/tags/LibraryPart.h"

#include "media/tags/ApeTag.h"
#include "media/tags/AsfHeader.h"
#include "media/tags/ByteSource.h"
#include "media/tags/FlacBlocks.h"
#include "media/tags/RiffChunks.h"
#include "media/tags/TagsAtEnd.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tags {

namespace {

constexpr std::uint64_t kMaxPictureBytes = 24ULL << 20;

/// The library looks for an APE tag right before ID3v1 or the end, and takes each of them for what it
/// seems to be.
Edit hiddenAtTheEnd(const ByteSource &source)
{
    const TagsAtEnd ends = tagsAtEnd(source);
    if (!ends.hasApe)
        return {};
    const Outcome<ApeTag> tag = ApeTag::parse(source);
    if (!tag.ok()) // without its footer it is no tag
        return {{ends.lyrics3 - kApeFooterBytes, kApeFooterBytes, {}}};
    if (ends.lyrics3 < ends.id3v1)
        return {{ends.lyrics3, ends.id3v1 - ends.lyrics3, {}}};
    return {};
}

/// Of the pictures of a FLAC file all but the first ones: the library holds each of them, twice.
Edit hiddenPictures(const ByteSource &source)
{
    const Outcome<FlacBlocks> parsed = FlacBlocks::parse(source);
    if (!parsed.ok())
        return {};
    const std::vector<FlacBlock> &blocks = parsed.value().blocks;
    Edit hidden;
    const FlacBlock *lastShown = &blocks.front();
    std::uint64_t shown = 0;
    for (const FlacBlock &block : blocks) {
        const bool isShown = block.type != FlacBlock::kPicture || shown + block.size <= kMaxPictureBytes;
        if (isShown) {
            lastShown = &block;
            shown += block.type == FlacBlock::kPicture ? block.size : 0;
        } else {
            hidden.push_back({block.offset, block.end() - block.offset, {}});
        }
    }
    if (lastShown != &blocks.back()) {
        hidden.push_back(
            {lastShown->offset, 1, std::string(1, static_cast<char>(lastShown->type | FlacBlock::kLast))});
        std::sort(
            hidden.begin(), hidden.end(), [](const Patch &a, const Patch &b) { return a.offset < b.offset; });
    }
    return hidden;
}

/// Behind a WAV or AIFF file proper something may stand that only looks like a part of it.
Edit hiddenBehindChunks(const ByteSource &source, RiffOrder order)
{
    const Outcome<RiffChunks> riff = RiffChunks::parse(source, order);
    const std::uint64_t end = riff.ok() ? riff.value().end() : source.size();
    return {{end, source.size() - end, {}}};
}

} // namespace

Edit hiddenFromLibrary(const ByteSource &source, Format format)
{
    switch (format) {
    case Format::Mpeg:
    case Format::Ape:
    case Format::WavPack:
    case Format::Musepack:
        return hiddenAtTheEnd(source);
    case Format::Asf: {
        // Attributes that lie about their size would be read out of the sound.
        const std::uint64_t end = asfHeaderSize(source);
        return {{end, source.size() - end, {}}};
    }
    case Format::Flac:
        return hiddenPictures(source);
    case Format::Wav:
        return hiddenBehindChunks(source, RiffOrder::Little);
    case Format::Aiff:
        return hiddenBehindChunks(source, RiffOrder::Big);
    default:
        return {};
    }
}

} // namespace tags
