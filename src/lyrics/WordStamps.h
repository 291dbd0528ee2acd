// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBSongLine.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Times inside the text of a line: `<mm:ss.xx>` or `[mm:ss.xx]`, every spelling that a time tag may have
/// with minutes and seconds at least (so `[35]` is text, and so is a range). A stamp says when what follows
/// it is sung; one at the end says when the line ends. They belong to the text (`RBSongLine::lineText`) and
/// are written as they were read; `RBSongLine::shiftAllTime` moves them. Tag lines and other ID tags have
/// none.
namespace lyrics {

/// Where one stamp stands in the text of its line, brackets included, and what it says.
struct WordStamp
{
    /// Bytes.
    std::size_t begin = 0;
    /// Behind the closing bracket.
    std::size_t end = 0;
    std::int64_t millis = 0;
    /// `<…>`; otherwise `[…]`.
    bool isAngle = true;

    friend bool operator==(const WordStamp &, const WordStamp &) = default;
};

/// One piece of a text, from one stamp to the next.
struct StampedWord
{
    /// Of the stamp before it; nothing for what stands before the first stamp.
    std::optional<std::int64_t> millis;
    /// Byte for byte, blanks included; may be empty. Valid until the line changes.
    std::string_view text;

    friend bool operator==(const StampedWord &, const StampedWord &) = default;
};

/// Whether the line's text has a stamp. Cost: at most linear in its bytes, no allocation.
[[nodiscard]] bool hasWordStamps(const RBSongLine &line);

/// The stamps of the line's text from left to right. `a:b:c` without a point means what it means in the
/// line's own time tags, and minutes, seconds and a fraction where it has none of that form.
[[nodiscard]] std::vector<WordStamp> wordStamps(const RBSongLine &line);

/// The text in pieces; their texts and stamps put together are the whole text. A text that begins with a
/// stamp has no piece before it; a line without stamps is one piece, a line without a text none.
[[nodiscard]] std::vector<StampedWord> stampedWords(const RBSongLine &line);

/// The text as it is sung and shown: without the stamps, and without the blanks round that. What `lineText`
/// answers where there are no stamps. Blanks inside are those of the text, so two stand where a stamp stood
/// between two.
[[nodiscard]] std::string wordsOf(const RBSongLine &line);

/// The user's edit of the text as `wordsOf` shows it. The same words are no change; without stamps this is
/// `RBSongLine::updateWithText`.
///
/// Stamps stay before the characters before which they stood, as long as those stay; what stood between two
/// words and is typed elsewhere goes by its words first, then by its characters. Where words take the place
/// of others, the first stamp of the old ones stands before the new ones, and all stamps at beginnings of
/// words stay when there are as many. A stamp at the end stays at the end. Stamps of what was deleted go;
/// when no words are left, all go. Cost: linear in the bytes, and at most a million comparisons for what is
/// neither the same beginning nor end.
void updateWithWords(RBSongLine &line, std::string_view words);

/// Whether `RBSongLine::shiftAllTime(millis)` cannot be taken back by `RBSongLine::shiftBack`: a time or a
/// word stamp would stop at 0 or at the end of the range, or stood below 0 and does. Keep a copy of such a
/// line to restore it.
[[nodiscard]] bool isShiftCut(const RBSongLine &line, std::int64_t millis);

} // namespace lyrics
