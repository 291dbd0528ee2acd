// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/Edits.h"
#include "media/tags/LyricEdits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using tags::FieldEdit;
using tags::LyricField;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

LyricField plain(const std::string &text)
{
    return {"ID3v2", "USLT", "eng", "", text, false};
}

LyricField synced(const std::string &text)
{
    return {"ID3v2", "SYLT", "eng", "", text, true};
}

/// Place and text of each edit, in words.
std::vector<std::string> edits(const std::vector<LyricField> &fields, std::string_view lyric)
{
    std::vector<std::string> out;
    const auto made = tags::lyricEdits(fields, lyric);
    EXPECT_TRUE(made.ok());
    for (const FieldEdit &edit : made.ok() ? made.value() : std::vector<FieldEdit>()) {
        EXPECT_EQ(edit.place.newName, "");
        out.push_back((edit.place.field ? std::to_string(*edit.place.field) : "new") + ' ' + edit.text);
    }
    return out;
}

const std::string kOld = "[00:01.00]old\n";
const std::string kNew = "[00:02.00]new\n";
const std::string kMore = "[ti:x]\n" + kNew; // more than times can hold

TEST(LyricEdits, WithoutALyricTheUsualFieldIsAdded)
{
    EXPECT_THAT(edits({}, kNew), UnorderedElementsAre("new " + kNew));
    EXPECT_THAT(edits({}, ""), IsEmpty());
    EXPECT_THAT(edits({plain(""), synced("")}, kMore), UnorderedElementsAre("new " + kMore));
}

TEST(LyricEdits, TheSameLyricChangesNothing)
{
    EXPECT_THAT(edits({plain("words"), plain(kOld)}, kOld), IsEmpty());
    EXPECT_THAT(edits({synced(kOld)}, kOld), IsEmpty());
}

TEST(LyricEdits, TheLyricAndItsCopiesAreWrittenTheOthersStay)
{
    EXPECT_THAT(edits({plain("words"), plain(kOld), plain("[00:03.00]stale"), plain(kOld)}, kMore),
        UnorderedElementsAre("3 " + kMore, "1 " + kMore));
    EXPECT_THAT(edits({plain("words"), plain("words "), plain("words")}, "more"),
        UnorderedElementsAre("2 more", "0 more"));
}

TEST(LyricEdits, ASynchronisedCopyGetsWhatItCanHold)
{
    EXPECT_THAT(edits({plain(kOld), synced(kOld)}, kMore), UnorderedElementsAre("1 " + kNew, "0 " + kMore));
    EXPECT_THAT(edits({plain(kOld), synced(kOld)}, "words"), UnorderedElementsAre("1 ", "0 words"));
    EXPECT_THAT(
        edits({plain(kOld), synced(kOld)}, "[ti:x]\n" + kOld), UnorderedElementsAre("0 [ti:x]\n" + kOld));
}

TEST(LyricEdits, ASynchronisedLyricThatHoldsAllStaysAlone)
{
    EXPECT_THAT(edits({plain("words"), synced(kOld)}, kNew), UnorderedElementsAre("1 " + kNew));
    EXPECT_THAT(edits({synced(kOld), plain(kOld)}, kNew), UnorderedElementsAre("1 " + kNew, "0 " + kNew));
}

TEST(LyricEdits, WhatASynchronisedLyricCannotHoldGoesIntoAFieldMore)
{
    EXPECT_THAT(
        edits({plain("words"), synced(kOld)}, kMore), UnorderedElementsAre("1 " + kNew, "new " + kMore));
    EXPECT_THAT(edits({synced(kOld)}, "[ti:x]\n" + kOld), UnorderedElementsAre("new [ti:x]\n" + kOld));
    EXPECT_THAT(edits({synced(kOld)}, "words"), UnorderedElementsAre("0 ", "new words"));
    EXPECT_THAT(edits({synced(kOld), plain(kOld)}, kMore),
        UnorderedElementsAre("1 " + kMore, "0 " + kNew, "new " + kMore));
}

TEST(LyricEdits, AFixedFieldStaysAndTheLyricGoesIntoAnother)
{
    LyricField fixed = synced(kOld);
    fixed.isFixed = true;
    EXPECT_THAT(edits({fixed}, kNew), UnorderedElementsAre("new " + kNew));
    EXPECT_THAT(edits({plain(kOld), fixed}, kNew), UnorderedElementsAre("0 " + kNew));
    EXPECT_THAT(edits({fixed}, ""), UnorderedElementsAre());
}

TEST(LyricEdits, WhatWouldNotBeReadAsTheLyricIsRefused)
{
    const auto isRefused = [](const std::vector<LyricField> &fields, std::string_view lyric) {
        return !tags::lyricEdits(fields, lyric).ok();
    };
    EXPECT_TRUE(isRefused({plain(kOld), plain("[00:05.00]rival")}, "words"));
    EXPECT_TRUE(isRefused({plain("words"), plain(kOld)}, "other words"));
    EXPECT_FALSE(isRefused({plain("words"), plain(kOld)}, kNew));
    EXPECT_FALSE(isRefused({plain("words"), plain("more words")}, "other words"));
    EXPECT_FALSE(isRefused({plain("words"), plain(kOld)}, ""));
}

TEST(LyricEdits, AnEmptyLyricTakesTheLyricAndItsCopiesAway)
{
    EXPECT_THAT(edits({plain("words"), plain(kOld), synced(kOld)}, ""), UnorderedElementsAre("2 ", "1 "));
    EXPECT_THAT(edits({synced(kOld)}, ""), UnorderedElementsAre("0 "));
}

/// The file after all edits, one after the other, and the lyric that is read from it then.
std::string lyricAfter(std::string bytes, std::string_view lyric)
{
    const auto made = tags::lyricEdits(edits::fieldsOf(bytes), lyric);
    EXPECT_TRUE(made.ok());
    for (const FieldEdit &edit : made.ok() ? made.value() : std::vector<FieldEdit>())
        bytes = edits::edited(bytes, edit.place, edit.text);
    const std::vector<LyricField> fields = edits::fieldsOf(bytes);
    const std::optional<std::size_t> index = tags::lyricFieldIndex(fields);
    return index ? fields[*index].text : "";
}

TEST(LyricEdits, WhateverASynchronisedLyricBecomesReadsBack)
{
    const std::string sylt("\3eng\2\1\0old\0\0\0\1\0", 15);
    const std::string usual = samples::uslt("eng", "", "just words");
    const std::string sound = samples::contents(samples::sample("untagged.mp3"));
    for (const int version : {3, 4}) {
        for (const auto &frames : {std::vector<std::pair<std::string, std::string>>{{"SYLT", sylt}},
                 {{"USLT", usual}, {"SYLT", sylt}}}) {
            const std::string file = samples::id3v2(version, frames) + sound;
            for (const auto &[name, text] : edits::texts())
                EXPECT_EQ(lyricAfter(file, text), text) << name;
            EXPECT_EQ(lyricAfter(file, ""), frames.size() == 1 ? "" : "just words");
        }
    }
}

} // namespace
