// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBEditSong.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A range of characters in UTF-16 units, from 0.
struct RBTextRange
{
    std::size_t location = 0;
    std::size_t length = 0;

    friend bool operator==(const RBTextRange &, const RBTextRange &) = default;
};

/// One line of a preview that has a time.
struct RBPreviewLine
{
    /// Where it starts, in seconds from the start of the track.
    double playTime = 0;
    /// Where it stands in the text that was asked for last.
    RBTextRange txtRg;
};

/// A finished lyric, laid out as one text that is followed while the song plays. Read only.
///
/// Lines stand in document order. A line with several times stands in its place with the earliest, and once
/// more for each further time, before the first later line that starts after it. Untimed text stays with the
/// line that it follows.
class RBPreviewSong
{
public:
    /// An empty preview.
    RBPreviewSong() = default;

    /// No line of the text is longer, in UTF-16 units: text views do not survive a line of a million.
    static constexpr std::size_t kLongestLine = 4096;

    /// Replaces the preview by that of `text` (LRC, UTF-8). Ranges address the text with tag lines until
    /// another one is asked for.
    void buildWithLrcText(std::string_view text);
    /// Whether the preview of `text` has lines: without building it, and reading no further than to the
    /// first.
    [[nodiscard]] static bool hasLines(std::string_view text);

    /// One line for each time of each timed line, in the order of the text. Empty without time tags.
    [[nodiscard]] const std::vector<RBPreviewLine> &aryLines() const;
    /// The last line whose start is not after `seconds`; nothing before all of them and for what is not a
    /// number. Cost: at most log2(n) + 1 comparisons, for any order of the lines.
    [[nodiscard]] std::optional<std::size_t> currentLineIndex(double seconds) const;

    /// The whole text, a line feed between its lines, and with or without the tag lines. From now on the
    /// ranges of `aryLines` address this text. What a text view cannot show is replaced before the ranges
    /// are counted (see lyrics::appendDisplayText).
    [[nodiscard]] std::u16string previewSongTextWithHasTag(bool hasTag) { return layOut(hasTag); }

private:
    static constexpr std::size_t kUntimed = static_cast<std::size_t>(-1);

    /// One line of the text.
    struct Row
    {
        std::size_t songLine;
        /// Which of `m_lines` it is, or `kUntimed`.
        std::size_t previewLine;
        bool isTag;
    };

    std::u16string layOut(bool hasTag) const;

    RBEditSong m_song;
    std::vector<Row> m_rows;
    /// Their ranges follow when somebody wants to know them: who asks for a text gets them with it.
    mutable std::vector<RBPreviewLine> m_lines;
    mutable bool m_areRangesLaidOut = false;
    /// For each line, the earliest start from there to the end: by that a search finds its way.
    std::vector<double> m_earliestFrom;
};
