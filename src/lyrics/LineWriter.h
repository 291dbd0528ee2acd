// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/LineAccess.h"
#include "lyrics/TextSink.h"
#include "lyrics/TimeTag.h"

#include <vector>

namespace lyrics {

/// Writes lines that no longer say what their spelling says, keeping of it what still holds.
class LineWriter
{
public:
    /// Whether time tags of the form `a:b:c` may stay; where they would be misread they must not.
    enum class ColonForm { Kept, Respelled };

    LineWriter(TextSink &sink, ColonForm colonForm) : m_sink(sink), m_colonForm(colonForm) { }

    /// Writes `line` without its line end. Cost: linear in its spelling and its times.
    void write(const RBSongLine &line);

private:
    /// A time tag as the line was read, with the blanks before it.
    struct ReadTag
    {
        const char *gapBegin = nullptr;
        const char *begin = nullptr;
        TimeTag tag;
    };

    void writeTagLine(const RBSongLine &line);
    void writeLyricLine(const RBSongLine &line);
    void writeTimes(const TimeList &times);
    void writeInPlace(const TimeList &times);
    void writeWithCommonEnds(const TimeList &times);
    void keep(const ReadTag &tag);
    void respell(const ReadTag &tag, std::int64_t millis);
    void writeNew(std::int64_t millis);
    const char *readTags(const RBSongLine &line);
    [[nodiscard]] bool holds(const ReadTag &tag, std::int64_t millis) const;

    TextSink &m_sink;
    ColonForm m_colonForm;
    // Kept from line to line, so that no line allocates.
    std::vector<ReadTag> m_tags;
};

} // namespace lyrics
