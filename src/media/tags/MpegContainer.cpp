// SPDX-License-Identifier: MIT
#include "media/tags/ApeContainer.h"
#include "media/tags/ByteSource.h"
#include "media/tags/Container.h"
#include "media/tags/Id3v2Lyrics.h"
#include "media/tags/Id3v2Tag.h"
#include "media/tags/MpegFrame.h"

#include <algorithm>
#include <utility>

namespace tags {

namespace {

/// An MPEG audio file: an ID3v2 tag, then frames. Tags that stand elsewhere (a second ID3v2 tag, Lyrics3
/// and ID3v1 at the end) count as audio here, so that nothing of them changes; see withApeTag() for APE.
class MpegContainer final : public Container
{
public:
    MpegContainer(Id3v2Tag tag, std::uint64_t size, bool hasTagBehindJunk)
        : m_tag(std::move(tag)), m_lyrics(lyricsOf(m_tag)), m_size(size), m_hasTagBehindJunk(hasTagBehindJunk)
    { }

    [[nodiscard]] std::vector<LyricField> lyricFields() const override;
    [[nodiscard]] std::vector<std::string> otherFields() const override;
    [[nodiscard]] std::vector<Range> audio() const override { return {{m_tag.bytes, m_size - m_tag.bytes}}; }
    [[nodiscard]] std::vector<std::string> newFieldNames() const override { return newId3v2Names(); }
    [[nodiscard]] Outcome<Edit> withLyric(const LyricPlace &place, std::string_view text) const override;

private:
    Id3v2Tag m_tag;
    std::vector<Id3v2Lyric> m_lyrics;
    std::uint64_t m_size;
    bool m_hasTagBehindJunk;
};

std::vector<LyricField> MpegContainer::lyricFields() const
{
    std::vector<LyricField> fields;
    for (const Id3v2Lyric &lyric : m_lyrics)
        fields.push_back(lyric.field);
    return fields;
}

std::vector<std::string> MpegContainer::otherFields() const
{
    std::vector<bool> isLyric(m_tag.frames.size());
    for (const Id3v2Lyric &lyric : m_lyrics)
        isLyric[lyric.frame] = true;
    std::vector<std::string> others;
    // A tag that ends with its last frame is no tag: its version is nothing that could be kept.
    if (std::find(isLyric.begin(), isLyric.end(), false) != isLyric.end())
        others.push_back("version " + std::to_string(m_tag.version));
    for (std::size_t i = 0; i < m_tag.frames.size(); ++i) {
        if (!isLyric[i])
            others.push_back(m_tag.frames[i].raw);
    }
    if (!m_tag.tail.empty())
        others.push_back("tail " + m_tag.tail);
    return others;
}

Outcome<Edit> MpegContainer::withLyric(const LyricPlace &place, std::string_view text) const
{
    if (m_hasTagBehindJunk) {
        return Failure{Reason::Unsupported,
            "The file does not begin with its tag but with something else, so it cannot be edited without "
            "hiding that tag."};
    }
    Id3v2Tag edited = m_tag;
    if (std::optional<Failure> failure = setLyric(edited, m_lyrics, place, text))
        return *failure;
    Outcome<std::string> bytes = edited.render();
    if (!bytes.ok())
        return bytes.failure();
    return Edit{{0, m_tag.bytes, std::move(bytes.value())}};
}

/// A tag that does not stand at the start is found by some readers, until there is one at the start.
bool hasTagBehindJunk(const ByteSource &source)
{
    const std::uint64_t junk = firstMpegFrame(source, 0, false).value_or(0);
    return source.read(0, std::size_t(junk)).find("ID3") != std::string::npos;
}

} // namespace

ContainerOutcome parseMpeg(const ByteSource &source)
{
    Outcome<Id3v2Tag> tag = Id3v2Tag::parse(source);
    if (!tag.ok())
        return tag.failure();
    const bool behindJunk = tag.value().bytes == 0 && hasTagBehindJunk(source);
    return ContainerOutcome(withApeTag(
        std::make_shared<MpegContainer>(std::move(tag.value()), source.size(), behindJunk), source));
}

} // namespace tags
