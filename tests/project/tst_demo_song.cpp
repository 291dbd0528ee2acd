// SPDX-License-Identifier: MIT
// The demonstration song and its table of onsets speak of the same lines.
#include "project/IncludeRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <attachedpictureframe.h>
#include <filesystem>
#include <id3v2tag.h>
#include <mpegfile.h>
#include <sstream>
#include <string>
#include <unsynchronizedlyricsframe.h>
#include <vector>

using testing::Each;
using testing::Not;
using testing::SizeIs;

namespace {

const std::filesystem::path kFolder = TQLRC_SOURCE_DIR "/src/host/demo";
const std::filesystem::path kSong = kFolder / "the-star.mp3";

struct Onset
{
    std::size_t row = 0; ///< from 1
    double seconds = 0.0;
    std::string text;
};

std::vector<std::string> linesOf(const std::string &text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<Onset> onsets()
{
    std::vector<Onset> found;
    std::vector<std::string> lines = linesOf(project::contentsOf(kFolder / "the-star.onsets.tsv"));
    lines.erase(lines.begin());
    for (const std::string &line : lines) {
        std::istringstream in(line);
        Onset &onset = found.emplace_back();
        in >> onset.row >> onset.seconds >> std::ws;
        std::getline(in, onset.text);
    }
    return found;
}

class DemoSong : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_file.isValid() && m_file.hasID3v2Tag());
        const auto &lyrics = m_file.ID3v2Tag()->frameList("USLT");
        ASSERT_EQ(lyrics.size(), 1U);
        m_lines = linesOf(lyrics.front()->toString().to8Bit(true));
    }

    TagLib::MPEG::File m_file{kSong.c_str()};
    std::vector<std::string> m_lines;
};

TEST_F(DemoSong, IsSmallAndNamed)
{
    EXPECT_LT(std::filesystem::file_size(kSong), 500'000U);
    EXPECT_EQ(m_file.tag()->title(), TagLib::String("The Star"));
    EXPECT_EQ(m_file.tag()->artist(), TagLib::String("Traditional"));
    EXPECT_FALSE(m_file.tag()->album().isEmpty());
    EXPECT_EQ(m_file.ID3v2Tag()->frameList("APIC").size(), 1U);
}

TEST_F(DemoSong, CarriesWordsWithoutTimes)
{
    ASSERT_THAT(m_lines, SizeIs(12));
    EXPECT_THAT(m_lines, Each(Not(testing::ContainsRegex("\\[[0-9]"))));
}

TEST_F(DemoSong, EveryWordedLineHasAnOnset)
{
    const std::vector<Onset> table = onsets();
    ASSERT_THAT(table, SizeIs(m_lines.size()));
    for (std::size_t index = 0; index < table.size(); ++index) {
        EXPECT_EQ(table[index].row, index + 1);
        EXPECT_EQ(table[index].text, m_lines[index]);
    }
}

TEST_F(DemoSong, OnsetsLeaveTimeForAKeyAndLieInTheMusic)
{
    double before = 0.0;
    for (const Onset &onset : onsets()) {
        EXPECT_GT(onset.seconds, before + 2.0) << onset.text;
        before = onset.seconds;
    }
    EXPECT_LT(before + 2.0, m_file.audioProperties()->lengthInMilliseconds() / 1000.0);
}

} // namespace
