// SPDX-License-Identifier: MIT
#include "media/tags/FieldSet.h"
#include "media/tags/LyricEdits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using tags::FieldSet;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kTimed = "[ti:x]\n[00:01.00]first\n[00:02.50]<00:02.50>se<00:02.80>cond\n";

tags::LyricField field(
    const char *name, std::string text, const char *language = "", bool synchronised = false)
{
    return {"ID3v2", name, language, "", std::move(text), synchronised};
}

std::vector<bool> stale(const FieldSet &set)
{
    std::vector<bool> out;
    for (const FieldSet::Entry &entry : set.entries())
        out.push_back(entry.isStale);
    return out;
}

TEST(FieldSet, TellsWhichCountsAndWhichAreStale)
{
    const FieldSet set(
        {field("USLT", " first \r\n\r\nsecond", "eng"), field("USLT", "first\nsekond", "eng"),
            field("SYLT", "[00:01.00]first\n[00:02.50]<00:02.50>se<00:02.80>cond\n", "eng", true),
            field("TXXX:LYRICS", kTimed), field("TXXX:SYNCEDLYRICS", "[00:01.00]first\n")},
        {"USLT"});
    EXPECT_EQ(set.lyric(), "[00:01.00]first\n[00:02.50]<00:02.50>se<00:02.80>cond\n");
    EXPECT_THAT(stale(set), ElementsAre(false, true, false, false, true));
    EXPECT_TRUE(set.entries()[2].isLyric);
    EXPECT_FALSE(set.entries()[0].hasTimes);
    EXPECT_TRUE(set.entries()[3].hasTimes);
}

TEST(FieldSet, TranslationsAndOtherVersionsAreNotStale)
{
    tags::LyricField live = field("USLT", "[00:01.00]live words", "jpn");
    live.description = "live";
    const FieldSet set({field("USLT", "[00:01.00]kirakira", "jpn"), field("USLT", "[00:01.00]Twinkle", "eng"),
                           live, field("USLT", "[00:01.00]old", "XXX"), field("TXXX:LYRICS", "old words")},
        {"USLT"});
    EXPECT_THAT(stale(set), ElementsAre(false, false, false, true, true));
    std::vector<std::size_t> changed;
    for (const tags::FieldEdit &edit : set.madeEqual())
        changed.push_back(edit.place.field.value());
    EXPECT_THAT(changed, ElementsAre(3U, 4U));
}

TEST(FieldSet, WhatCannotBeComparedIsNeverTakenOut)
{
    const FieldSet other({field("LYRICS", "[00:12:34]a"), field("UNSYNCEDLYRICS", "a"),
                             field("SYNCEDLYRICS", "[00:12:34]other")},
        {"LYRICS"});
    EXPECT_THAT(stale(other), ElementsAre(false, false, true));
    const FieldSet mixed({field("LYRICS", "[00:12.34]a\n[Chorus]\nsung but untimed\n[01:02:03.45]late"),
                             field("UNSYNCEDLYRICS", "a\n[Chorus]\nsung but untimed\nlate")},
        {"LYRICS"});
    EXPECT_THAT(stale(mixed), ElementsAre(false, false));
    const FieldSet emptied({field("LYRICS", "[00:12.34]"), field("UNSYNCEDLYRICS", "words")}, {"LYRICS"});
    EXPECT_TRUE(emptied.madeEqual().empty());
}

TEST(FieldSet, FieldsWithoutAWordAreNotStale)
{
    EXPECT_THAT(
        stale(FieldSet({field("USLT", ""), field("TXXX:LYRICS", "")}, {})), ElementsAre(false, false));
}

TEST(FieldSet, OneFieldOrNoneIsNeverStale)
{
    EXPECT_TRUE(FieldSet({}, {"USLT"}).entries().empty());
    EXPECT_EQ(FieldSet({}, {"USLT"}).lyric(), "");
    EXPECT_THAT(stale(FieldSet({field("USLT", kTimed)}, {})), ElementsAre(false));
}

TEST(FieldSet, MadeEqualGivesEachItsKindAndLeavesWhatSaysTheSame)
{
    const FieldSet set(
        {field("USLT", "alt", "eng"), field("USLT", kTimed, "eng"),
            field("SYLT", "[00:01.00]old\n", "eng", true), field("TXXX:LYRICS", "first\n\nsecond\n"),
            field("TXXX:SYNCEDLYRICS", "[00:09.00]old")},
        {"USLT"});
    std::vector<tags::LyricField> after;
    for (const FieldSet::Entry &entry : set.entries())
        after.push_back(entry.field);
    for (const tags::FieldEdit &edit : set.madeEqual())
        after[edit.place.field.value()].text = tags::heldText(after, edit.place, edit.text);
    EXPECT_EQ(after[0].text, "first\nsecond");
    EXPECT_EQ(after[1].text, kTimed);
    EXPECT_EQ(after[2].text, "[00:01.00]first\n[00:02.50]<00:02.50>se<00:02.80>cond\n");
    EXPECT_EQ(after[3].text, "first\n\nsecond\n") << "it said the same";
    EXPECT_EQ(after[4].text, kTimed);
    const FieldSet equal(after, {"USLT"});
    EXPECT_THAT(stale(equal), ElementsAre(false, false, false, false, false));
    EXPECT_TRUE(equal.madeEqual().empty());
}

TEST(FieldSet, RepeatedLinesAreWordsAtEachOfTheirTimes)
{
    EXPECT_THAT(tags::sungWords("[00:05.00][00:01.00]chorus\n[00:03.00]verse"),
        ElementsAre("chorus", "verse", "chorus"));
    EXPECT_THAT(tags::sungWords("  one\r\rtwo \n"), ElementsAre("one", "two"));
    EXPECT_THAT(tags::sungWords(""), ElementsAre());
}

TEST(FieldSet, FindsByNumberNameAndLanguage)
{
    const FieldSet set({field("USLT", "a", "eng"), field("USLT", "b", "deu"), field("TXXX:LYRICS", "c")},
        {"USLT", "TXXX:SYNCEDLYRICS"});
    EXPECT_EQ(set.find("2").value().field, 1U);
    EXPECT_EQ(set.find("uslt:DEU").value().field, 1U);
    EXPECT_EQ(set.find("USLT (deu)").value().field, 1U);
    EXPECT_EQ(set.find("txxx:lyrics").value().field, 2U);
    const auto added = set.find("txxx:syncedlyrics");
    EXPECT_FALSE(added.value().field.has_value());
    EXPECT_EQ(added.value().newName, "TXXX:SYNCEDLYRICS");
    ASSERT_FALSE(set.find("USLT").ok());
    EXPECT_THAT(set.find("USLT").failure().message.english(), HasSubstr("1 USLT (eng), 2 USLT (deu)"));
    for (const char *wrong : {"4", "0", "-1", "", "1x", "LYRICS"}) {
        ASSERT_FALSE(set.find(wrong).ok()) << wrong;
        EXPECT_THAT(
            set.find(wrong).failure().message.english(), HasSubstr("can get USLT, TXXX:SYNCEDLYRICS"));
    }
}

TEST(FieldSet, ChangesAreListedInTheOrderOfTheFields)
{
    const FieldSet set({field("USLT", "a"), field("TXXX:LYRICS", "b")}, {"USLT"});
    const auto changes = set.changes({{{{}, ""}, "new"}, {{1, ""}, ""}, {{0, ""}, "a"}});
    ASSERT_EQ(changes.size(), 2U);
    EXPECT_EQ(changes[0].field.name, "TXXX:LYRICS");
    EXPECT_EQ(changes[0].after, "");
    EXPECT_FALSE(changes[0].isNew);
    EXPECT_EQ(changes[1].field.name, "USLT");
    EXPECT_TRUE(changes[1].isNew);
    EXPECT_EQ(changes[1].after, "new");
}

TEST(FieldSet, WhatASynchronisedFieldCannotHoldIsNotAmongTheChanges)
{
    const FieldSet set({field("SYLT", "[00:01.00]a\n", "eng", true)}, {"USLT", "SYLT"});
    EXPECT_TRUE(set.changes({{{0, ""}, "[ti:x]\n[00:01.00]a\nuntimed"}}).empty());
    const auto added = set.changes({{{{}, "SYLT"}, kTimed}});
    ASSERT_EQ(added.size(), 1U);
    EXPECT_EQ(added[0].after, "[00:01.00]first\n[00:02.50]<00:02.50>se<00:02.80>cond\n");
}

TEST(FieldSet, LabelsSayWhatTellsFieldsApart)
{
    EXPECT_EQ(tags::labelOf({"ID3v2", "USLT", "eng", "live", "", false}), "USLT (eng) \"live\"");
    EXPECT_EQ(tags::labelOf({"ID3v2", "TXXX:LYRICS", "", "LYRICS", "", false}), "TXXX:LYRICS");
}

TEST(FieldSet, ASynchronisedFieldThatHoldsAllItCanIsNotStale)
{
    const std::string lyric = "[ti:x]\n[00:01.00]one\nno time\n";
    const tags::FieldSet set(
        {{"ID3v2", "USLT", "eng", "", lyric}, {"ID3v2", "SYLT", "eng", "", "[00:01.00]one\n", true}}, {});
    EXPECT_FALSE(set.entries()[0].isStale);
    EXPECT_FALSE(set.entries()[1].isStale);
}

} // namespace
