// SPDX-License-Identifier: MIT
#include "media/tags/ByteSource.h"
#include "media/tags/Container.h"
#include "media/tags/Id3v2Tag.h"
#include "media/tags/VorbisComment.h"

#include <utility>

namespace tags {

namespace {

constexpr unsigned kVorbisComment = 4;
constexpr std::size_t kBlockHeaderBytes = 4;
constexpr std::size_t kLargestBlock = (1U << 24) - 1;
constexpr std::size_t kMaxBlocks = 100000;

struct Block
{
    std::uint64_t offset = 0; ///< of its header
    unsigned type = 0;
    std::uint64_t size = 0; ///< of its body

    [[nodiscard]] std::uint64_t end() const { return offset + kBlockHeaderBytes + size; }
};

struct Layout
{
    std::uint64_t start = 0; ///< of "fLaC", behind an ID3v2 tag that has no business there
    std::vector<Block> blocks;

    [[nodiscard]] std::uint64_t audioStart() const { return blocks.back().end(); }
};

/// A native FLAC file. Source: RFC 9639, section 8.
class FlacContainer final : public Container
{
public:
    FlacContainer(
        const ByteSource &source, Layout layout, std::optional<std::size_t> block, VorbisComment comment)
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
    Layout m_layout;
    std::optional<std::size_t> m_block; ///< the comment's, if there is one
    VorbisComment m_comment;
    std::vector<FoundLyric> m_lyrics;
};

std::vector<std::string> FlacContainer::otherFields() const
{
    std::vector<std::string> others = {m_source.read(0, std::size_t(m_layout.start))};
    for (std::size_t i = 0; i < m_layout.blocks.size(); ++i) {
        const Block &block = m_layout.blocks[i];
        if (m_block != i)
            others.push_back(std::to_string(block.type) + ' '
                + m_source.read(block.offset + kBlockHeaderBytes, std::size_t(block.size)));
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
    const Block &block = m_layout.blocks[m_block.value_or(0)];
    const bool last = &block == &m_layout.blocks.back();
    const std::string header
        = static_cast<char>(kVorbisComment | (last ? 0x80U : 0U)) + toBigEndian(body.size(), 3);
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

Outcome<Layout> parseLayout(const ByteSource &source)
{
    Layout layout;
    layout.start = leadingId3v2Size(source);
    std::uint64_t at = layout.start + 4;
    for (bool last = false; !last;) {
        const std::string header = source.read(at, kBlockHeaderBytes);
        if (header.size() < kBlockHeaderBytes || layout.blocks.size() == kMaxBlocks)
            return damaged();
        const auto first = unsigned(bigEndian(header, 0, 1));
        const Block block = {at, first & 0x7FU, bigEndian(header, 1, 3)};
        if (block.end() > source.size())
            return damaged();
        layout.blocks.push_back(block);
        at = block.end();
        last = first & 0x80U;
    }
    return layout;
}

} // namespace

ContainerOutcome parseFlac(const ByteSource &source)
{
    Outcome<Layout> layout = parseLayout(source);
    if (!layout.ok())
        return layout.failure();
    VorbisComment comment;
    comment.vendor = "TQLrcEditor";
    std::optional<std::size_t> place;
    const std::vector<Block> &blocks = layout.value().blocks;
    for (std::size_t i = 0; i < blocks.size() && !place; ++i) {
        if (blocks[i].type != kVorbisComment)
            continue;
        const std::string body
            = source.read(blocks[i].offset + kBlockHeaderBytes, std::size_t(blocks[i].size));
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
