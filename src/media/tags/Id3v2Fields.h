// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Id3v2Lyrics.h"
#include "media/tags/Id3v2Tag.h"
#include "media/tags/MpegFrame.h"
#include "media/tags/Outcome.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tags {

/// An ID3v2 tag as a container sees it, wherever in the file it stands: its lyrics, everything else, and what
/// it becomes by an edit.
class Id3v2Fields
{
public:
    /// `frameLength`: of the sound that the tag belongs to, for lyrics that count in it.
    explicit Id3v2Fields(Id3v2Tag tag, const std::optional<FrameLength> &frameLength = std::nullopt);

    /// Of the tag in the file; 0 when there is none.
    [[nodiscard]] std::uint64_t bytes() const { return m_tag.bytes; }
    [[nodiscard]] std::vector<LyricField> lyricFields() const { return fieldsOf(m_lyrics); }
    /// As Container::otherFields() has them.
    [[nodiscard]] std::vector<std::string> otherFields() const;
    /// The bytes of the whole tag after the edit; none when no frame is left. See Container::withLyrics().
    [[nodiscard]] Outcome<std::string> withLyrics(const std::vector<FieldEdit> &edits) const;

private:
    Id3v2Tag m_tag;
    std::optional<FrameLength> m_frameLength;
    std::vector<FoundLyric> m_lyrics;
};

} // namespace tags
