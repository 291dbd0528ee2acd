// SPDX-License-Identifier: MIT
#include "media/tags/Id3v2Fields.h"

#include "media/tags/Comparable.h"

#include <algorithm>
#include <utility>

namespace tags {

Id3v2Fields::Id3v2Fields(Id3v2Tag tag, const std::optional<FrameLength> &frameLength)
    : m_tag(std::move(tag)), m_frameLength(frameLength), m_lyrics(lyricsOf(m_tag, frameLength))
{ }

std::vector<std::string> Id3v2Fields::otherFields() const
{
    std::vector<bool> isLyric(m_tag.frames.size());
    for (const FoundLyric &lyric : m_lyrics)
        isLyric[lyric.at] = true;
    std::vector<std::string> others;
    // A tag that ends with its last frame is no tag: its version is nothing that could be kept.
    if (std::find(isLyric.begin(), isLyric.end(), false) != isLyric.end())
        others.push_back("version " + std::to_string(m_tag.version));
    for (std::size_t i = 0; i < m_tag.frames.size(); ++i) {
        if (!isLyric[i])
            others.push_back(comparable(m_tag.frames[i].raw.view()));
    }
    if (!m_tag.tail.empty())
        others.push_back("tail " + m_tag.tail);
    return others;
}

Outcome<std::string> Id3v2Fields::withLyrics(const std::vector<FieldEdit> &edits) const
{
    Id3v2Tag edited = m_tag;
    if (std::optional<Failure> failure = setLyrics(edited, m_lyrics, edits, m_frameLength))
        return *failure;
    return edited.render();
}

} // namespace tags
