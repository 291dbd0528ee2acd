// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/LineAccess.h"
#include "lyrics/TextSink.h"
#include "lyrics/TimeTag.h"

#include <cstdint>
#include <span>
#include <vector>

namespace lyrics {

/// Those of the two meanings of the time tag `a:b:c` that are spelled so.
struct ColonReadings
{
    [[nodiscard]] bool has(ColonReading reading) const
    {
        return reading == ColonReading::Hours ? hours : fraction;
    }
    void add(ColonReading reading) { (reading == ColonReading::Hours ? hours : fraction) = true; }

    bool fraction = false;
    bool hours = false;
};

/// Writes lines that no longer say what their spelling says, keeping of it what still holds.
class LineWriter
{
public:
    /// \param allowed  the time tags of the form `a:b:c` that may stay; what would be misread must not.
    LineWriter(TextSink &sink, ColonReadings allowed) : m_sink(sink), m_allowed(allowed) { }

    /// Writes `line` without its line end. Cost: linear in its spelling and its times.
    void write(const RBSongLine &line);
    /// Writes those of `lines`, from the first on, that are written as their times and the rest of their
    /// spelling, each with its line end. Answers how many. Cost: linear in what is written.
    [[nodiscard]] std::size_t writePlainEdits(std::span<const RBSongLine> lines);
    /// Those of the form `a:b:c` that did stay, in all lines so far.
    [[nodiscard]] ColonReadings keptColonForms() const { return m_kept; }

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
    [[nodiscard]] bool isRowOf(std::span<const std::int64_t> times, std::span<const ReadTag> tags) const;
    void keep(const char *begin, const ReadTag &tag);
    void respell(const ReadTag &tag, std::int64_t millis);
    void writeNew(std::int64_t millis);
    const char *readTags(const RBSongLine &line);
    [[nodiscard]] bool holds(const ReadTag &tag, std::int64_t millis) const;

    TextSink &m_sink;
    ColonReadings m_allowed;
    ColonReadings m_kept;
    /// That of the line that is being written.
    ColonReading m_reading = ColonReading::Fraction;
    // Kept from line to line, so that no line allocates.
    std::vector<ReadTag> m_tags;
};

} // namespace lyrics
