// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/TextBlock.h"
#include "lyrics/TimeList.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace lyrics {
struct LineAccess;
} // namespace lyrics

/// One line of a lyric: its times and its text, or an ID tag and its value.
///
/// A plain value: a copy is independent, also of the document that it was taken from. The line knows how
/// it was spelled in the text that it was read from; the writer keeps of that what still holds.
/// All text is UTF-8, byte for byte as it was read, and never contains a line end.
class RBSongLine
{
public:
    /// A line with no times, no text and no tag; it has a line end wherever it stands.
    RBSongLine() = default;
    RBSongLine(const RBSongLine &other) : RBSongLine(other, other.m_block) { }
    RBSongLine(RBSongLine &&other) noexcept
        : m_flags(other.m_flags), m_place(other.m_place), m_block(std::move(other.m_block))
    {
        m_times.takeFrom(other.m_times);
        other.forget();
    }
    RBSongLine &operator=(const RBSongLine &other);
    RBSongLine &operator=(RBSongLine &&other) noexcept;
    ~RBSongLine() = default;

    [[nodiscard]] static RBSongLine emptyLine() { return {}; }
    [[nodiscard]] RBSongLine copy() const { return *this; }

    /// The times in the order in which they were stamped; changes are changes of the line.
    [[nodiscard]] lyrics::TimeList &aryTimes() { return m_times; }
    [[nodiscard]] const lyrics::TimeList &aryTimes() const { return m_times; }
    /// True when the line is one of the four ID tags that the editor makes.
    [[nodiscard]] bool isProperty() const { return m_flags.isProperty; }
    /// "ti", "ar", "al", "by", or empty for none.
    [[nodiscard]] std::string_view propertyStr() const;
    /// The value of a tag line, without the blanks round it. Valid until the line changes.
    [[nodiscard]] std::string_view displayText() const { return text(); }
    /// The text of any other line, without the blanks round it; of another ID tag the whole tag.
    /// Word stamps belong to it. Valid until the line changes.
    [[nodiscard]] std::string_view lineText() const { return text(); }
    /// True for an untimed ID tag other than the four, such as `[offset:+500]`.
    [[nodiscard]] bool isOtherTag() const;

    /// Adds a time behind the others.
    void appendTime(std::int64_t millis) { m_times.push_back(millis); }
    /// A tag line is written as its tag alone. Neither the times nor the text change.
    void setIsProperty(bool isProperty)
    {
        m_flags.isProperty = isProperty;
        noteTag();
    }
    /// \param key  one of the four in any case; anything else is none.
    void setPropertyStr(std::string_view key);
    /// Replaces the text, or the value of a tag line. The blanks round the old text stay; those round
    /// the new one are left off; a line break inside it becomes one blank. The same text is no change.
    void updateWithText(std::string_view text);
    /// The user's edit of one time.
    ///
    /// \param text  empty takes the time out. What the cell shows already (`getTimeIntervalPeerStr`) changes
    ///              nothing, and neither does what `isTimeString` refuses.
    /// \param index  from 0. Past the last time appends; negative does nothing.
    void updateWithTimeStr_atIndex(std::string_view text, std::ptrdiff_t index);
    /// Adds `millis` to every time and to every word stamp in the text; what would fall below 0 becomes 0,
    /// what would leave the range stays at its end. An amount of 0 changes nothing.
    ///
    /// Where nothing was stopped so, moving the other way gives the same bytes again. Word stamps keep
    /// their shape, and get more digits of fraction when the new time needs them.
    void shiftAllTime(std::int64_t millis)
    {
        m_times.shift(millis);
        if (m_flags.stamps != Stamps::None)
            shiftStamps(millis, Direction::Forth);
    }
    /// Takes back `shiftAllTime(millis)`: subtracts, also to below 0, where a time may have been before.
    /// Exact unless `lyrics::isShiftCut` said of the line as it was that something would be lost.
    void shiftBack(std::int64_t millis);

    /// The same content: times, text, and the key where it is a tag line. Neither the spelling nor the line
    /// end counts, nor do times that a tag line will not write.
    friend bool operator==(const RBSongLine &a, const RBSongLine &b);

private:
    friend struct lyrics::LineAccess;

    /// What a line was read as, and the keys of tag lines.
    enum class Kind : std::uint8_t { Text, Title, Artist, Album, EditedBy, OtherTag };

    /// What is known of the word stamps in the text. Found out at the first shift, so that neither reading
    /// nor any later shift has to look.
    enum class Stamps : std::uint8_t {
        Unknown,
        None,
        Some,
        Shifted ///< moved from what the block keeps behind the spelling, see shiftStamps
    };
    enum class Direction : std::uint8_t { Forth, Back };

    [[nodiscard]] std::string_view text() const
    {
        return m_block ? m_block.text().substr(m_place.textBegin, m_place.textLength) : std::string_view();
    }
    void noteTag();
    /// What is left of a line that was moved from is an empty line.
    void forget()
    {
        m_flags = Flags();
        m_place = Place();
    }
    void replaceText(std::string_view text);
    void setBlock(std::string_view text, std::string_view head, std::string_view tail);
    void shiftStamps(std::int64_t millis, Direction direction);
    void lookForStamps();
    [[nodiscard]] bool isTagLine() const { return m_flags.isProperty && m_flags.key != Kind::Text; }

    /// Why the bytes of a line may not be what has to be written, although its times were not touched.
    /// Together, so that a line without any is known at one look.
    enum Doubt : std::uint8_t {
        Retagged = 1, ///< key or `isProperty` are not those that were read
        JoinsNext = 2, ///< the physical line goes on in the next line
        ColonForm = 4 ///< one of the times is spelled `a:b:c`
    };

    /// What is known of a line besides its bytes.
    struct Flags
    {
        Kind readAs : 3 = Kind::Text;
        Kind key : 3 = Kind::Text;
        bool isProperty : 1 = false;
        /// Made here, not read: has a line end wherever it stands.
        bool isNew : 1 = true;
        /// Each a bit of `Doubt`.
        std::uint8_t doubts : 3 = 0;
        /// The physical line was begun in the line before.
        bool joinsPrevious : 1 = false;
        /// `a:b:c` means hours, minutes, seconds in the document that it was read from.
        bool colonMeansHours : 1 = false;
        Stamps stamps : 2 = Stamps::Unknown;
        /// The time tags are spelled, and stand, as they would be written anew: `[mm:ss.xx]`, side by side.
        bool hasPlainTags : 1 = false;

        [[nodiscard]] bool has(Doubt doubt) const { return (doubts & doubt) != 0; }
        void set(Doubt doubt, bool isThere)
        {
            doubts = static_cast<std::uint8_t>(isThere ? doubts | doubt : doubts & ~doubt) & 7U;
        }
    };

    /// How a line was spelled: a slice of its block with the line's own line end, and within the block where
    /// its text is.
    struct Place
    {
        std::uint32_t begin = 0;
        std::uint32_t length = 0;
        std::uint32_t textBegin = 0;
        std::uint32_t textLength = 0;
    };

    /// A copy with a reference to the block of `other` that was counted already.
    RBSongLine(const RBSongLine &other, lyrics::BlockRef block)
        : m_times(other.m_times, lyrics::TimeList::WithText()), m_flags(other.m_flags),
          m_place(other.m_place), m_block(std::move(block))
    { }

    // The flags lie in what the list leaves free behind itself: lines are many.
    [[no_unique_address]] lyrics::TimeList m_times;
    Flags m_flags;
    Place m_place;
    /// No block: never spelled.
    lyrics::BlockRef m_block;
};
