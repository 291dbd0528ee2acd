// SPDX-License-Identifier: MIT
//
// How long the model takes: the table of ratios (ModelTable.cpp), how it grows with the lines, and what
// Google Benchmark says of it. `--write-corpora <folder>` writes the lyrics that all of this is measured on,
// and measures nothing.

#include "Table.h"
#include "lyrics/Corpus.h"
#include "lyrics/Growth.h"
#include "lyrics/ModelTable.h"
#include "lyrics/RBEditSong.h"
#include "lyrics/RBPreviewSong.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

constexpr std::array<std::size_t, 5> kSizes = {66, 1'000, 10'000, 107'532, 1'000'000};
/// That of the lyric with one to five time tags, each equally often.
constexpr std::size_t kManySize = 107'532;

bool write(const std::filesystem::path &file, const std::string &text)
{
    std::ofstream out(file, std::ios::binary);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.close();
    if (!out)
        std::fprintf(stderr, "cannot write %s\n", file.c_str());
    return static_cast<bool>(out);
}

/// False when one of them could not be written.
bool writeCorpora(const std::filesystem::path &folder)
{
    std::error_code refused;
    std::filesystem::create_directories(folder, refused);
    bool areWritten = true;
    for (const std::size_t lines : kSizes)
        areWritten &= write(
            folder / ("usual-" + std::to_string(lines) + ".lrc"), corpus::song(lines, corpus::Times::Usual));
    return areWritten
        && write(folder / ("many-" + std::to_string(kManySize) + ".lrc"),
            corpus::song(kManySize, corpus::Times::Many));
}

void printTables()
{
    table::head("the model (ns or bytes)");
    Growth growth;
    for (const std::size_t lines : kSizes) {
        // What a song of 66 lines costs is mostly what a call costs, and says nothing of the growth.
        model::printRatios(lines, corpus::Times::Usual, lines >= 1'000 ? &growth : nullptr);
        model::printMemory(lines, corpus::Times::Usual);
    }
    std::printf("one to five time tags, each equally often\n");
    model::printRatios(kManySize, corpus::Times::Many, nullptr);
    model::printMemory(kManySize, corpus::Times::Many);
    growth.print();
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
    if (argc == 3 && std::string_view(argv[1]) == "--write-corpora")
        return writeCorpora(argv[2]) ? 0 : 1;
#ifdef __GLIBC__
    // Both sides work in memory that the process already has: what a page fault costs is not ours.
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
#endif
    printTables();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
