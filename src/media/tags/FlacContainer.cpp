// SPDX-License-Identifier: MIT
#include "media/tags/ByteSource.h"
#include "media/tags/Comparable.h"
#include "media/tags/Container.h"
#include "media/tags/FlacBlocks.h"
#include "media/tags/VorbisComment.h"

#include <utility>

namespace tags {

namespace {

constexpr std::size_t kLargestBlock = (1U << 24) - 1;

/// A native FLAC file. Source: RFC 9639, section 8.
class FlacContainer final : public Container
{
public:
    FlacContainer(
        const ByteSource &source, FlacBlocks layout, std::optional<std::size_t> block, VorbisComment comment)
        : m_source(source), m_layout(std::move(layout)), m_block(block), m_comment(std::move(comment)),
          m_lyrics(lyricsOf(m_comment))
    { }

    [[nodiscard]] std::vector<LyricField> lyricFields() const override { return fieldsOf(m_lyrics); }
    [[nodiscard]] std::vector<std::string> otherFields() const override;
    [[nodiscard]] std::vector<Range> audio() const override;
    [[nodiscard]] std::vector<std::string> newFieldNames() const override { return newVorbisNames(); }
    [[nodiscard]] Outcome<Edit> withLyrics(const std::vector<FieldEdit> &edits) const override;

private:
    const ByteSource &m_source;
    FlacBlocks m_layout;
    std::optional<std::size_t> m_block; ///< the comment's, if there is one
    VorbisComment m_comment;
    std::vector<FoundLyric> m_lyrics;
};

std::vector<std::string> FlacContainer::otherFields() const
{
    std::vector<std::string> others = {comparable(m_source, 0, m_layout.start)};
    for (std::size_t i = 0; i < m_layout.blocks.size(); ++i) {
        const FlacBlock &block = m_layout.blocks[i];
        if (m_block != i)
            others.push_back(
                std::to_string(block.type) + ' ' + comparable(m_source, block.bodyAt(), block.size));
    }
    // A comment of our own making has no entry but the lyric, and no vendor worth comparing.
    const std::vector<std::string> entries = otherEntries(m_comment);
    if (entries.size() > 2 || m_comment.vendor != "TQLrcEditor")
        others.insert(others.end(), entries.begin(), entries.end());
    return others;
}

std::vector<Range> FlacContainer::audio() const
{
    const std::uint64_t start = m_layout.audioStart();
    return {{start, m_source.size() - start}};
}

Outcome<Edit> FlacContainer::withLyrics(const std::vector<FieldEdit> &edits) const
{
    VorbisComment edited = m_comment;
    setLyrics(edited, m_lyrics, edits);
    const std::string body = edited.render();
    if (body.size() > kLargestBlock)
        return Failure{
            Reason::TooLarge, "The lyric is too long for a FLAC file, whose comments hold 16 MiB."};
    const FlacBlock &block = m_layout.blocks[m_block.value_or(0)];
    const bool last = &block == &m_layout.blocks.back();
    const std::string header = static_cast<char>(FlacBlock::kVorbisComment | (last ? FlacBlock::kLast : 0U))
        + toBigEndian(body.size(), 3);
    if (m_block)
        return Edit{{block.offset, block.end() - block.offset, header + body}};
    Edit edit;
    if (last) // it is not the last block any more
        edit.push_back({block.offset, 1, std::string(1, static_cast<char>(block.type))});
    edit.push_back({block.end(), 0, header + body});
    return edit;
}

Failure damaged()
{
    return {Reason::Damaged,
        "The blocks at the start of the FLAC file do not fit together: the file is damaged or incomplete."};
}

} // namespace

ContainerOutcome parseFlac(const ByteSource &source)
{
    Outcome<FlacBlocks> layout = FlacBlocks::parse(source);
    if (!layout.ok())
        return layout.failure();
    VorbisComment comment;
    comment.vendor = "TQLrcEditor";
    std::optional<std::size_t> place;
    const std::vector<FlacBlock> &blocks = layout.value().blocks;
    for (std::size_t i = 0; i < blocks.size() && !place; ++i) {
        if (blocks[i].type != FlacBlock::kVorbisComment)
            continue;
        const std::string body = source.read(blocks[i].bodyAt(), std::size_t(blocks[i].size));
        std::optional<VorbisComment> found = VorbisComment::parse(body);
        if (!found)
            return damaged();
        comment = std::move(*found);
        place = i;
    }
    return ContainerOutcome(
        std::make_shared<FlacContainer>(source, std::move(layout.value()), place, std::move(comment)));
}

} // namespace tags
