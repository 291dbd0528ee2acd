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

    /// A line that stands at `begin` in the block; `owned` is a reference that the line takes over.
    static RBSongLine &add(
        std::vector<RBSongLine> &lines, TextBlock *owned, std::size_t begin, std::size_t end, Kind kind)
    {
        // Made in its place and then told: a line that is moved there costs more than reading it.
        RBSongLine &line = lines.emplace_back();
        const bool isProperty = kind != Kind::Text && kind != Kind::OtherTag;
        line.m_flags.readAs = kind;
        line.m_flags.key = isProperty ? kind : Kind::Text;
        line.m_flags.isProperty = isProperty;
        line.m_flags.isNew = false;
        line.m_begin = static_cast<std::uint32_t>(begin);
        line.m_length = static_cast<std::uint32_t>(end - begin);
        line.m_block.adopt(owned);
        return line;
    }
    static void setText(RBSongLine &line, std::size_t begin, std::size_t end)
    {
        line.m_textBegin = static_cast<std::uint32_t>(begin);
        line.m_textLength = static_cast<std::uint32_t>(end - begin);
    }
    /// The times that the line was read with, in a place that lives as long as its block.
    static void setReadTimes(RBSongLine &line, std::int64_t *times, std::size_t count)
    {
        line.m_times.borrow(times, count);
    }
    static void addReadTime(RBSongLine &line, std::int64_t millis) { line.m_times.append(millis); }
    static void setJoins(RBSongLine &line, bool toPrevious, bool toNext)
    {
        line.m_flags.joinsPrevious = toPrevious;
        line.m_flags.joinsNext = toNext;
    }
    static void setHasColonForm(RBSongLine &line, ColonReading reading)
    {
        line.m_flags.hasColonForm = true;
        line.m_flags.colonMeansHours = reading == ColonReading::Hours;
    }

    /// The bytes that the line was read from, with its line end.
    static std::string_view spelling(const RBSongLine &line)
    {
        return {line.m_block.get() ? line.m_block.get()->data() + line.m_begin : nullptr, line.m_length};
    }
    static const TextBlock *block(const RBSongLine &line) { return line.m_block.get(); }
    static std::size_t begin(const RBSongLine &line) { return line.m_begin; }
    static std::size_t end(const RBSongLine &line) { return std::size_t(line.m_begin) + line.m_length; }
    /// Where the text begins in the spelling.
    static std::size_t textOffset(const RBSongLine &line) { return line.m_textBegin - line.m_begin; }
    static std::string_view text(const RBSongLine &line) { return line.text(); }
    static Kind readAs(const RBSongLine &line) { return line.m_flags.readAs; }
    static Kind key(const RBSongLine &line) { return line.m_flags.key; }
    static bool isTagLine(const RBSongLine &line) { return line.isTagLine(); }
    /// The text is a lyric, in which times are word stamps.
    static bool canHaveStamps(const RBSongLine &line)
    {
        return !line.isTagLine() && line.m_flags.readAs != Kind::OtherTag;
    }
    static bool joinsNext(const RBSongLine &line) { return line.m_flags.joinsNext; }
    static bool joinsPrevious(const RBSongLine &line) { return line.m_flags.joinsPrevious; }
    static bool isNew(const RBSongLine &line) { return line.m_flags.isNew; }
    static bool hasColonForm(const RBSongLine &line) { return line.m_flags.hasColonForm; }
    /// \param tagsEnd  where in the block the time tags end, the last bytes before the text and its blanks
    static void setPlainTags(RBSongLine &line, std::size_t tagsEnd)
    {
        const std::size_t blanks = line.m_textBegin - tagsEnd;
        line.m_flags.hasPlainTags
            = tagsEnd - line.m_begin == line.m_times.size() * kPlainTag && blanks < kPlainTag;
    }
    /// True when the line has to be written as its times, each in a new time tag, and `behindPlainTags`. So
    /// most edited lines are.
    static bool isPlainEdit(const RBSongLine &line)
    {
        const auto &flags = line.m_flags;
        return line.m_times.m_touched && line.m_times.size() > 0 && flags.hasPlainTags && !flags.joinsNext
            && !line.isTagLine() && !lineEndOf(spelling(line)).empty();
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
        return a.m_length == b.m_length && a.m_flags.readAs == b.m_flags.readAs
            && a.m_flags.colonMeansHours == b.m_flags.colonMeansHours
            && a.m_textBegin - a.m_begin == b.m_textBegin - b.m_begin && a.m_textLength == b.m_textLength;
    }
    /// Gives away the line's reference to its block, which leaves it without a text.
    static TextBlock *takeBlock(RBSongLine &line) { return line.m_block.take(); }
    /// Appends copies of lines that all refer to one block, or all to none.
    static void appendCopies(std::vector<RBSongLine> &copies, std::span<const RBSongLine> lines)
    {
        TextBlock *block = lines.front().m_block.get();
        std::size_t left = lines.size();
        if (block)
            block->retain(left);
        // What a list that cannot be copied leaves over goes back.
        struct Rest
        {
            ~Rest()
            {
                if (block && left > 0)
                    block->release(left);
            }
            TextBlock *block;
            std::size_t &left;
        } const rest{block, left};
        for (const RBSongLine &line : lines) {
            RBSongLine &copy = copies.emplace_back();
            copy.m_times.copyFrom(line.m_times);
            copy.copyReading(line);
            copy.m_block.adopt(block);
            --left;
        }
    }

    /// True when the line certainly still says what its spelling says.
    static bool isUntouched(const RBSongLine &line)
    {
        return !line.m_times.m_touched && !line.m_flags.isRetagged && line.m_block;
    }
    /// The same of a line that stands at `begin` in `block`.
    static bool isUntouchedAt(const RBSongLine &line, const TextBlock *block, std::size_t begin)
    {
        return !line.m_times.m_touched && !line.m_flags.isRetagged && line.m_block.get() == block
            && line.m_begin == begin;
    }
    /// Behind the last line of the run from `first` whose bytes, which lie in one piece, say what the lines
    /// say among whatever other lines: they are untouched, have no time `a:b:c`, and nothing follows them on
    /// their physical line. Nearly all lines are such; a look at each has to cost next to nothing.
    static std::size_t sureRunEnd(std::span<const RBSongLine> lines, std::size_t first)
    {
        const TextBlock *block = lines[first].m_block.get();
        std::size_t at = lines[first].m_begin;
        std::size_t last = first;
        while (block && last < lines.size() && isUntouchedAt(lines[last], block, at)
            && !lines[last].m_flags.joinsNext && !lines[last].m_flags.hasColonForm)
            at += lines[last++].m_length;
        return last;
    }
};

} // namespace lyrics
