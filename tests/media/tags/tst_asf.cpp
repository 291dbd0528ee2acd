// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/AudioTags.h"
#include "media/tags/Edits.h"
#include "media/tags/HandMade.h"
#include "media/tags/SaveLyric.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace samples;
using namespace samples::AsfGuids;
using edits::edited;
using edits::field;
using edits::fieldsOf;
using edits::newField;
using edits::refusalOf;
using tags::LyricField;
using tags::Reason;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr unsigned kText = 0;
constexpr unsigned kBytes = 1;

LyricField lyric(const std::string &text, const std::string &name = "WM/Lyrics")
{
    return {"ASF", name, "", "", text, false};
}

std::string extended(const std::vector<std::string> &all)
{
    return asfObject(kExtendedContent, attributes(all));
}

std::string extension(const std::string &objects)
{
    return asfObject(kExtension, asfExtension(objects));
}

std::string text(const std::string &name, const std::string &value)
{
    return extendedAttribute(name, kText, utf16(value));
}

std::string libraryText(unsigned language, unsigned stream, const std::string &value)
{
    return libraryAttribute(language, stream, "WM/Lyrics", kText, utf16(value));
}

/// A file whose header has these objects besides those that every file has.
std::string wma(const std::vector<std::string> &objects)
{
    return asfFile(contents(sample("untagged.wma")), objects);
}

TEST(Asf, EveryTextComesAndGoes)
{
    const std::string library = asfObject(kMetadataLibrary, attributes({libraryText(3, 1, "old")}));
    const std::string metadata = asfObject(kMetadata, attributes({libraryText(0, 1, "old")}));
    const std::string bases[] = {wma({extended({text("WM/Mood", "calm")}), extension("")}),
        wma({extension(library)}), wma({extension(metadata)})};
    for (const std::string &base : bases) {
        const bool isNew = fieldsOf(base).empty();
        for (const auto &[what, words] : edits::texts()) {
            SCOPED_TRACE(what);
            const std::string with = edited(base, isNew ? newField() : field(0), words);
            EXPECT_THAT(fieldsOf(with), ElementsAre(lyric(words)));
            if (isNew) {
                EXPECT_EQ(edited(with, field(0), ""), base);
            }
        }
    }
}

TEST(Asf, AnEditChangesItsAttributeAndNothingElse)
{
    const auto file = [](const std::string &words) {
        return wma({extended({text("WM/Mood", "calm"), text("WM/Lyrics", words),
                        extendedAttribute("IsVBR", 2, little(1, 4)), extendedAttribute("odd", 9, "x")}),
            extension(asfObject(kPadding, std::string(50, 'p'))
                + asfObject(kMetadata, attributes({libraryAttribute(0, 2, "Other", 3, little(7, 4))})))});
    };
    EXPECT_EQ(edited(file("old"), field(0), "[00:01.00]a\r\nb"), file("[00:01.00]a\r\nb"));
}

TEST(Asf, LanguageAndStreamStay)
{
    const auto file = [](const std::string &first, const std::string &second) {
        return wma({extension(asfObject(kMetadata, attributes({libraryText(0, 1, first)}))
            + asfObject(kMetadataLibrary,
                attributes(
                    {libraryText(2, 5, second), libraryAttribute(1, 0, "WM/Mood", kText, utf16("m"))})))});
    };
    EXPECT_THAT(fieldsOf(file("a", "b")), ElementsAre(lyric("a"), lyric("b")));
    EXPECT_EQ(edited(file("a", "b"), field(0), "new"), file("new", "b"));
    EXPECT_EQ(edited(file("a", "b"), field(1), "new"), file("a", "new"));
}

TEST(Asf, ANewLyricGoesToTheExtendedContent)
{
    EXPECT_EQ(edited(wma({extended({text("WM/Mood", "m")})}), newField(), "words"),
        wma({extended({text("WM/Mood", "m"), text("WM/Lyrics", "words")})}));
    EXPECT_EQ(edited(wma({extension("")}), newField("WM/Lyrics"), "words"),
        wma({extension(""), extended({text("WM/Lyrics", "words")})}));
}

TEST(Asf, LyricOfMoreThan64KiBGoesToTheMetadataLibrary)
{
    const std::string fits(32766, 'x');
    const std::string tooLong(32767, 'x');
    const std::string empty = wma({extension("")});
    EXPECT_EQ(edited(empty, newField(), fits), wma({extension(""), extended({text("WM/Lyrics", fits)})}));
    const std::string moved
        = wma({extension(asfObject(kMetadataLibrary, attributes({libraryText(0, 0, tooLong)})))});
    EXPECT_EQ(edited(empty, newField(), tooLong), moved);
    EXPECT_EQ(edited(wma({extension(""), extended({text("WM/Lyrics", "short")})}), field(0), tooLong), moved);
    EXPECT_EQ(edited(moved, field(0), ""), empty);
    const std::string metadata = asfObject(kMetadata, attributes({libraryText(0, 4, "short")}));
    EXPECT_EQ(edited(wma({extension(metadata)}), field(0), tooLong),
        wma({extension(asfObject(kMetadataLibrary, attributes({libraryText(0, 4, tooLong)})))}));
}

TEST(Asf, LyricThatNothingCanHoldIsRefused)
{
    const tags::Outcome<std::string> outcome
        = edits::tried(wma({extended({text("WM/Lyrics", "short")})}), field(0), std::string(32767, 'x'));
    ASSERT_FALSE(outcome.ok());
    EXPECT_EQ(outcome.failure().reason, Reason::TooLarge);
    EXPECT_THAT(outcome.failure().message.english(), HasSubstr("32,766"));
    EXPECT_EQ(refusalOf(wma({extension("")}), newField(), std::string(17U << 20, 'x')), Reason::TooLarge);
    std::vector<std::string> many(0xFFFF, text("a", "b"));
    EXPECT_EQ(refusalOf(wma({extended(many)}), newField(), "one more"), Reason::TooLarge);
}

TEST(Asf, TheSizeOfTheFileIsPutRight)
{
    const std::string right = wma({extension("")}); // asfFile() names the size of what it makes
    EXPECT_EQ(
        edited(right, newField(), "words"), wma({extension(""), extended({text("WM/Lyrics", "words")})}));
    std::string wrong = right;
    const std::size_t at = wrong.find(std::string("\xA1\xDC\xAB\x8C", 4)) + 40;
    wrong.replace(at, 8, little(4711, 8));
    const std::string after = edited(wrong, newField(), "words");
    EXPECT_EQ(after.substr(at, 8), little(4711, 8));
}

/// The value of a binary synchronised lyric: pieces with their times, as published.
std::string synced(const std::vector<std::pair<std::string, unsigned>> &pieces, char unit = 2, char kind = 1,
    const std::string &description = "by hand")
{
    std::string joined;
    for (const auto &[words, time] : pieces)
        joined += utf16(words) + little(time, 4);
    return std::string{unit, kind} + little(joined.size(), 4) + utf16(description) + joined;
}

std::string syncedAttribute(const std::string &value)
{
    return extendedAttribute("WM/Lyrics_Synchronised", kBytes, value);
}

TEST(Asf, BinarySynchronisedLyricIsReadAndWritten)
{
    const auto file = [](const std::string &value) {
        return wma({extended({syncedAttribute(value), text("WM/Mood", "calm")})});
    };
    const std::string before = file(synced({{"one", 1000}, {"two", 2500}}));
    const LyricField field0
        = {"ASF", "WM/Lyrics_Synchronised", "", "by hand", "[00:01.00]one\n[00:02.50]two\n", true};
    EXPECT_THAT(fieldsOf(before), ElementsAre(field0));
    EXPECT_EQ(edited(before, field(0), "[ti:x]\n[00:01.00]one\n[00:03.00]three\n"),
        file(synced({{"one", 1000}, {"three", 3000}})));
    EXPECT_EQ(edited(before, field(0), ""), wma({extended({text("WM/Mood", "calm")})}));
}

TEST(Asf, LinesOfABinarySynchronisedLyricAreToldApartAsTheyWere)
{
    const auto file = [](const std::string &value) { return wma({extended({syncedAttribute(value)})}); };
    const std::string before = file(synced({{"la ", 1000}, {"la", 1500}, {"\nlo", 2000}}));
    EXPECT_THAT(fieldsOf(before).front().text, "[00:01.00]<00:01.00>la <00:01.50>la\n[00:02.00]lo\n");
    EXPECT_EQ(edited(before, field(0), "[00:01.00]<00:01.00>la <00:01.50>la\n[00:04.00]lo\n"),
        file(synced({{"la ", 1000}, {"la", 1500}, {"\nlo", 4000}})));
}

TEST(Asf, ANewBinarySynchronisedLyricHoldsTimedLinesAlone)
{
    const std::string without = wma({extended({text("WM/Mood", "calm")})});
    const std::string with
        = edited(without, newField("WM/Lyrics_Synchronised"), "[ar:x]\n[00:01.00]\u8D70\nno time\n");
    EXPECT_THAT(fieldsOf(with),
        ElementsAre(LyricField{"ASF", "WM/Lyrics_Synchronised", "", "", "[00:01.00]\u8D70\n", true}));
    EXPECT_EQ(edited(with, field(0), ""), without);
}

TEST(Asf, BinarySynchronisedLyricThatCannotBeUnderstoodIsKeptAndIsNoField)
{
    const std::string good = synced({{"one", 1000}});
    const std::string values[] = {
        std::string("\1\2\0\0x\0\0\0", 8), // too short
        synced({{"one", 1000}}, 1), // in frames, of what length nobody knows
        synced({{"one", 1000}}, 2, 5), // chords
        good + "x", good.substr(0, good.size() - 1), // of another length than it says
        synced({}).substr(0, 6), // no description
    };
    for (const std::string &value : values) {
        SCOPED_TRACE(testing::PrintToString(value));
        const std::string binary = syncedAttribute(value);
        const std::string file = wma({extended({binary, text("WM/Lyrics", "words")})});
        EXPECT_THAT(fieldsOf(file), ElementsAre(lyric("words")));
        EXPECT_EQ(edited(file, field(0), "other"), wma({extended({binary, text("WM/Lyrics", "other")})}));
        EXPECT_EQ(edited(file, field(0), ""), wma({extended({binary})}));
    }
}

TEST(Asf, SynchronisedLyricThatIsTextIsAField)
{
    const auto file = [](const std::string &words) {
        return wma({extended({text("WM/Lyrics_Synchronised", words), text("WM/Lyrics", "plain")})});
    };
    EXPECT_THAT(fieldsOf(file("[00:01.00]a")),
        ElementsAre(lyric("plain"), lyric("[00:01.00]a", "WM/Lyrics_Synchronised")));
    EXPECT_EQ(edited(file("[00:01.00]a"), field(1), "[00:02.00]b"), file("[00:02.00]b"));
    EXPECT_THAT(edits::newNamesOf(file("x")), ElementsAre("WM/Lyrics", "WM/Lyrics_Synchronised"));
}

TEST(Asf, BytesAfterTheLastAttributeStay)
{
    const auto object = [](const std::vector<std::string> &all) {
        return asfObject(kExtendedContent, attributes(all) + "slack");
    };
    EXPECT_EQ(edited(wma({object({text("WM/Lyrics", "a")})}), field(0), "bc"),
        wma({object({text("WM/Lyrics", "bc")})}));
    EXPECT_EQ(edited(wma({object({text("WM/Lyrics", "a")})}), field(0), ""), wma({object({})}));
}

TEST(Asf, SignedHeaderIsLeftAlone)
{
    const std::string file
        = wma({extended({text("WM/Lyrics", "a")}), asfObject(kSignature, std::string(40, 's'))});
    EXPECT_EQ(refusalOf(file, field(0), "b"), Reason::Unsupported);
}

TEST(Asf, WhatIsNoTextIsRefused)
{
    EXPECT_EQ(refusalOf(wma({}), newField(), "\xFF"), Reason::NotText);
    EXPECT_EQ(refusalOf(wma({}), newField(), std::string("a\0b", 3)), Reason::NotText);
}

TEST(Asf, TextWithoutTerminatorIsWhole)
{
    const std::string wide = utf16("words");
    const std::string file
        = wma({extended({extendedAttribute("WM/Lyrics", kText, wide.substr(0, wide.size() - 2))})});
    EXPECT_THAT(fieldsOf(file), ElementsAre(lyric("words")));
}

TEST(Asf, TitlesAndFrontCoverAreRead)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.file("song");
    const auto picture = [](char type, const std::string &data) {
        return extendedAttribute("WM/Picture", kBytes,
            std::string(1, type) + little(data.size(), 4) + utf16("image/png") + utf16("") + data);
    };
    write(path,
        asfFile(contents(sample("tagged.wma")),
            {extended({text("WM/AlbumTitle", "The Album"), picture(4, "back"), picture(3, "front")})}));
    const tags::AudioTags read = tags::read(path).value();
    EXPECT_EQ(read.format, tags::Format::Asf);
    EXPECT_EQ(read.title, "The Title");
    EXPECT_EQ(read.artist, "The Artist");
    EXPECT_EQ(read.album, "The Album");
    EXPECT_EQ(read.cover, "front");
    EXPECT_NEAR(read.duration, 2, 0.1);
}

TEST(Asf, LyricOfNearly64KiBIsReadByAnotherProgram)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.copy(sample("tagged.wma"));
    const std::string sound = soundOf(path);
    std::string words;
    for (int i = 0; i < 1500; ++i)
        words += "[00:01.00]\u8D70\u5ECA line\r\n";
    ASSERT_TRUE(tags::saveLyric(path, words, tags::read(path).value().state).ok());
    EXPECT_EQ(lyricByFfprobe(path), words);
    EXPECT_EQ(soundOf(path), sound);
}

} // namespace
