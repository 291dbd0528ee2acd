// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/AudioTags.h"
#include "media/tags/ByteSource.h"
#include "media/tags/Edits.h"
#include "media/tags/SaveLyric.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace samples;
using edits::edited;
using edits::field;
using edits::fieldsOf;
using edits::newField;
using tags::Reason;
using tags::toBigEndian;
using tags::toLittleEndian;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::string kLyric = "[00:01.00]first line\n";

/// One of the two kinds of file, made by hand.
struct Kind
{
    const char *form;
    const char *type;
    const char *sound;
    const char *tag; ///< of a new chunk with a tag
    std::string (*number)(std::uint64_t, std::size_t);

    [[nodiscard]] std::string chunk(const std::string &id, const std::string &body) const
    {
        return id + number(body.size(), 4) + body + std::string(body.size() % 2, '\0');
    }
    [[nodiscard]] std::string file(const std::string &chunks) const
    {
        return form + number(4 + chunks.size(), 4) + type + chunks;
    }
    [[nodiscard]] std::string head() const
    {
        return form == std::string("RIFF")
            ? chunk("fmt ", std::string("\1\0\1\0\x40\x1F\0\0\x40\x1F\0\0\1\0\x08\0", 16))
            : chunk("COMM", std::string("\0\1\0\0\0\5\0\x08\x40\x0B\xFA\0\0\0\0\0\0\0", 18));
    }
};

const Kind kWav = {"RIFF", "WAVE", "data", "id3 ", toLittleEndian};
const Kind kAiff = {"FORM", "AIFF", "SSND", "ID3 ", toBigEndian};

std::string title(const std::string &text)
{
    return id3v2(3, {{"TIT2", '\0' + text}});
}

class EveryKind : public testing::TestWithParam<Kind>
{
protected:
    const Kind &kind = GetParam();
    Folder folder{Folder::On::Memory};

    [[nodiscard]] tags::Outcome<tags::AudioTags> read(const std::string &bytes) const
    {
        write(folder.file("song"), bytes);
        return tags::read(folder.file("song"));
    }
    /// The reason why a lyric is not saved into a file that can be read.
    [[nodiscard]] Reason refusal(const std::string &bytes) const
    {
        const auto outcome = edits::tried(bytes, newField(), kLyric);
        EXPECT_FALSE(outcome.ok());
        return outcome.ok() ? Reason::Missing : outcome.failure().reason;
    }
    [[nodiscard]] std::uint64_t sizeIn(const std::string &bytes) const
    {
        return kind.form == std::string("RIFF") ? tags::littleEndian(bytes, 4, 4)
                                                : tags::bigEndian(bytes, 4, 4);
    }
};

TEST_P(EveryKind, ATagComesBehindTheLastPartAndGoesAgain)
{
    const std::string parts = kind.head() + kind.chunk(kind.sound, "sound")
        + kind.chunk("bext", "who and when") + kind.chunk("LIST", "adtl") + kind.chunk("????", "x");
    const std::string before = kind.file(parts);
    const std::string after = edited(before, newField(), kLyric);
    EXPECT_THAT(after,
        StartsWith(before.substr(0, 4) + kind.number(after.size() - 8, 4) + kind.type + parts + kind.tag));
    EXPECT_EQ(after.size() % 2, 0U);
    EXPECT_EQ(edited(after, field(0), ""), before);
}

TEST_P(EveryKind, ATagInTheMiddleIsWrittenWhereItIs)
{
    const std::string sound = kind.chunk(kind.sound, "sound");
    for (const char *id : {"ID3 ", "id3 "}) {
        const std::string before = kind.file(kind.head() + kind.chunk(id, title("Name")) + sound);
        const std::string after = edited(before, newField(), kLyric);
        EXPECT_THAT(after,
            StartsWith(
                before.substr(0, 4) + kind.number(after.size() - 8, 4) + kind.type + kind.head() + id));
        EXPECT_THAT(after, EndsWith(sound));
        EXPECT_EQ(read(after).value().title, "Name");
    }
}

TEST_P(EveryKind, OnlyTheFirstOfTwoTagsIsWritten)
{
    const std::string second = kind.chunk("ID3 ", title("Other"));
    const std::string before = kind.file(kind.head() + kind.chunk("ID3 ", title("Name")) + second);
    const std::string after = edited(before, newField(), kLyric);
    EXPECT_THAT(after, EndsWith(second));
    EXPECT_EQ(read(after).value().title, "Name");
}

TEST_P(EveryKind, WhatFollowsTheTagInItsPartStays)
{
    const std::string before = kind.file(kind.head() + kind.chunk("ID3 ", title("Name") + "and more"));
    const std::string after = edited(before, newField(), kLyric);
    EXPECT_THAT(after, HasSubstr("and more"));
    EXPECT_THAT(edited(after, field(0), ""), HasSubstr("and more"));
}

TEST_P(EveryKind, AMissingByteOfPaddingIsPutIn)
{
    std::string before = kind.file(kind.head() + kind.chunk(kind.sound, "sound"));
    before.pop_back();
    for (const std::uint64_t size : {before.size() - 8, before.size() - 7}) {
        before.replace(4, 4, kind.number(size, 4));
        const std::string after = edited(before, newField(), kLyric);
        EXPECT_THAT(after, HasSubstr(std::string("sound\0", 6) + kind.tag));
        EXPECT_EQ(sizeIn(after), after.size() - 8);
    }
}

TEST_P(EveryKind, WhatStandsBehindTheFileProperStaysThere)
{
    const std::string before = kind.file(kind.head() + kind.chunk(kind.sound, "sound"));
    const std::string behind = "TAG and whatever else";
    const std::string after = edited(before + behind, newField(), kLyric);
    EXPECT_THAT(after, EndsWith(behind));
    EXPECT_EQ(sizeIn(after), after.size() - behind.size() - 8);
    EXPECT_TRUE(read(before + behind).ok());
}

TEST_P(EveryKind, ASizeThatWasNeverFilledInIsPutRight)
{
    std::string before = kind.file(kind.head() + kind.chunk(kind.sound, "sounds"));
    for (const std::uint64_t size :
        {std::uint64_t(0), std::uint64_t(4), before.size() - 8 - 2, before.size()}) {
        before.replace(4, 4, kind.number(size, 4));
        const std::string after = edited(before, newField(), kLyric);
        EXPECT_EQ(sizeIn(after), after.size() - 8);
    }
}

TEST_P(EveryKind, CutOffAnywhereItIsNotWritten)
{
    const std::string whole = kind.file(
        kind.head() + kind.chunk("ID3 ", title("Name")) + kind.chunk(kind.sound, std::string(100, 's')));
    for (std::size_t size = 13; size < whole.size(); ++size) {
        const std::string cut = whole.substr(0, size);
        const auto outcome = read(cut);
        if (outcome.ok()) {
            EXPECT_EQ(refusal(cut), Reason::Damaged) << size;
        }
    }
    EXPECT_EQ(read(whole.substr(0, whole.size() - 50)).value().title, "Name");
}

TEST_P(EveryKind, ARecordingWithoutSizesIsNotWritten)
{
    const std::string sound(1000, '\x81');
    for (const std::uint64_t size : {0ULL, 0xFFFFFFFFULL, 2000ULL}) {
        const std::string parts = kind.head() + kind.sound + kind.number(size, 4);
        EXPECT_EQ(refusal(kind.file(parts) + sound), Reason::Damaged);
        EXPECT_EQ(
            refusal(kind.form + kind.number(0xFFFFFFFF, 4) + kind.type + parts + sound), Reason::Damaged);
    }
}

TEST_P(EveryKind, ATagLongerThanItsPartIsNotRead)
{
    const std::string tag = title("Name");
    const std::string file = kind.file(
        kind.head() + kind.chunk("ID3 ", tag.substr(0, tag.size() - 2)) + kind.chunk(kind.sound, "sound"));
    const auto outcome = read(file);
    ASSERT_FALSE(outcome.ok());
    EXPECT_EQ(outcome.failure().reason, Reason::Damaged);
}

TEST_P(EveryKind, EmptyPartForATagIsUsed)
{
    for (const std::string &body : {std::string(), std::string("ID3\3\0\0\0\0\0\0", 10)}) {
        const std::string after
            = edited(kind.file(kind.head() + kind.chunk("ID3 ", body)), newField(), kLyric);
        EXPECT_EQ(after.find("ID3 "), after.rfind("ID3 "));
        EXPECT_THAT(fieldsOf(after), testing::SizeIs(1));
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind, testing::Values(kWav, kAiff),
    [](const auto &parameter) { return std::string(parameter.param.type); });

TEST(Wav, NamesComeFromTheInfoListWhereTheTagHasNone)
{
    const Folder folder;
    const auto info
        = [](const std::string &id, const std::string &text) { return kWav.chunk(id, text + '\0'); };
    const std::string list = kWav.chunk("LIST",
        "INFO" + info("INAM", "Info title") + info("IART", "Info artist") + info("IPRD", "Info album"));
    write(folder.file("song.wav"), kWav.file(kWav.head() + list + kWav.chunk("ID3 ", title("Name"))));
    const tags::AudioTags tags = tags::read(folder.file("song.wav")).value();
    EXPECT_EQ(tags.title, "Name");
    EXPECT_EQ(tags.artist, "Info artist");
    EXPECT_EQ(tags.album, "Info album");
    EXPECT_THAT(edited(contents(folder.file("song.wav")), newField(), kLyric), HasSubstr(list));
}

TEST(Wav, BeyondFourGibibytesIsRefusedByName)
{
    const Folder folder;
    for (const char *form : {"RF64", "BW64"}) {
        write(
            folder.file("song.wav"), form + std::string("\xFF\xFF\xFF\xFFWAVEds64") + std::string(100, '\0'));
        const auto outcome = tags::read(folder.file("song.wav"));
        ASSERT_FALSE(outcome.ok());
        EXPECT_EQ(outcome.failure().reason, Reason::Unsupported);
        EXPECT_THAT(outcome.failure().message.english(),
            HasSubstr(std::string(form) + ", which is WAV beyond 4 GiB"));
    }
}

TEST(Aiff, CompressedKindIsReadAndWritten)
{
    std::string file = contents(sample("untagged.aif"));
    file.replace(8, 4, "AIFC");
    EXPECT_THAT(fieldsOf(edited(file, newField(), kLyric)), testing::SizeIs(1));
}

TEST(Aac, JunkBetweenTagAndSoundStays)
{
    const std::string tag = title("Name");
    const std::string rest = "junk" + contents(sample("untagged.aac"));
    EXPECT_THAT(edited(tag + rest, newField(), kLyric), EndsWith(rest));
    const Folder folder;
    write(folder.file("song.aac"), tag + rest);
    EXPECT_EQ(tags::read(folder.file("song.aac")).value().format, tags::Format::Aac);
    EXPECT_EQ(tags::read(sample("untagged.mp2")).value().format, tags::Format::Mpeg);
}

} // namespace
