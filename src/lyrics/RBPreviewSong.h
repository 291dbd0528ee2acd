// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/PreviewText.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

    /// See PreviewText.
    static constexpr std::size_t kLongestLine = lyrics::PreviewText::kLongestLine;

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
    [[nodiscard]] std::u16string previewSongTextWithHasTag(bool hasTag)
    {
        return textWithHasTag(hasTag)->whole();
    }
    /// The same text for who shows some of its lines: nothing but their lengths is made. Never null.
    [[nodiscard]] std::shared_ptr<const lyrics::PreviewText> textWithHasTag(bool hasTag)
    {
        return layOut(hasTag);
    }
    /// The first lines of the preview of a long `text`: as many as fill any screen, without reading on, and
    /// as they are in the whole. Null for a text that is read as fast, and for one whose first line does not
    /// end within 64 KB.
    [[nodiscard]] static std::shared_ptr<const lyrics::PreviewText> beginningOf(
        std::string_view text, bool hasTag);

private:
    struct Content;

    [[nodiscard]] std::shared_ptr<const lyrics::PreviewText> layOut(bool hasTag) const;

    /// Null for the empty preview.
    std::shared_ptr<const Content> m_content;
    /// Their ranges follow when somebody wants to know them: who asks for a text gets them with it.
    mutable std::vector<RBPreviewLine> m_lines;
    mutable bool m_areRangesLaidOut = false;
    /// For each line, the earliest start from there to the end: by that a search finds its way.
    std::vector<double> m_earliestFrom;
};
