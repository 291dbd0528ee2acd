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
using edits::edited;
using edits::field;
using edits::fieldsOf;
using edits::namesOf;
using edits::newField;
using edits::refusalOf;
using tags::LyricField;
using tags::Reason;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

LyricField lyric(const std::string &name, const std::string &text)
{
    return {"APEv2", name, "", "", text, false};
}

std::string ape(const std::string &tags)
{
    return silentMonkeysAudio() + tags;
}

TEST(ApeTags, NamesInAnyCaseInTheOrderOfPreference)
{
    const std::string file = ape(apeTag({{"unsynced LYRICS", "d"}, {"SyncedLyrics", "c"}, {"lyrics", "a"},
        {"Title", "t"}, {"UnsyncedLyrics", "b"}}));
    EXPECT_THAT(fieldsOf(file),
        ElementsAre(lyric("Lyrics", "a"), lyric("UNSYNCEDLYRICS", "b"), lyric("SYNCEDLYRICS", "c"),
            lyric("UNSYNCED LYRICS", "d")));
}

TEST(ApeTags, BinaryAndExternalItemsAreNoLyrics)
{
    const std::string file = ape(apeTag({{"Lyrics", "binary", 2}, {"SYNCEDLYRICS", "http://x/", 4},
        {"UNSYNCEDLYRICS", "reserved", 6}, {"Title", "t"}}));
    EXPECT_THAT(fieldsOf(file), IsEmpty());
}

TEST(ApeTags, AnEditChangesItsItemAndNothingElse)
{
    const std::vector<ApeItemOf> items = {{"Zed", "1"}, {"lYRICs", "old"}, {"Artist", std::string("a\0b", 3)},
        {"Cover Art (Front)", std::string("a.png\0\x89PNG", 10), 2}, {"unknown", "\xFF\xC0", 4}};
    std::vector<ApeItemOf> expected = items;
    expected[1].value = "[00:01.00]new";
    for (const ApeHeader header : {ApeHeader::Yes, ApeHeader::No}) {
        EXPECT_EQ(
            edited(ape(apeTag(items, header)), field(0), "[00:01.00]new"), ape(apeTag(expected, header)));
    }
    expected.erase(expected.begin() + 1);
    EXPECT_EQ(edited(ape(apeTag(items)), field(0), ""), ape(apeTag(expected)));
}

TEST(ApeTags, EveryTextInEveryField)
{
    for (const std::string &base : {ape(""), ape(apeTag({{"Title", "t"}}) + id3v1("t")),
             contents(sample("tagged.wv")), contents(sample("tagged.mpc"))}) {
        for (const std::string &name : edits::newNamesOf(base)) {
            for (const auto &[what, text] : edits::texts()) {
                SCOPED_TRACE(name + ' ' + what);
                const std::string with = edited(base, newField(name), text);
                EXPECT_THAT(fieldsOf(with), ElementsAre(lyric(name, text)));
                EXPECT_EQ(edited(edited(with, field(0), "x"), field(0), text), with);
                EXPECT_EQ(edited(with, field(0), ""), base);
            }
        }
    }
}

TEST(ApeTags, ANewTagHasHeaderAndFooterAndStandsBeforeId3v1)
{
    EXPECT_EQ(edited(ape(""), newField(), "words"), ape(apeTag({{"Lyrics", "words"}})));
    EXPECT_EQ(edited(ape(id3v1("t")), newField("SYNCEDLYRICS"), "words"),
        ape(apeTag({{"SYNCEDLYRICS", "words"}}) + id3v1("t")));
    EXPECT_EQ(edited(ape(lyrics3("x") + id3v1("t")), newField(), "words"),
        ape(apeTag({{"Lyrics", "words"}}) + lyrics3("x") + id3v1("t")));
}

TEST(ApeTags, TagThatEndsLikeAnId3v1TagIsReadAndEdited)
{
    // Of 131 bytes, it has the letters TAG of its magic word 128 bytes before the end.
    const std::string before = ape("");
    const std::string text(52, 'x');
    const std::string file = edited(before, newField(), text);
    ASSERT_EQ(file.substr(file.size() - 128, 3), "TAG");
    EXPECT_EQ(edited(edited(file, field(0), "other"), field(0), text), file);
    EXPECT_EQ(edited(file, field(0), ""), before);
}

TEST(ApeTags, LettersOfAnId3v1TagInsideATextAreNoTag)
{
    // The value ends with the item: 96 bytes before the footer stand 128 before the end.
    const std::string text = "[00:01.00]" + std::string(20, 'x') + "TAG" + std::string(93, 'y');
    const std::string file = ape(apeTag({{"Title", "t"}, {"Lyrics", text}}));
    ASSERT_EQ(file.substr(file.size() - 128, 3), "TAG");
    EXPECT_THAT(fieldsOf(file), ElementsAre(lyric("Lyrics", text)));
}

TEST(ApeTags, SeveralValuesAreOneTextAndStaySeveral)
{
    const std::string values("[00:01.00]one\0[00:01.00]eins", 28);
    const std::string file = ape(apeTag({{"Lyrics", values}}));
    EXPECT_THAT(fieldsOf(file), ElementsAre(lyric("Lyrics", values)));
    const std::string others("[00:02.00]one\0[00:02.00]eins", 28);
    EXPECT_EQ(edited(file, field(0), others), ape(apeTag({{"Lyrics", others}})));
}

TEST(ApeTags, OneTextIsNotTornIntoSeveral)
{
    const std::string torn("one\0two", 7);
    EXPECT_EQ(refusalOf(ape(""), newField(), torn), Reason::NotText);
    EXPECT_EQ(refusalOf(ape(apeTag({{"Lyrics", "old"}})), field(0), torn), Reason::NotText);
}

TEST(ApeTags, TerminatorOfATextIsNotPartOfIt)
{
    const std::string file = ape(apeTag({{"Lyrics", std::string("words\0", 6)}}));
    EXPECT_THAT(fieldsOf(file), ElementsAre(lyric("Lyrics", "words")));
}

TEST(ApeTags, FlagsOfTheTagAndReservedBytesStay)
{
    std::string tag = apeTag({{"Lyrics", "old"}, {"Title", "t"}});
    std::string expected = apeTag({{"Lyrics", "new one"}, {"Title", "t"}});
    for (std::string *each : {&tag, &expected}) {
        each->replace(24, 8, "RESERVED"); // of the header
        each->replace(each->size() - 8, 8, "reserved");
        (*each)[each->size() - 11] = '\x10'; // a flag that nobody knows
    }
    EXPECT_EQ(edited(ape(tag), field(0), "new one"), ape(expected));
}

TEST(ApeTags, ReadOnlyTagAndItemAreLeftAlone)
{
    const std::string item = ape(apeTag({{"Lyrics", "old", 1}, {"SYNCEDLYRICS", "free"}}));
    EXPECT_EQ(refusalOf(item, field(0), "new"), Reason::ReadOnly);
    EXPECT_EQ(refusalOf(item, field(0), ""), Reason::ReadOnly);
    EXPECT_EQ(refusalOf(item, field(1), "new"), std::nullopt);
    std::string tag = apeTag({{"Title", "t"}}, ApeHeader::No);
    tag[tag.size() - 12] = '\1';
    EXPECT_EQ(refusalOf(ape(tag), newField(), "new"), Reason::ReadOnly);
}

TEST(ApeTags, FirstVersionIsReadAndNotWritten)
{
    const std::string file
        = ape(apeTag({{"Lyrics", "words"}, {"Title", "t"}}, ApeHeader::No, 1000) + id3v1("t"));
    EXPECT_THAT(fieldsOf(file), ElementsAre(LyricField{"APEv1", "Lyrics", "", "", "words", false}));
    EXPECT_EQ(refusalOf(file, field(0), "new"), Reason::Unsupported);
    EXPECT_EQ(refusalOf(file, newField("SYNCEDLYRICS"), "new"), Reason::Unsupported);
}

TEST(ApeTags, LyricTooLongForATagIsRefused)
{
    EXPECT_EQ(refusalOf(ape(""), newField(), std::string(17U << 20, 'x')), Reason::TooLarge);
}

TEST(ApeTags, TagsBeforeTheSoundStayAsTheyAre)
{
    const std::string front = id3v2(3, {{"USLT", uslt("eng", "", "[00:01.00]not for this kind of file")}});
    for (const std::string &sound : {silentMonkeysAudio(), silentMusepack()}) {
        EXPECT_THAT(fieldsOf(front + sound), IsEmpty());
        EXPECT_EQ(edited(front + sound, newField(), "words"), front + sound + apeTag({{"Lyrics", "words"}}));
    }
}

TEST(ApeTags, TitlesAndFrontCoverAreRead)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.file("song");
    const std::string tag = apeTag({{"title", "T"}, {"ARTIST", "A"}, {"Album", "B"},
        {"Cover Art (Back)", std::string("b.jpg\0back", 10), 2},
        {"Cover Art (Front)", std::string("a.jpg\0\xFF\xD8picture", 15), 2}});
    write(path, ape(tag));
    const tags::AudioTags read = tags::read(path).value();
    EXPECT_EQ(read.format, tags::Format::Ape);
    EXPECT_EQ(read.title, "T");
    EXPECT_EQ(read.artist, "A");
    EXPECT_EQ(read.album, "B");
    EXPECT_EQ(read.cover, "\xFF\xD8picture");
    EXPECT_DOUBLE_EQ(read.duration, 2.0);
}

class Mp3WithFourTags : public testing::Test
{
protected:
    std::string front = id3v2(3, {{"TIT2", std::string("\0Name", 5)}, {"USLT", uslt("eng", "", "in front")}});
    std::string sound = contents(sample("untagged.mp3"));
    std::string behind = lyrics3("behind") + id3v1("Name");

    std::string file(const std::vector<ApeItemOf> &items) const
    {
        return front + sound + apeTag(items) + behind;
    }
    /// All but the ID3v2 tag.
    static std::string afterFront(const std::string &bytes)
    {
        const std::size_t size
            = (static_cast<unsigned char>(bytes[8]) << 7U) | static_cast<unsigned char>(bytes[9]);
        return bytes.substr(10 + size);
    }
};

TEST_F(Mp3WithFourTags, TheLyricsOfBothAreFields)
{
    EXPECT_THAT(fieldsOf(file({{"Title", "t"}, {"Lyrics", "at the end"}})),
        ElementsAre(
            LyricField{"ID3v2", "USLT", "eng", "", "in front", false}, lyric("Lyrics", "at the end")));
}

TEST_F(Mp3WithFourTags, EditingTheOneLeavesEveryByteOfTheOther)
{
    const std::string old = file({{"Title", "t"}, {"Lyrics", "at the end"}});
    for (const auto &[what, text] : edits::texts()) {
        SCOPED_TRACE(what);
        EXPECT_EQ(edited(old, field(1), text), file({{"Title", "t"}, {"Lyrics", text}}));
        const std::string inFront = edited(old, field(0), text);
        EXPECT_EQ(fieldsOf(inFront)[0].text, text);
        EXPECT_THAT(inFront, testing::EndsWith(old.substr(front.size())));
    }
}

TEST_F(Mp3WithFourTags, WithTheLastItemTheTagGoesAndComesBackEqual)
{
    const std::string old = file({{"Lyrics", "at the end"}});
    const std::string without = edited(old, field(1), "");
    EXPECT_EQ(without, front + sound + behind);
    EXPECT_THAT(edits::newNamesOf(without), Not(testing::Contains("Lyrics")));
    const std::string replaced = edited(old, field(1), "other");
    EXPECT_EQ(edited(replaced, field(1), "at the end"), old);
}

TEST_F(Mp3WithFourTags, OtherItemsOutliveTheLyric)
{
    const std::string old = file({{"Title", "t"}});
    EXPECT_EQ(edited(old, newField("Lyrics"), "words"), file({{"Title", "t"}, {"Lyrics", "words"}}));
    EXPECT_EQ(edited(edited(old, newField("UNSYNCEDLYRICS"), "words"), field(1), ""), old);
    EXPECT_THAT(namesOf(edited(old, newField(), "words")), ElementsAre("USLT", "USLT"));
}

TEST_F(Mp3WithFourTags, WithoutId3v1OrLyrics3TheTagIsFoundToo)
{
    for (const std::string &end : {std::string(), id3v1("Name"), lyrics3("x") + id3v1("Name"),
             "LYRICSBEGINold words LYRICSEND" + id3v1("Name")}) {
        const std::string old = sound + apeTag({{"Lyrics", "a"}}, ApeHeader::No) + end;
        EXPECT_EQ(edited(old, field(0), "b"), sound + apeTag({{"Lyrics", "b"}}, ApeHeader::No) + end);
    }
    const std::string afterLyrics3 = sound + lyrics3("x") + apeTag({{"Lyrics", "a"}}) + id3v1("Name");
    EXPECT_THAT(namesOf(afterLyrics3), ElementsAre("Lyrics"));
}

TEST_F(Mp3WithFourTags, TagThatCannotBeUnderstoodStaysAsItIs)
{
    std::string broken = apeTag({{"Lyrics", "words"}, {"Title", "t"}});
    broken[32] = '\x7F'; // the length of the first value
    std::string unknown = apeTag({{"Lyrics", "words"}});
    unknown[unknown.size() - 24] = '\x01'; // the version
    std::string headless = apeTag({{"Lyrics", "words"}}).substr(32);
    for (const std::string &tag : {broken, unknown, headless}) {
        const std::string old = front + sound + tag;
        EXPECT_THAT(namesOf(old), ElementsAre("USLT"));
        EXPECT_THAT(edited(old, field(0), "new"), testing::EndsWith(sound + tag));
    }
}

TEST_F(Mp3WithFourTags, SavedFromAndToTheDisk)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.file("song.mp3");
    write(path, sound + apeTag({{"Title", "t"}, {"Lyrics", "old"}}));
    const std::string heard = soundOf(path);
    const auto saved = tags::saveLyric(path, "[00:01.00]\u8D70\r\n", tags::read(path).value().state);
    ASSERT_TRUE(saved.ok()) << saved.failure().message.english();
    EXPECT_EQ(contents(path), sound + apeTag({{"Title", "t"}, {"Lyrics", "[00:01.00]\u8D70\r\n"}}));
    EXPECT_EQ(soundOf(path), heard);
}

} // namespace
