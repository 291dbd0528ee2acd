// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/LineEnds.h"
#include "lyrics/RBSongLine.h"
#include "lyrics/TimeTag.h"

#include <span>
#include <string_view>
#include <vector>

namespace lyrics {

/// What the reader and the writer may see of a line, and nobody else. Not for users of the model.
struct LineAccess
{
    using Kind = RBSongLine::Kind;

    /// A line that stands at `begin` in the block.
    static RBSongLine &add(
        std::vector<RBSongLine> &lines, BlockRef block, std::size_t begin, std::size_t end, Kind kind)
    {
        // Made in its place and then told: a line that is moved there costs more than reading it.
        RBSongLine &line = lines.emplace_back();
        const bool isProperty = kind != Kind::Text && kind != Kind::OtherTag;
        line.m_flags.readAs = kind;
        line.m_flags.key = isProperty ? kind : Kind::Text;
        line.m_flags.isProperty = isProperty;
        line.m_flags.isNew = false;
        line.m_place.begin = static_cast<std::uint32_t>(begin);
        line.m_place.length = static_cast<std::uint32_t>(end - begin);
        line.m_block = std::move(block);
        return line;
    }
    static void setText(RBSongLine &line, std::size_t begin, std::size_t end)
    {
        line.m_place.textBegin = static_cast<std::uint32_t>(begin);
        line.m_place.textLength = static_cast<std::uint32_t>(end - begin);
    }
    /// The times that the line was read with; more than it has room for lie in its block from now on.
    ///
    /// \param times  so many can be read as it has room for, whatever their number
    static void setReadTimes(RBSongLine &line, const std::int64_t *times, std::size_t count)
    {
        if (count > TimeList::kInPlace)
            line.m_times.borrow(line.m_block.get()->store({times, count}), count);
        else
            line.m_times.setInPlace(times, count);
    }
    static void setJoins(RBSongLine &line, bool toPrevious, bool toNext)
    {
        line.m_flags.joinsPrevious = toPrevious;
        line.m_flags.set(RBSongLine::JoinsNext, toNext);
    }
    static void setHasColonForm(RBSongLine &line, ColonReading reading)
    {
        line.m_flags.set(RBSongLine::ColonForm, true);
        line.m_flags.colonMeansHours = reading == ColonReading::Hours;
    }

    /// The bytes that the line was read from, with its line end.
    static std::string_view spelling(const RBSongLine &line)
    {
        return {line.m_block.get() ? line.m_block.get()->data() + line.m_place.begin : nullptr,
            line.m_place.length};
    }
    static const TextBlock *block(const RBSongLine &line) { return line.m_block.get(); }
    static std::size_t begin(const RBSongLine &line) { return line.m_place.begin; }
    static std::size_t end(const RBSongLine &line)
    {
        return std::size_t(line.m_place.begin) + line.m_place.length;
    }
    /// Where the text begins in the spelling.
    static std::size_t textOffset(const RBSongLine &line)
    {
        return line.m_place.textBegin - line.m_place.begin;
    }
    static std::string_view text(const RBSongLine &line) { return line.text(); }
    static Kind readAs(const RBSongLine &line) { return line.m_flags.readAs; }
    static Kind key(const RBSongLine &line) { return line.m_flags.key; }
    static bool isTagLine(const RBSongLine &line) { return line.isTagLine(); }
    /// The text is a lyric, in which times are word stamps.
    static bool canHaveStamps(const RBSongLine &line)
    {
        return !line.isTagLine() && line.m_flags.readAs != Kind::OtherTag;
    }
    static bool joinsNext(const RBSongLine &line) { return line.m_flags.has(RBSongLine::JoinsNext); }
    static bool joinsPrevious(const RBSongLine &line) { return line.m_flags.joinsPrevious; }
    static bool isNew(const RBSongLine &line) { return line.m_flags.isNew; }
    static bool hasColonForm(const RBSongLine &line) { return line.m_flags.has(RBSongLine::ColonForm); }
    /// \param tagsEnd  where in the block the time tags end, the last bytes before the text and its blanks
    static void setPlainTags(RBSongLine &line, std::size_t tagsEnd)
    {
        const std::size_t blanks = line.m_place.textBegin - tagsEnd;
        line.m_flags.hasPlainTags
            = tagsEnd - line.m_place.begin == line.m_times.size() * kPlainTag && blanks < kPlainTag;
    }
    /// True when the line has to be written as its times, each in a new time tag, and `behindPlainTags`. So
    /// most edited lines are.
    static bool isPlainEdit(const RBSongLine &line)
    {
        return line.m_times.m_touched && line.m_times.size() > 0 && line.m_flags.hasPlainTags
            && !joinsNext(line) && !line.isTagLine() && !lineEndOf(spelling(line)).empty();
    }
    /// Of the spelling, what follows plain tags, with the line end.
    static std::string_view behindPlainTags(const RBSongLine &line)
    {
        return spelling(line).substr(textOffset(line) / kPlainTag * kPlainTag);
    }
    static ColonReading colonReading(const RBSongLine &line)
    {
        return line.m_flags.colonMeansHours ? ColonReading::Hours : ColonReading::Fraction;
    }

    /// True when equal bytes mean an equal line for the two.
    static bool isReadAlike(const RBSongLine &a, const RBSongLine &b)
    {
        return a.m_place.length == b.m_place.length && a.m_flags.readAs == b.m_flags.readAs
            && a.m_flags.colonMeansHours == b.m_flags.colonMeansHours
            && a.m_place.textBegin - a.m_place.begin == b.m_place.textBegin - b.m_place.begin
            && a.m_place.textLength == b.m_place.textLength;
    }
    /// Gives away the line's reference to its block, which leaves it without a text.
    static TextBlock *takeBlock(RBSongLine &line) { return line.m_block.take(); }
    /// Becomes a copy of a line, in its place, with a reference out of the stock.
    struct StockedCopy
    {
        operator RBSongLine() const { return {line, stock.takeOne()}; }
        const RBSongLine &line;
        ReferenceStock &stock;
    };
    /// Appends copies of lines that all refer to one block, or all to none.
    static void appendCopies(std::vector<RBSongLine> &copies, std::span<const RBSongLine> lines)
    {
        ReferenceStock stock(lines.front().m_block.get(), lines.size());
        for (const RBSongLine &line : lines)
            copies.emplace_back(StockedCopy{line, stock});
    }

    /// True when the line certainly still says what its spelling says.
    static bool isUntouched(const RBSongLine &line)
    {
        return !line.m_times.m_touched && !line.m_flags.has(RBSongLine::Retagged) && line.m_block;
    }
    /// Behind the last line of the run from `first` whose bytes, which lie in one piece, say what the lines
    /// say among whatever other lines: they are untouched, have no time `a:b:c`, and nothing follows them on
    /// their physical line. Nearly all lines are such; a look at each has to cost next to nothing.
    static std::size_t sureRunEnd(std::span<const RBSongLine> lines, std::size_t first)
    {
        const TextBlock *block = lines[first].m_block.get();
        std::uint32_t at = lines[first].m_place.begin;
        const auto isSure = [block, &at](const RBSongLine &line) {
            return !line.m_times.m_touched && line.m_flags.doubts == 0 && line.m_block.get() == block
                && line.m_place.begin == at;
        };
        std::size_t last = first;
        while (block && last < lines.size() && isSure(lines[last]))
            at += lines[last++].m_place.length;
        return last;
    }
};

} // namespace lyrics
