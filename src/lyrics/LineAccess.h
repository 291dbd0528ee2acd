// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBSongLine.h"
#include "lyrics/TimeTag.h"

#include <string_view>

namespace lyrics {

/// What the reader and the writer may see of a line, and nobody else. Not for users of the model.
struct LineAccess
{
    using Kind = RBSongLine::Kind;

    /// Where a line stands in a block, in bytes from its begin.
    struct Slice
    {
        std::size_t begin = 0;
        std::size_t end = 0;
        std::size_t textBegin = 0;
        std::size_t textEnd = 0;
    };

    /// Makes a fresh line say what stands in `slice`. `owned` is a reference that the line takes over.
    static void describe(RBSongLine &line, TextBlock *owned, const Slice &slice, Kind kind)
    {
        line.m_block = BlockRef(owned);
        line.m_begin = static_cast<std::uint32_t>(slice.begin);
        line.m_length = static_cast<std::uint32_t>(slice.end - slice.begin);
        line.m_textBegin = static_cast<std::uint32_t>(slice.textBegin);
        line.m_textLength = static_cast<std::uint32_t>(slice.textEnd - slice.textBegin);
        line.m_readAs = kind;
        line.m_isProperty = kind != Kind::Text && kind != Kind::OtherTag;
        line.m_key = line.m_isProperty ? kind : Kind::Text;
        line.m_isNew = false;
    }
    static void setText(RBSongLine &line, std::size_t begin, std::size_t end)
    {
        line.m_textBegin = static_cast<std::uint32_t>(begin);
        line.m_textLength = static_cast<std::uint32_t>(end - begin);
    }
    static void addReadTime(RBSongLine &line, std::int64_t millis) { line.m_times.append(millis); }
    static void setJoins(RBSongLine &line, bool toPrevious, bool toNext)
    {
        line.m_joinsPrevious = toPrevious;
        line.m_joinsNext = toNext;
    }
    static void setHasColonForm(RBSongLine &line, ColonReading reading)
    {
        line.m_hasColonForm = true;
        line.m_colonMeansHours = reading == ColonReading::Hours;
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
    static Kind readAs(const RBSongLine &line) { return line.m_readAs; }
    static Kind key(const RBSongLine &line) { return line.m_key; }
    static bool isTagLine(const RBSongLine &line) { return line.isTagLine(); }
    static bool joinsNext(const RBSongLine &line) { return line.m_joinsNext; }
    static bool joinsPrevious(const RBSongLine &line) { return line.m_joinsPrevious; }
    static bool isNew(const RBSongLine &line) { return line.m_isNew; }
    static bool hasColonForm(const RBSongLine &line) { return line.m_hasColonForm; }
    static ColonReading colonReading(const RBSongLine &line)
    {
        return line.m_colonMeansHours ? ColonReading::Hours : ColonReading::Fraction;
    }

    /// True when the line certainly still says what its spelling says.
    static bool isUntouched(const RBSongLine &line)
    {
        const Kind readKey = line.m_readAs == Kind::OtherTag ? Kind::Text : line.m_readAs;
        return !line.m_times.m_touched && line.m_block.get() && line.m_key == readKey
            && line.m_isProperty == (readKey != Kind::Text);
    }
};

} // namespace lyrics
