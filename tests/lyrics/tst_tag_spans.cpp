// SPDX-License-Identifier: MIT
#include "lyrics/Generator.h"
#include "lyrics/SongSupport.h"
#include "lyrics/TagSpans.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace {

using generate::Random;
using lyrics::TagKind;
using lyrics::TagSpan;
using lyrics::tagSpans;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(TagSpans, OfTimesAndWordStamps)
{
    EXPECT_THAT(tagSpans(" [00:01.00] [0:02]a <00:03.00>b[00:04.00]", false).spans,
        ElementsAre(TagSpan{1, 11, TagKind::Time}, TagSpan{12, 18, TagKind::Time},
            TagSpan{20, 30, TagKind::Word}, TagSpan{31, 41, TagKind::Word}));
    EXPECT_THAT(tagSpans("<b> 1 < 2 <3> [Chorus] <00:01.00", false).spans, IsEmpty());
}

TEST(TagSpans, OfIdTagsInOneLine)
{
    EXPECT_THAT(tagSpans("[ti:a] [offset:+5][00:01.00]x", true).spans,
        ElementsAre(TagSpan{0, 6, TagKind::Id}, TagSpan{7, 18, TagKind::Id}, TagSpan{18, 28, TagKind::Time}));
    EXPECT_THAT(tagSpans("[ti:a] b", true).spans, ElementsAre(TagSpan{0, 6, TagKind::Id}));
}

TEST(TagSpans, AnUnknownWordIsAKeyBeforeTheLyric)
{
    EXPECT_THAT(tagSpans("[x:y]", false).spans, ElementsAre(TagSpan{0, 5, TagKind::Id}));
    EXPECT_THAT(tagSpans("[x:y]", true).spans, IsEmpty());
    EXPECT_FALSE(tagSpans("[x:y] ", false).lyricSeen);
    EXPECT_FALSE(tagSpans("  ", false).lyricSeen);
    EXPECT_TRUE(tagSpans("[x:y] z", false).lyricSeen);
    EXPECT_TRUE(tagSpans("[00:01.00]", false).lyricSeen);
    EXPECT_TRUE(tagSpans("", true).lyricSeen);
}

TEST(TagSpans, AreWhatTheDocumentReads)
{
    Random random(71);
    const auto count = [](const lyrics::TagSpans &found, TagKind kind) {
        return std::count_if(found.spans.begin(), found.spans.end(),
            [kind](const TagSpan &span) { return span.kind == kind; });
    };
    std::ptrdiff_t tags = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string line;
        for (std::size_t piece = random.below(6); piece > 0; --piece)
            line += random.oneOf(generate::kPieces);
        if (line.starts_with("\xEF\xBB\xBF"))
            continue;
        const bool lyricSeen = random.oneIn(2);
        const RBEditSong song = songs::built((lyricSeen ? "lyric\n" : "\n") + line);
        const lyrics::TagSpans found = tagSpans(line, lyricSeen);
        std::ptrdiff_t times = 0;
        std::ptrdiff_t idTags = 0;
        for (const RBSongLine &read : song.aryLines()) {
            times += static_cast<std::ptrdiff_t>(read.aryTimes().size());
            idTags += read.isProperty() || read.isOtherTag();
        }
        ASSERT_EQ(count(found, TagKind::Time), times) << line;
        ASSERT_EQ(count(found, TagKind::Id), idTags) << line;
        tags += times + idTags;
    }
    EXPECT_GT(tags, 5'000);
}

} // namespace
