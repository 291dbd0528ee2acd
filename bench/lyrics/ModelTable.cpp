// SPDX-License-Identifier: MIT
//
// The yardsticks: a scan of the same bytes for line ends (memchr), a copy of the same bytes into a new
// string, a pass over all times, and, of writing, the least that it can be: the digits and the texts one
// behind the other.

#include "lyrics/ModelTable.h"

#include "Table.h"
#include "lyrics/HeapCount.h"
#include "lyrics/RBEditSong.h"
#include "lyrics/Shortest.h"
#include "lyrics/TimeTag.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

using measure::shortest;

constexpr std::int64_t kShift = 1'230;

std::size_t scanForLineEnds(std::string_view text)
{
    std::size_t lines = 0;
    const char *end = text.data() + text.size();
    for (const char *p = text.data(); p < end; ++lines) {
        const void *found = std::memchr(p, '\n', static_cast<std::size_t>(end - p));
        p = found ? static_cast<const char *>(found) + 1 : end;
    }
    return lines;
}

std::size_t passOverLines(const RBEditSong &song)
{
    std::size_t most = 0;
    for (const RBSongLine &line : song.aryLines())
        most = std::max(most, line.aryTimes().count());
    return most;
}

std::int64_t passOverTimes(const RBEditSong &song)
{
    std::int64_t sum = 0;
    for (const RBSongLine &line : song.aryLines()) {
        for (const std::int64_t millis : line.aryTimes())
            sum += millis;
    }
    return sum;
}

RBEditSong built(const std::string &text)
{
    RBEditSong song;
    song.buildWithLrcText(text);
    return song;
}

RBEditSong shifted(const std::string &text)
{
    RBEditSong song = built(text);
    for (RBSongLine &line : song.aryLines())
        line.shiftAllTime(kShift);
    return song;
}

double copyTime(const std::string &text)
{
    return shortest(text.size(), [&] {
        std::string other(text);
        benchmark::DoNotOptimize(other.data());
    });
}

/// Every time formatted and every text copied, into room that is there: no tag is read, no line looked at.
double digitsAndTextsTime(const RBEditSong &song, std::size_t bytes)
{
    struct Piece
    {
        std::vector<std::int64_t> times;
        std::string_view text;
    };
    std::vector<Piece> pieces;
    for (const RBSongLine &line : song.aryLines())
        pieces.push_back({{line.aryTimes().begin(), line.aryTimes().end()}, line.lineText()});
    std::string out(2 * bytes, '\0');
    return shortest(bytes, [&] {
        char *p = out.data();
        for (const Piece &piece : pieces) {
            for (const std::int64_t millis : piece.times)
                p = lyrics::writeTag(p, millis);
            if (!piece.text.empty())
                std::memcpy(p, piece.text.data(), piece.text.size());
            p += piece.text.size();
            *p++ = '\n';
        }
        benchmark::DoNotOptimize(p);
    });
}

/// Memory comes new to the process from now on, as it does where a lyric is loaded: each page of it is paid
/// for.
void giveMemoryBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

int inNewMemory()
{
    giveMemoryBack();
    return 0;
}

/// Below it a run is too short to be timed alone, and the memory of the runs after the first is not new.
constexpr std::size_t kSmallestNew = 100'001;

/// Prints one operation after the other, all on the same lyric.
class Rows
{
public:
    Rows(std::size_t lines, corpus::Times times, Growth *growth)
        : m_lines(lines), m_growth(growth), m_text(corpus::song(lines, times)), m_bytes(m_text.size()),
          m_songCopy(copyTime(corpus::song(66, times))), m_copy(copyTime(m_text)),
          m_scan(shortest(m_bytes, [&] { benchmark::DoNotOptimize(scanForLineEnds(m_text)); })),
          m_song(built(m_text))
    { }

    void print()
    {
        printReading();
        printWriting();
        printEquality();
        printShift();
        printCopy();
        printStamp();
    }

private:
    void row(const char *what, double ours, const char *yardstick, double theirs, double target)
    {
        table::row(what, m_lines, ours, yardstick, theirs, target);
        if (m_growth)
            m_growth->note(what, m_lines, ours);
    }

    void printReading()
    {
        const auto read = [this] { benchmark::DoNotOptimize(built(m_text).aryLines().data()); };
        row("text to document", shortest(m_bytes, read), "scan for line ends", m_scan,
            m_lines < 100 ? 6 : 4.5);
    }
    void printWriting();
    void printInNewMemory(double ours);
    void printEquality();
    void printShift();
    void printCopy();
    void printStamp();

    std::size_t m_lines;
    Growth *m_growth;
    std::string m_text;
    std::size_t m_bytes;
    double m_songCopy;
    double m_copy;
    double m_scan;
    RBEditSong m_song;
};

void Rows::printWriting()
{
    const auto write = [](RBEditSong &song) { song.updateSongText(); };
    const auto untouched = [this] { return built(m_text); };
    row("document to text, untouched", shortest(m_bytes, untouched, write), "copy of the text", m_copy, 1.5);
    const auto oneEdited = [this] {
        RBEditSong song = built(m_text);
        song.aryLines()[song.aryLines().size() / 2].appendTime(5);
        return song;
    };
    row("document to text, one line edited", shortest(m_bytes, oneEdited, write), "copy of the text", m_copy,
        3);
    const auto allEdited = [this] { return shifted(m_text); };
    const double all = shortest(m_bytes, allEdited, write);
    row("document to text, all shifted", all, "copy of the text", m_copy, 6);
    table::figure(
        "  the same", m_lines, all, "digits and texts alone", digitsAndTextsTime(shifted(m_text), m_bytes));
    const auto allEditedInNew = [this] {
        RBEditSong song = shifted(m_text);
        giveMemoryBack();
        return song;
    };
    printInNewMemory(shortest(m_bytes, allEditedInNew, write));
}

/// The operation of the row before, and the copy, each in memory that is new to the process.
void Rows::printInNewMemory(double ours)
{
    if (m_bytes < kSmallestNew)
        return;
    const double copy = shortest(m_bytes, inNewMemory, [this](int) {
        std::string other(m_text);
        benchmark::DoNotOptimize(other.data());
    });
    table::figure("  the same, memory new to the process", m_lines, ours, "copy into new memory", copy);
}

void Rows::printEquality()
{
    const RBEditSong equal = built(m_text);
    row("equality of equal documents", shortest(m_bytes, [&] { benchmark::DoNotOptimize(m_song == equal); }),
        "copy of the text", m_copy, 4);
    const RBEditSong longer = built(m_text + "x");
    row("equality, different sizes", shortest(m_bytes, [&] { benchmark::DoNotOptimize(m_song == longer); }),
        "copy of 66 lines", m_songCopy, 1);
}

void Rows::printShift()
{
    RBEditSong song = built(m_text);
    const auto shiftAll = [&song] {
        for (RBSongLine &line : song.aryLines())
            line.shiftAllTime(10);
    };
    shiftAll();
    const double pass = shortest(m_bytes, [&] { benchmark::DoNotOptimize(passOverTimes(song)); });
    row("shift all", shortest(m_bytes, shiftAll), "pass over the times", pass, 3.5);
}

void Rows::printCopy()
{
    const auto copy = [this] {
        RBEditSong other = m_song;
        benchmark::DoNotOptimize(other.aryLines().data());
    };
    row("copy of a document", shortest(m_bytes, copy), "copy of the text", m_copy, 5);
    printInNewMemory(shortest(m_bytes, inNewMemory, [&copy](int) { copy(); }));
}

void Rows::printStamp()
{
    RBEditSong stamped = built(m_text);
    RBSongLine &middle = stamped.aryLines()[m_lines / 2];
    const auto stamp = [&] {
        middle.appendTime(5);
        benchmark::DoNotOptimize(passOverLines(stamped));
        middle.aryTimes().erase(middle.aryTimes().count() - 1);
    };
    row("stamp, columns counted", shortest(m_bytes, stamp), "scan for line ends", m_scan, 3);
}

} // namespace

void model::printRatios(std::size_t lines, corpus::Times times, Growth *growth)
{
    Rows(lines, times, growth).print();
}

void model::printMemory(std::size_t lines, corpus::Times times)
{
    const std::string text = corpus::song(lines, times);
    const std::size_t before = heap::now();
    heap::restartPeak();
    const RBEditSong song = built(text);
    const auto size = static_cast<double>(text.size());
    // The document's own copy of the bytes is the text itself.
    table::row("memory beyond the text", lines, static_cast<double>(heap::now() - before) - size, "the text",
        size, 2);
    table::row("memory at the peak of reading", lines, static_cast<double>(heap::peak() - before), "the text",
        size, 2.5);
}
