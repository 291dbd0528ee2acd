// SPDX-License-Identifier: MIT
//
// How long the model takes, as ratios to yardsticks of the same run: a scan of the same bytes for line ends
// (memchr), a copy of the same bytes into a new string, a pass over
// all times. Figures of one machine mean little; the ratios hold on most.

#include "Table.h"
#include "lyrics/Corpus.h"
#include "lyrics/RBEditSong.h"
#include "lyrics/RBPreviewSong.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

std::size_t g_heapNow = 0;
std::size_t g_heapPeak = 0;

} // namespace

// Every allocation carries its size, so that memory is measured and not estimated.
void *operator new(std::size_t size)
{
    constexpr std::size_t kHeader = alignof(std::max_align_t);
    auto *block = static_cast<char *>(std::malloc(size + kHeader));
    if (!block)
        throw std::bad_alloc();
    std::memcpy(block, &size, sizeof size);
    g_heapNow += size;
    g_heapPeak = std::max(g_heapPeak, g_heapNow);
    return block + kHeader;
}
void operator delete(void *memory) noexcept
{
    if (!memory)
        return;
    char *block = static_cast<char *>(memory) - alignof(std::max_align_t);
    std::size_t size = 0;
    std::memcpy(&size, block, sizeof size);
    g_heapNow -= size;
    std::free(block);
}
void operator delete(void *memory, std::size_t) noexcept
{
    operator delete(memory);
}

namespace {

using Clock = std::chrono::steady_clock;

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

/// The shortest of several runs, in nanoseconds: what the work costs when nothing else runs. `prepare` is not
/// timed.
template <typename Prepare, typename Work>
double shortest(std::size_t bytes, Prepare prepare, Work work)
{
    const int rounds = bytes > 1'000'000 ? 25 : 200;
    const int repeats = bytes > 100'000 ? 1 : static_cast<int>(200'000 / (bytes + 1)) + 1;
    double best = 1e300;
    for (int round = 0; round < rounds; ++round) {
        auto state = prepare();
        const auto begin = Clock::now();
        for (int repeat = 0; repeat < repeats; ++repeat)
            work(state);
        const std::chrono::duration<double, std::nano> taken = Clock::now() - begin;
        best = std::min(best, taken.count() / repeats);
    }
    return best;
}

double shortest(std::size_t bytes, auto work)
{
    return shortest(
        bytes, [] { return 0; }, [&work](int) { work(); });
}

RBEditSong built(const std::string &text)
{
    RBEditSong song;
    song.buildWithLrcText(text);
    return song;
}

double copyTime(const std::string &text)
{
    return shortest(text.size(), [&] {
        std::string other(text);
        benchmark::DoNotOptimize(other.data());
    });
}

void printRatios(std::size_t lines, corpus::Times times)
{
    const std::string text = corpus::song(lines, times);
    const std::size_t bytes = text.size();
    const bool isSmall = lines < 100;
    const double songCopy = copyTime(corpus::song(66, times));
    const double scan = shortest(bytes, [&] { benchmark::DoNotOptimize(scanForLineEnds(text)); });
    const double copy = copyTime(text);
    const RBEditSong song = built(text);

    const double read = shortest(bytes, [&] {
        RBEditSong fresh;
        fresh.buildWithLrcText(text);
        benchmark::DoNotOptimize(fresh.aryLines().data());
    });
    table::row("text to document", lines, read, "scan for line ends", scan, isSmall ? 6 : 4.5);

    const auto untouched = [&] { return built(text); };
    const auto write = [](RBEditSong &s) { s.updateSongText(); };
    table::row("document to text, untouched", lines, shortest(bytes, untouched, write), "copy of the text",
        copy, 1.5);
    const auto oneEdited = [&] {
        RBEditSong s = built(text);
        s.aryLines()[s.aryLines().size() / 2].appendTime(5);
        return s;
    };
    table::row("document to text, one line edited", lines, shortest(bytes, oneEdited, write),
        "copy of the text", copy, 3);
    const auto allEdited = [&] {
        RBEditSong s = built(text);
        for (RBSongLine &line : s.aryLines())
            line.shiftAllTime(1'230);
        return s;
    };
    table::row("document to text, all shifted", lines, shortest(bytes, allEdited, write), "copy of the text",
        copy, 6);

    const RBEditSong equal = built(text);
    table::row("equality of equal documents", lines,
        shortest(bytes, [&] { benchmark::DoNotOptimize(song == equal); }), "copy of the text", copy, 4);
    RBEditSong longer = built(text + "x");
    table::row("equality, different sizes", lines,
        shortest(bytes, [&] { benchmark::DoNotOptimize(song == longer); }), "copy of 66 lines", songCopy, 1);

    RBEditSong shifted = built(text);
    for (RBSongLine &line : shifted.aryLines())
        line.shiftAllTime(10);
    const double pass = shortest(bytes, [&] { benchmark::DoNotOptimize(passOverTimes(shifted)); });
    table::row("shift all", lines,
        shortest(bytes,
            [&] {
                for (RBSongLine &line : shifted.aryLines())
                    line.shiftAllTime(10);
            }),
        "pass over the times", pass, 3.5);
    table::row("copy of a document", lines,
        shortest(bytes,
            [&] {
                RBEditSong other = song;
                benchmark::DoNotOptimize(other.aryLines().data());
            }),
        "copy of the text", copy, 5);

    RBEditSong stamped = built(text);
    RBSongLine &middle = stamped.aryLines()[lines / 2];
    table::row("stamp, columns counted", lines,
        shortest(bytes,
            [&] {
                middle.appendTime(5);
                benchmark::DoNotOptimize(passOverLines(stamped));
                middle.aryTimes().erase(middle.aryTimes().count() - 1);
            }),
        "scan for line ends", scan, 3);
}

void printMemory(std::size_t lines, corpus::Times times)
{
    const std::string text = corpus::song(lines, times);
    const std::size_t before = g_heapNow;
    g_heapPeak = before;
    const RBEditSong song = built(text);
    const auto size = static_cast<double>(text.size());
    // The document's own copy of the bytes is the text itself.
    table::row(
        "memory beyond the text", lines, static_cast<double>(g_heapNow - before) - size, "the text", size, 2);
    table::row("memory at the peak of reading", lines, static_cast<double>(g_heapPeak - before), "the text",
        size, 2.5);
}

void readDocument(benchmark::State &state)
{
    const std::string text = corpus::song(static_cast<std::size_t>(state.range(0)), corpus::Times::Usual);
    for (auto _ : state) {
        RBEditSong song;
        song.buildWithLrcText(text);
        benchmark::DoNotOptimize(song.aryLines().data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
    state.SetComplexityN(state.range(0));
}
BENCHMARK(readDocument)->RangeMultiplier(10)->Range(1'000, 1'000'000)->Complexity(benchmark::oN);

void layOutPreview(benchmark::State &state)
{
    const std::string text = corpus::song(static_cast<std::size_t>(state.range(0)), corpus::Times::Usual);
    for (auto _ : state) {
        RBPreviewSong song;
        song.buildWithLrcText(text);
        benchmark::DoNotOptimize(song.aryLines().data());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(layOutPreview)->RangeMultiplier(10)->Range(1'000, 100'000)->Complexity(benchmark::oNLogN);

void findCurrentLine(benchmark::State &state)
{
    RBPreviewSong song;
    song.buildWithLrcText(corpus::song(static_cast<std::size_t>(state.range(0)), corpus::Times::Usual));
    double seconds = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(song.currentLineIndex(seconds));
        seconds = seconds > 5'000 ? 0 : seconds + 0.37;
    }
}
BENCHMARK(findCurrentLine)->Arg(66)->Arg(100'000);

} // namespace

int main(int argc, char **argv)
{
#ifdef __GLIBC__
    // Both sides work in memory that the process already has: what a page fault costs is not ours.
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
#endif
    table::head("the model (ns or bytes)");
    constexpr std::array<std::size_t, 5> kSizes = {66, 1'000, 10'000, 107'532, 1'000'000};
    for (const std::size_t lines : kSizes) {
        printRatios(lines, corpus::Times::Usual);
        printMemory(lines, corpus::Times::Usual);
    }
    std::printf("one to five time tags, each equally often\n");
    printRatios(107'532, corpus::Times::Many);
    printMemory(107'532, corpus::Times::Many);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
