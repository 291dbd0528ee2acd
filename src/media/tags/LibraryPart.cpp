// SPDX-License-Identifier: MIT
#include "media/tags/LibraryPart.h"

#include "media/tags/ApeTag.h"
#include "media/tags/AsfHeader.h"
#include "media/tags/ByteSource.h"
#include "media/tags/TagsAtEnd.h"

#include <string>

namespace tags {

namespace {

/// The library looks for an APE tag right before ID3v1 or the end, and takes each of them for what it
/// seems to be.
std::optional<Range> hiddenAtTheEnd(const ByteSource &source)
{
    const TagsAtEnd ends = tagsAtEnd(source);
    if (!ends.hasApe)
        return std::nullopt;
    const Outcome<ApeTag> tag = ApeTag::parse(source);
    if (!tag.ok()) // without its footer it is no tag
        return Range{ends.lyrics3 - kApeFooterBytes, kApeFooterBytes};
    if (ends.lyrics3 < ends.id3v1)
        return Range{ends.lyrics3, ends.id3v1 - ends.lyrics3};
    return std::nullopt;
}

} // namespace

std::optional<Range> hiddenFromLibrary(const ByteSource &source, Format format)
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
        return Range{end, source.size() - end};
    }
    default:
        return std::nullopt;
    }
}

} // namespace tags
