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
constexpr unsigned kFrontCover = 3;

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

/// Which blocks of a FLAC file the library is to see: of the pictures, each of which it holds twice, the
/// front covers first, as many as there is room for.
std::vector<bool> shownBlocks(const ByteSource &source, const std::vector<FlacBlock> &blocks)
{
    std::vector<bool> shown(blocks.size());
    std::uint64_t bytes = 0;
    for (const bool wantsFront : {true, false}) {
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            const FlacBlock &block = blocks[i];
            if (block.type != FlacBlock::kPicture) {
                shown[i] = true;
                continue;
            }
            const bool isFront = bigEndian(source.read(block.bodyAt(), 4), 0, 4) == kFrontCover;
            if (isFront == wantsFront && bytes + block.size <= kMaxPictureBytes) {
                shown[i] = true;
                bytes += block.size;
            }
        }
    }
    return shown;
}

Edit hiddenPictures(const ByteSource &source)
{
    const Outcome<FlacBlocks> parsed = FlacBlocks::parse(source);
    if (!parsed.ok())
        return {};
    const std::vector<FlacBlock> &blocks = parsed.value().blocks;
    const std::vector<bool> shown = shownBlocks(source, blocks);
    Edit hidden;
    bool isLast = true;
    for (std::size_t i = blocks.size(); i-- > 0;) {
        const FlacBlock &block = blocks[i];
        if (!shown[i])
            hidden.push_back({block.offset, block.end() - block.offset, {}});
        else if (isLast && !hidden.empty())
            hidden.push_back(
                {block.offset, 1, std::string(1, static_cast<char>(block.type | FlacBlock::kLast))});
        isLast = isLast && !shown[i];
    }
    std::reverse(hidden.begin(), hidden.end());
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
