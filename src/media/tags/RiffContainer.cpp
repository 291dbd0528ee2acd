// SPDX-License-Identifier: MIT
#include "media/tags/ByteSlice.h"
#include "media/tags/Container.h"
#include "media/tags/Id3v2Fields.h"
#include "media/tags/RiffChunks.h"

#include <utility>

namespace tags {

namespace {

constexpr std::uint64_t kSizeAt = 4;
constexpr std::uint64_t kLargestSize = 0xFFFFFFFF;
constexpr std::uint64_t kMaxBehindTag = 1U << 20;

/// A WAV or AIFF file: chunks, one of which may hold an ID3v2 tag. Every other chunk counts as audio, so that
/// nothing of them changes.
class RiffContainer final : public Container
{
public:
    RiffContainer(RiffChunks riff, Id3v2Fields fields, std::string behindTag)
        : m_riff(std::move(riff)), m_fields(std::move(fields)), m_behindTag(std::move(behindTag))
    { }

    [[nodiscard]] std::vector<LyricField> lyricFields() const override { return m_fields.lyricFields(); }
    [[nodiscard]] std::vector<std::string> otherFields() const override;
    [[nodiscard]] std::vector<Range> audio() const override;
    [[nodiscard]] std::vector<std::string> newFieldNames() const override { return newId3v2Names(); }
    [[nodiscard]] Outcome<Edit> withLyrics(const std::vector<FieldEdit> &edits) const override;

private:
    [[nodiscard]] Patch tagPatch(const std::string &body) const;

    RiffChunks m_riff;
    Id3v2Fields m_fields;
    std::string m_behindTag; ///< what the tag's chunk holds behind the tag
};

std::vector<std::string> RiffContainer::otherFields() const
{
    std::vector<std::string> others = m_fields.otherFields();
    if (!m_behindTag.empty())
        others.push_back("behind " + m_behindTag);
    return others;
}

std::vector<Range> RiffContainer::audio() const
{
    std::vector<Range> ranges = {{0, kSizeAt}, {kSizeAt + 4, 4}};
    const std::optional<std::size_t> tag = m_riff.tagChunk();
    for (std::size_t i = 0; i < m_riff.chunks.size(); ++i) {
        const RiffChunk &chunk = m_riff.chunks[i];
        if (i != tag)
            ranges.push_back({chunk.offset, chunk.bodyEnd() - chunk.offset});
    }
    ranges.push_back({m_riff.end(), m_riff.fileSize - m_riff.end()});
    return ranges;
}

/// The patch that gives the tag's chunk this body, or takes it out when there is none.
Patch RiffContainer::tagPatch(const std::string &body) const
{
    const bool big = m_riff.order == RiffOrder::Big;
    if (const std::optional<std::size_t> tag = m_riff.tagChunk()) {
        const RiffChunk &chunk = m_riff.chunks[*tag];
        return {chunk.offset, chunk.end() - chunk.offset,
            body.empty() ? std::string() : m_riff.rendered(chunk.id, body)};
    }
    if (body.empty())
        return {m_riff.end(), 0, {}};
    const std::string missingPadding(m_riff.end() % 2, '\0');
    return {m_riff.end(), 0, missingPadding + m_riff.rendered(big ? "ID3 " : "id3 ", body)};
}

Outcome<Edit> RiffContainer::withLyrics(const std::vector<FieldEdit> &edits) const
{
    if (std::optional<Failure> failure = m_riff.inconsistency())
        return *failure;
    Outcome<std::string> tag = m_fields.withLyrics(edits);
    if (!tag.ok())
        return tag.failure();
    Patch patch = tagPatch(tag.value() + m_behindTag);
    const std::uint64_t end = m_riff.end() - patch.removed + patch.inserted.size();
    if (end - RiffChunk::kHeaderBytes > kLargestSize)
        return Failure{Reason::TooLarge, "The file would grow beyond 4 GiB, which this kind of file cannot."};
    return Edit{{kSizeAt, 4, m_riff.number(end - RiffChunk::kHeaderBytes)}, std::move(patch)};
}

ContainerOutcome parseRiff(const ByteSource &source, RiffOrder order)
{
    Outcome<RiffChunks> riff = RiffChunks::parse(source, order);
    if (!riff.ok())
        return riff.failure();
    Id3v2Tag tag;
    std::string behindTag;
    if (const std::optional<std::size_t> index = riff.value().tagChunk()) {
        const RiffChunk &chunk = riff.value().chunks[*index];
        const ByteSlice body(source, chunk.bodyAt(), chunk.size);
        Outcome<Id3v2Tag> parsed = Id3v2Tag::parse(body);
        if (!parsed.ok())
            return parsed.failure();
        tag = std::move(parsed.value());
        if (chunk.size - tag.bytes > kMaxBehindTag)
            return Failure{Reason::Hostile,
                "The part of the file that is for its tag holds something else, which cannot be read "
                "safely."};
        behindTag = body.read(tag.bytes, std::size_t(chunk.size - tag.bytes));
    }
    return ContainerOutcome(std::make_shared<RiffContainer>(
        std::move(riff.value()), Id3v2Fields(std::move(tag)), std::move(behindTag)));
}

} // namespace

ContainerOutcome parseWav(const ByteSource &source)
{
    return parseRiff(source, RiffOrder::Little);
}

ContainerOutcome parseAiff(const ByteSource &source)
{
    return parseRiff(source, RiffOrder::Big);
}

} // namespace tags
