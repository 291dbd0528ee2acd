// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBSongLine.h"
#include "lyrics/TextBlock.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

/// The lines of one song, as they stand in the LRC text.
///
/// Keeps the text it was built from: what was not edited is written back byte for byte, with its line ends,
/// its byte-order mark and its invalid bytes. All text is UTF-8. Every physical line is a line of the
/// document; several ID tags on one physical line, or ID tags and a lyric line, are several lines.
/// docs/LRC.md says what is read as what.
///
/// A value: a copy is an independent document, and shares the bytes.
class RBEditSong
{
public:
    /// An empty document.
    RBEditSong() = default;
    RBEditSong(const RBEditSong &other);
    RBEditSong(RBEditSong &&other) noexcept = default;
    RBEditSong &operator=(const RBEditSong &other);
    RBEditSong &operator=(RBEditSong &&other) noexcept;
    ~RBEditSong();

    /// Replaces the whole document by the lines of `text`, which may be this document's own text.
    ///
    /// Every text is a document; the empty text has no lines. Cost: linear in the bytes.
    /// Throws std::length_error for a text of 4 GiB or more.
    void buildWithLrcText(std::string_view text);

    /// The lines in order; changes are changes of the document.
    [[nodiscard]] std::vector<RBSongLine> &aryLines() { return m_lines; }
    [[nodiscard]] const std::vector<RBSongLine> &aryLines() const { return m_lines; }
    /// The text as of the last `buildWithLrcText` or `updateSongText`. Valid until the next of them.
    [[nodiscard]] std::string_view songText() const { return m_text.text(); }
    /// The same content: as many lines, each equal to its counterpart. Neither spelling nor line ends count.
    ///
    /// Cost: constant for documents of different sizes, otherwise at most linear in the text.
    [[nodiscard]] bool isEqual(const RBEditSong &other) const;
    friend bool operator==(const RBEditSong &a, const RBEditSong &b) { return a.isEqual(b); }

    /// Which lines stand where in the text that `updateSongText` makes of them: for each of its physical
    /// lines, from the first, the index of the first line on it. Ascending; several ID tags that share a
    /// physical line have one place in it.
    ///
    /// Cost: one pass while nothing was edited, otherwise that of `updateSongText`.
    [[nodiscard]] std::vector<std::size_t> physicalLineStarts() const;

    /// Inserts `line` before the line at `index`; `index` equal to the line count appends.
    ///
    /// \param index  from 0. Past the end counts as the end.
    /// Cost: O(lines after index).
    void insertLine_atIndex(RBSongLine line, std::size_t index);
    /// Takes out the lines at `rows`.
    ///
    /// \param rows  from 0, ascending. Rows that no line has and repeated rows are ignored.
    /// Cost: O(lines after the first row), however many rows.
    void deleteLineAtIndexs(std::span<const std::size_t> rows);
    /// Makes `songText` what the lines say. Without changes since the text was read this copies nothing.
    void updateSongText();

private:
    std::vector<RBSongLine> m_lines;
    lyrics::BlockRef m_source;
    lyrics::BlockRef m_text;
    /// Literals; see SongFrame.
    std::string_view m_byteOrderMark;
    std::string_view m_lineEnd;
};
