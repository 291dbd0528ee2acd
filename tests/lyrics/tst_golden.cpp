// SPDX-License-Identifier: MIT
//
// Texts named by what is odd about them, with what we make of them beside them: the lines, and the text when
// all times are moved by a second and a half. The target accept_lyrics_golden writes new results.

#include "lyrics/SongSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::string contents(const fs::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Everything but printable ASCII as \xHH, so that no odd byte hides in a diff.
std::string visible(std::string_view text)
{
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F && c != '\\') {
            out += c;
            continue;
        }
        out += "\\x";
        out += kHex[byte >> 4];
        out += kHex[byte & 0xF];
    }
    return out;
}

std::string dumped(const RBSongLine &line)
{
    std::string out = line.isOtherTag() ? "other" : "";
    if (line.isProperty())
        out.append("tag ").append(line.propertyStr());
    for (const std::int64_t millis : line.aryTimes())
        out.append(out.empty() ? "" : " ").append(std::to_string(millis));
    return out.append(" | ").append(visible(line.lineText())).append("\n");
}

std::string dumped(RBEditSong song)
{
    std::string out;
    for (const RBSongLine &line : std::as_const(song).aryLines())
        out += dumped(line);
    for (RBSongLine &line : song.aryLines())
        line.shiftAllTime(1'500);
    out += "-- moved by 1500 ms --\n";
    const std::string text = songs::written(song);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
        out += visible(std::string_view(text).substr(at, end - at)) + "\n";
        at = end;
    }
    return out;
}

std::vector<fs::path> inputs()
{
    std::vector<fs::path> paths;
    for (const fs::directory_entry &entry : fs::directory_iterator(LYRICS_GOLDEN_DIR)) {
        if (entry.path().extension() == ".lrc")
            paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

class Golden : public testing::TestWithParam<fs::path>
{ };

TEST_P(Golden, IsReadAndWrittenAsBefore)
{
    const std::string text = contents(GetParam());
    RBEditSong song = songs::built(text);
    EXPECT_EQ(songs::written(song), text);
    const fs::path expected = fs::path(GetParam()).replace_extension(".dump");
    if (std::getenv("TQLRC_ACCEPT"))
        std::ofstream(expected, std::ios::binary) << dumped(song);
    EXPECT_EQ(dumped(song), contents(expected));
}

INSTANTIATE_TEST_SUITE_P(All, Golden, testing::ValuesIn(inputs()), [](const auto &input) {
    std::string name = input.param.stem().string();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

} // namespace
