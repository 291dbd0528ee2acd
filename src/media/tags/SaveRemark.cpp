// SPDX-License-Identifier: MIT
#include "media/tags/SaveRemark.h"

#include "media/tags/ByteSource.h"
#include "media/tags/FieldSet.h"
#include "media/tags/FlacBlocks.h"
#include "media/tags/Id3v2Tag.h"
#include "media/tags/LyricEdits.h"
#include "media/tags/TagsAtEnd.h"

#include <algorithm>
#include <utility>

namespace tags {

namespace {

bool hasComment(const ByteSource &source)
{
    const Outcome<FlacBlocks> parsed = FlacBlocks::parse(source);
    return parsed.ok()
        && std::any_of(parsed.value().blocks.begin(), parsed.value().blocks.end(),
            [](const FlacBlock &block) { return block.type == FlacBlock::kVorbisComment; });
}

/// Whether the file has a tag of the kind that its format prefers.
bool hasOwnTag(const ByteSource &source, Format format)
{
    switch (format) {
    case Format::Mpeg:
        return leadingId3v2Size(source) > 0;
    case Format::Flac:
        return hasComment(source);
    case Format::Ape:
    case Format::WavPack:
    case Format::Musepack:
        return tagsAtEnd(source).hasApe;
    default:
        return true; // there is no tag of another kind
    }
}

/// Whether titles may stand in an ID3 tag that is none of the format's own.
bool hasOtherTag(const ByteSource &source, Format format)
{
    const bool hasId3v1 = tagsAtEnd(source).id3v1 < source.size();
    return hasId3v1 || (format != Format::Mpeg && leadingId3v2Size(source) > 0);
}

/// The field that was not stale and is now; null when there is none.
std::optional<LyricField> staleField(
    const std::vector<LyricField> &fields, const std::vector<FieldEdit> &edits)
{
    std::vector<LyricField> fieldsNow = fieldsAfter(fields, edits);
    if (fieldsNow.size() < 2)
        return std::nullopt;
    const FieldSet before(fields, {});
    const FieldSet after(std::move(fieldsNow), {});
    for (const FieldSet::Entry &entry : after.entries()) {
        const bool wasStale = std::any_of(before.entries().begin(), before.entries().end(),
            [&entry](const FieldSet::Entry &old) { return old.isStale && old.field == entry.field; });
        if (entry.isStale && !wasStale)
            return entry.field;
    }
    return std::nullopt;
}

} // namespace

Message remarkOn(const ByteSource &old, const ByteSource &edited, Format format,
    const std::vector<LyricField> &fields, const std::vector<FieldEdit> &edits)
{
    if (!hasOwnTag(old, format) && hasOwnTag(edited, format) && hasOtherTag(old, format)) {
        return "The lyric stands in a new tag; title and artist stand in an older ID3 tag alone, which some "
               "players do not show now. A tag editor can copy them.";
    }
    if (const std::optional<LyricField> stale = staleField(fields, edits))
        return {"Another lyric field of the file, %1, says something else now.", {labelOf(*stale)}};
    return {};
}

} // namespace tags
