// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/ByteSource.h"
#include "media/tags/Edits.h"
#include "media/tags/SyncedLyrics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace samples;
using edits::edited;
using edits::field;
using edits::fieldsOf;
using edits::newField;
using edits::texts;
using tags::LyricField;
using tags::toBigEndian;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr char kFrames = 1;
constexpr char kMilliseconds = 2;

struct Head
{
    char unit = kMilliseconds;
    char contentType = 1;
    std::string description;
};

/// The body of a SYLT frame in Latin-1.
std::string sylt(const std::vector<std::pair<unsigned, std::string>> &entries, const Head &head = {})
{
    std::string body = std::string("\0eng", 4) + head.unit + head.contentType + head.description + '\0';
    for (const auto &[time, text] : entries)
        body += text + '\0' + toBigEndian(time, 4);
    return body;
}

std::string mp3(int version, const std::vector<std::pair<std::string, std::string>> &frames)
{
    return id3v2(version, frames) + contents(sample("untagged.mp3"));
}

LyricField synced(const std::string &text, const std::string &description = {})
{
    return {"ID3v2", "SYLT", "eng", description, text, true};
}

/// One whose times count frames of the sound.
LyricField counted(const std::string &text)
{
    LyricField field = synced(text);
    field.isFixed = true;
    return field;
}

TEST(SyncedFrames, ReadInEachVersion)
{
    const std::string body = sylt({{1000, "one"}, {2500, "\ntwo"}}, {kMilliseconds, 1, "words"});
    for (const int version : {2, 3, 4})
        EXPECT_THAT(fieldsOf(mp3(version, {{version == 2 ? "SLT" : "SYLT", body}})),
            ElementsAre(synced("[00:01.00]one\n[00:02.50]two\n", "words")));
}

TEST(SyncedFrames, ReadInEachEncoding)
{
    using namespace std::string_literals;
    const std::string head = "eng\2\1";
    const std::string time = "\0\0\x03\xE8"s;
    const std::string bodies[] = {
        "\0"s + head + "d\0caf\xE9\0"s + time,
        "\1"s + head + "\xFF\xFE\x64\0\0\0"s + "\xFF\xFE\x63\0\x61\0\x66\0\xE9\0\0\0"s + time,
        "\1"s + head + "\xFE\xFF\0\x64\0\0"s + "\xFE\xFF\0\x63\0\x61\0\x66\0\xE9\0\0"s + time,
        "\1"s + head + "\xFF\xFE\x64\0\0\0"s + "\x63\0\x61\0\x66\0\xE9\0\0\0"s + time, // marked once
        "\2"s + head + "\0\x64\0\0"s + "\0\x63\0\x61\0\x66\0\xE9\0\0"s + time,
        "\3"s + head + "d\0caf\u00E9\0"s + time,
    };
    for (const std::string &body : bodies)
        EXPECT_THAT(fieldsOf(mp3(4, {{"SYLT", body}})), ElementsAre(synced("[00:01.00]caf\u00E9\n", "d")));
}

TEST(SyncedFrames, ATerminatorOfUtf16StandsAtAnEvenPlace)
{
    // U+0100 and U+0001: their neighbouring zeros are no terminator.
    const std::string text("\xFF\xFE\0\1\1\0\0\0", 8);
    const std::string body = std::string("\1eng\2\1\xFF\xFE\0\0", 10) + text + toBigEndian(1000, 4);
    EXPECT_THAT(fieldsOf(mp3(3, {{"SYLT", body}})), ElementsAre(synced("[00:01.00]\u0100\u0001\n")));
}

TEST(SyncedFrames, PreferredToUserTextAndNotToUslt)
{
    const std::string file = mp3(4,
        {{"TXXX", std::string("\3LYRICS\0[00:03.00]c", 19)}, {"SYLT", sylt({{2000, "b"}})},
            {"USLT", uslt("eng", "", "a")}});
    EXPECT_THAT(edits::namesOf(file), ElementsAre("USLT", "SYLT", "TXXX:LYRICS"));
}

TEST(SyncedFrames, WhatIsNoLyricOrCannotBeToldIsLeftAlone)
{
    const std::string whole = sylt({{1000, "one"}, {2000, "two"}});
    const std::string bodies[]
        = {sylt({{1000, "C#m"}}, {kMilliseconds, 5, {}}), sylt({{1000, "x"}}, {kMilliseconds, 0, {}}),
            sylt({{1000, "x"}}, {3, 1, {}}), sylt({{1000, "x"}}, {0, 1, {}}),
            whole.substr(0, whole.size() - 2), whole + "cut", std::string("\0eng", 4)};
    for (const std::string &body : bodies) {
        const std::string file = mp3(3, {{"SYLT", body}, {"TIT2", std::string("\0Name", 5)}});
        EXPECT_THAT(fieldsOf(file), IsEmpty());
        const std::string after = edited(file, newField(), "[00:01.00]new");
        EXPECT_THAT(after, HasSubstr("SYLT" + toBigEndian(body.size(), 4) + std::string(2, '\0') + body));
    }
}

TEST(SyncedFrames, UneditedOneStaysByteForByte)
{
    // Times out of order, a trailing style of line breaks, UTF-16 in the other byte order.
    const std::string body = std::string("\1eng\2\2\xFE\xFF\0d\0\0\xFE\xFF\0b\0\n\0\0\0\0\x20\0", 24)
        + std::string("\xFE\xFF\0a\0\n\0\0\0\0\x10\0", 12);
    const std::string file = mp3(3, {{"SYLT", body}, {"USLT", uslt("eng", "", "[00:01.00]a")}});
    ASSERT_THAT(fieldsOf(file), ElementsAre(testing::_, synced("[00:04.096]a\n[00:08.192]b\n", "d")));
    for (const std::string &text : {std::string("[00:02.00]b"), std::string()})
        EXPECT_THAT(edited(file, field(0), text), HasSubstr(body));
}

TEST(SyncedFrames, EditKeepsLanguageDescriptionContentAndWayOfBreakingLines)
{
    const Head head = {kMilliseconds, 2, "words"};
    const std::string lines = mp3(3, {{"SYLT", sylt({{1000, "one"}, {2000, "two"}}, head)}});
    EXPECT_THAT(edited(lines, field(0), "[00:01.00]one\n[00:02.50]three\n"),
        HasSubstr(sylt({{1000, "one"}, {2500, "three"}}, head)));
    const std::string leading = mp3(3, {{"SYLT", sylt({{1000, "one"}, {2000, "\ntwo"}}, head)}});
    EXPECT_THAT(edited(leading, field(0), "[00:02.50]three\n[00:01.00]<00:01.00>o<00:01.50>ne\n"),
        HasSubstr(sylt({{1000, "o"}, {1500, "ne"}, {2500, "\nthree"}}, head)));
}

TEST(SyncedFrames, EditWritesWhatCanBeHeldAndNothingTakesTheFrameAway)
{
    const std::string file = mp3(4, {{"SYLT", sylt({{1000, "one"}})}, {"TIT2", std::string("\0Name", 5)}});
    EXPECT_THAT(fieldsOf(edited(file, field(0), "[ti:x]\n[0:2]two\r\nwords")),
        ElementsAre(synced("[00:02.00]two\n")));
    for (const char *text : {"", "only words"}) {
        const std::string after = edited(file, field(0), text);
        EXPECT_THAT(after, Not(HasSubstr("SYLT")));
        EXPECT_THAT(after, HasSubstr("TIT2"));
    }
}

TEST(SyncedFrames, NewOneOfUntimedWordsIsRefused)
{
    const auto outcome = edits::tried(mp3(4, {}), newField("SYLT"), "only words");
    ASSERT_FALSE(outcome.ok());
    EXPECT_EQ(outcome.failure().reason, tags::Reason::NotText);
    EXPECT_THAT(outcome.failure().message.english(), HasSubstr("no line with a time"));
}

TEST(SyncedFrames, NewOneIsMillisecondsOfLyrics)
{
    const std::string after
        = edited(mp3(3, {{"TIT2", std::string("\0Name", 5)}}), newField("SYLT"), "[00:01.00]a\n[00:02.00]b");
    std::string body = sylt({{1000, "a"}, {2000, "\nb"}});
    EXPECT_THAT(after, HasSubstr(body.replace(1, 3, "XXX")));
}

TEST(SyncedFrames, FramesOfSoundAreCountedAsLongAsTheSoundHasThem)
{
    // 44.1 kHz: 1152 samples a frame of MP3 (26.12 ms), 1024 of AAC (23.22 ms).
    const std::string tag
        = id3v2(3, {{"SYLT", sylt({{0, "a"}, {100, "\nb"}, {10000, "\nc"}}, {kFrames, 1, {}})}});
    EXPECT_THAT(fieldsOf(tag + contents(sample("untagged.mp3"))),
        ElementsAre(counted("[00:00.00]a\n[00:02.612]b\n[04:21.224]c\n")));
    EXPECT_THAT(fieldsOf(tag + contents(sample("untagged.aac"))),
        ElementsAre(counted("[00:00.00]a\n[00:02.322]b\n[03:52.20]c\n")));
}

TEST(SyncedFrames, FramesOfSoundAreWrittenWhereTheyAreExact)
{
    const Head head = {kFrames, 1, {}};
    const std::string file = mp3(3, {{"SYLT", sylt({{0, "a"}, {100, "\nb"}}, head)}});
    EXPECT_THAT(edited(file, field(0), "[00:00.00]A\n[00:02.612]B\n[04:21.224]C\n"),
        HasSubstr(sylt({{0, "A"}, {100, "\nB"}, {10000, "\nC"}}, head)));
    const auto outcome = edits::tried(file, field(0), "[00:00.00]A\n[00:02.62]B\n");
    ASSERT_FALSE(outcome.ok());
    EXPECT_EQ(outcome.failure().reason, tags::Reason::Unsupported);
    EXPECT_THAT(outcome.failure().message.english(), HasSubstr("frames of sound"));
}

TEST(SyncedFrames, FramesOfSoundThatNobodyKnowsAreLeftAlone)
{
    const std::string tag = id3v2(3, {{"SYLT", sylt({{0, "a"}}, {kFrames, 1, {}})}});
    const std::string chunk
        = "id3 " + tags::toLittleEndian(tag.size(), 4) + tag + std::string(tag.size() % 2, '\0');
    std::string file = contents(sample("untagged.wav"));
    file += chunk;
    file.replace(4, 4, tags::toLittleEndian(file.size() - 8, 4));
    EXPECT_THAT(fieldsOf(file), IsEmpty());
    EXPECT_THAT(edited(file, newField(), "[00:01.00]x"), HasSubstr(sylt({{0, "a"}}, {kFrames, 1, {}})));
}

class EveryId3Field : public testing::TestWithParam<std::string>
{ };

TEST_P(EveryId3Field, EveryTextComesBackByteForByte)
{
    const std::string file = GetParam() == "v22.mp3" ? mp3(2, {{"TT2", std::string("\0Name", 5)}})
                                                     : contents(sample(GetParam()));
    EXPECT_THAT(edits::newNamesOf(file),
        ElementsAre("USLT", "SYLT", "TXXX:LYRICS", "TXXX:SYNCEDLYRICS", "TXXX:UNSYNCEDLYRICS"));
    for (const std::string &name : edits::newNamesOf(file)) {
        std::string there = edited(file, newField(name), "[00:01.00]first");
        for (const auto &[what, text] : texts()) {
            const std::string held = name == "SYLT" ? tags::holdableText(text) : text;
            if (held.empty())
                continue; // it would go; that is another test
            const std::string added = edited(file, newField(name), text);
            there = edited(there, field(0), text);
            for (const std::string &bytes : {added, there}) {
                const std::vector<LyricField> fields = fieldsOf(bytes);
                ASSERT_EQ(fields.size(), 1U) << name << what;
                EXPECT_EQ(fields[0].name, name);
                EXPECT_EQ(fields[0].text, held) << name << what;
                EXPECT_EQ(fields[0].synchronised, name == "SYLT");
            }
        }
        EXPECT_THAT(fieldsOf(edited(there, field(0), "")), IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(Files, EveryId3Field,
    testing::Values(
        "v22.mp3", "v23.mp3", "v24.mp3", "tagged.wav", "tagged.aiff", "tagged.aac", "untagged.mp2"),
    [](const auto &parameter) {
        std::string name = parameter.param;
        name.replace(name.find('.'), 1, "_");
        return name;
    });

} // namespace
