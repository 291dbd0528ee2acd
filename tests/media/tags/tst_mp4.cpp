// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/Edits.h"
#include "media/tags/HandMade.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace samples;
using edits::edited;
using edits::field;
using edits::fieldsOf;
using edits::newField;
using edits::refusalOf;
using tags::Reason;
using testing::ElementsAre;

const std::string kSound = "the sound, which everything points at";

std::string atom(const std::string &name, const std::string &body)
{
    return big(body.size() + 8, 4) + name + body;
}

std::string table(const std::string &name, const std::vector<std::uint64_t> &offsets)
{
    std::string body = std::string(4, '\0') + big(offsets.size(), 4);
    for (const std::uint64_t offset : offsets)
        body += big(offset, name == "stco" ? 4 : 8);
    return atom(name, body);
}

std::string lyricAtom(const std::string &text)
{
    return atom("\xA9lyr", atom("data", big(1, 4) + std::string(4, '\0') + text));
}

std::string meta(const std::string &list)
{
    const std::string handler = atom("hdlr", std::string(8, '\0') + "mdirappl" + std::string(9, '\0'));
    return atom("meta", std::string(4, '\0') + handler + atom("ilst", list));
}

/// What a file is made of; its sound stands behind `moov`.
struct Song
{
    std::string list = lyricAtom("old"); ///< of tags
    std::string behindMeta; ///< within `udta`
    std::vector<std::string> tables = {"stco"};
    std::string more; ///< within `moov`
    std::string between; ///< before the sound
    bool soundIsLong = false; ///< its size in 64 bits
    bool soundIsOpen = false; ///< its size left open
    bool soundFirst = false;

    [[nodiscard]] std::string bytes() const
    {
        // Once to learn where the sound comes to lie, once with the offsets that say so.
        return laidOut(laidOut(0).find(kSound));
    }

private:
    [[nodiscard]] std::string laidOut(std::uint64_t soundAt) const
    {
        std::string stbl;
        for (const std::string &name : tables)
            stbl += table(name, {soundAt, soundAt + 10});
        const std::string trak = atom("trak", atom("mdia", atom("minf", atom("stbl", stbl))));
        const std::string moov = atom("moov", trak + atom("udta", meta(list) + behindMeta) + more);
        std::string sound = atom("mdat", kSound);
        if (soundIsLong)
            sound = big(1, 4) + "mdat" + big(kSound.size() + 16, 8) + kSound;
        if (soundIsOpen)
            sound.replace(0, 4, big(0, 4));
        const std::string fileType = atom("ftyp", std::string("M4A \0\0\0\0", 8));
        return fileType + (soundFirst ? sound + moov + between : moov + between + sound);
    }
};

TEST(Mp4, EveryKindOfTablePointsAtTheSoundAfterwards)
{
    Song songs[6];
    songs[1].tables = {"co64"};
    songs[2].tables = {"stco", "co64", "stco"};
    songs[3].soundIsLong = true;
    songs[4].soundIsOpen = true;
    songs[5].soundFirst = true;
    for (Song &song : songs) {
        const std::string before = song.bytes();
        for (const std::string &words :
            {std::string("longer than it was"), std::string("s"), std::string()}) {
            song.list = words.empty() ? "" : lyricAtom(words);
            EXPECT_EQ(edited(before, field(0), words), song.bytes()) << (&song - songs) << ' ' << words;
        }
    }
}

TEST(Mp4, SeveralLyricsChangeGoAndComeAtOnce)
{
    Song song;
    song.list = lyricAtom("one") + atom("\xA9nam", atom("data", big(1, 4) + std::string(4, '\0') + "title"))
        + lyricAtom("two") + lyricAtom("three");
    const std::string before = song.bytes();
    song.list = lyricAtom("1") + atom("\xA9nam", atom("data", big(1, 4) + std::string(4, '\0') + "title"))
        + lyricAtom("and another");
    const tags::Outcome<std::string> after = edits::triedAll(
        before, {{field(2), ""}, {newField(), "and another"}, {field(0), "1"}, {field(1), ""}});
    ASSERT_TRUE(after.ok()) << after.failure().message.english();
    EXPECT_TRUE(after.value() == song.bytes());
}

TEST(Mp4, TheTerminatorOfAQuickTimeListStays)
{
    Song song;
    song.behindMeta = std::string(4, '\0');
    const std::string before = song.bytes();
    song.list = lyricAtom("new words");
    EXPECT_EQ(edited(before, field(0), "new words"), song.bytes());
}

/// Offsets of other kinds cannot be moved with the sound: the file stays as it is, but for an edit that moves
/// nothing.
TEST(Mp4, WhatPointsIntoTheFileInOtherWaysIsLeftAlone)
{
    const std::string offset = std::string(4, '\0') + big(1, 4) + big(4711, 4);
    Song items;
    items.more
        = atom("meta", std::string(4, '\0') + atom("hdlr", std::string(25, 'h')) + atom("iloc", offset));
    Song encrypted;
    encrypted.between = atom("moof", atom("traf", atom("saio", offset)));
    Song indexed;
    indexed.between = atom("mfra", atom("tfra", offset));
    Song deflated;
    deflated.more = atom("cmov", std::string(20, 'z'));
    for (const Song &song : {items, encrypted, indexed, deflated}) {
        const std::string bytes = song.bytes();
        EXPECT_THAT(fieldsOf(bytes), testing::SizeIs(1));
        EXPECT_EQ(refusalOf(bytes, field(0), "longer than it was"), Reason::Unsupported);
        EXPECT_EQ(edited(bytes, field(0), "new").size(), bytes.size());
    }
    items.soundFirst = true; // nothing that can be pointed at moves
    const std::string before = items.bytes();
    items.list = lyricAtom("longer than it was");
    EXPECT_EQ(edited(before, field(0), "longer than it was"), items.bytes());
}

TEST(Mp4, ATableTooShortToBeOneStaysAsItIs)
{
    for (const char *name : {"stco", "co64", "tfhd"}) {
        Song song;
        song.more
            = atom("trak", atom("mdia", atom("minf", atom("stbl", atom(name, "") + atom(name, "1234567")))));
        const std::string before = song.bytes();
        song.list = lyricAtom("longer than it was");
        EXPECT_EQ(edited(before, field(0), "longer than it was"), song.bytes()) << name;
    }
}

TEST(Mp4, FragmentsPointAtTheirSoundAfterwards)
{
    const auto fragment = [](std::uint64_t base) {
        return atom("moof", atom("traf", atom("tfhd", big(1, 4) + big(1, 4) + big(base, 8))));
    };
    Song song;
    song.between = fragment(0);
    const auto withBase = [&] {
        song.between = fragment(song.bytes().find(kSound));
        return song.bytes();
    };
    const std::string before = withBase();
    song.list = lyricAtom("longer than it was");
    const std::string wanted = withBase();
    EXPECT_EQ(edited(before, field(0), "longer than it was"), wanted);
}

} // namespace
