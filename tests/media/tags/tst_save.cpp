// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/AudioTags.h"
#include "media/tags/Edits.h"
#include "media/tags/SaveLyric.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

using namespace samples;
using edits::texts;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kLyric = "[ti:The Title]\n[00:01.00]first line\n[00:02.50]second line\n";

tags::AudioTags readOk(const std::string &path)
{
    const tags::Outcome<tags::AudioTags> outcome = tags::read(path);
    if (!outcome.ok()) {
        ADD_FAILURE() << path << ": " << outcome.failure().message.english();
        return {};
    }
    return outcome.value();
}

tags::Saved saveOk(const std::string &path, std::string_view lyric)
{
    const tags::Outcome<tags::Saved> outcome = tags::saveLyric(path, lyric, readOk(path).state);
    if (!outcome.ok()) {
        ADD_FAILURE() << path << ": " << outcome.failure().message.english();
        return {};
    }
    return outcome.value();
}

class EverySample : public testing::TestWithParam<std::string>
{
protected:
    Folder folder{Folder::On::Memory};
    std::string path = folder.copy(sample(GetParam()));
};

TEST_P(EverySample, EveryTextComesBackByteForByte)
{
    for (const auto &[name, text] : texts()) {
        const tags::Saved saved = saveOk(path, text);
        EXPECT_TRUE(saved.written) << name;
        const tags::AudioTags tags = readOk(path);
        EXPECT_EQ(tags.lyric.value_or("(none)"), text) << name;
        EXPECT_EQ(tags.state, saved.state) << name;
    }
    EXPECT_THAT(folder.names(), ElementsAre(GetParam()));
}

TEST_P(EverySample, AnotherProgramReadsTheSameLyric)
{
    if (GetParam() == "tagged.wav")
        GTEST_SKIP() << "where there is an INFO list, ffprobe looks at no ID3 tag";
    for (const std::string &text : {texts().at("CRLF"), texts().at("CJK") + texts().at("emoji")}) {
        saveOk(path, text);
        EXPECT_EQ(lyricByFfprobe(path), text);
    }
}

TEST_P(EverySample, SoundAndOtherTagsStay)
{
    const std::string sound = soundOf(path);
    const std::string others = othersByFfprobe(path);
    const tags::AudioTags before = readOk(path);
    saveOk(path, texts().at("megabyte"));
    EXPECT_EQ(soundOf(path), sound);
    EXPECT_EQ(othersByFfprobe(path), others);
    const tags::AudioTags after = readOk(path);
    EXPECT_EQ(after.title, before.title);
    EXPECT_EQ(after.artist, before.artist);
    EXPECT_EQ(after.album, before.album);
    EXPECT_EQ(after.cover, before.cover);
    EXPECT_DOUBLE_EQ(after.duration, before.duration);
    saveOk(path, "");
    EXPECT_EQ(soundOf(path), sound);
    EXPECT_EQ(othersByFfprobe(path), others);
}

TEST_P(EverySample, EmptyLyricTakesTheFieldAway)
{
    saveOk(path, kLyric);
    saveOk(path, "");
    const tags::AudioTags tags = readOk(path);
    EXPECT_FALSE(tags.lyric.has_value());
    EXPECT_THAT(tags.lyricFields, IsEmpty());
    EXPECT_EQ(lyricByFfprobe(path), "");
}

TEST_P(EverySample, TheSameLyricAgainWritesNothing)
{
    saveOk(path, kLyric);
    struct stat before = {};
    ASSERT_EQ(stat(path.c_str(), &before), 0);
    EXPECT_FALSE(saveOk(path, kLyric).written);
    struct stat after = {};
    ASSERT_EQ(stat(path.c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
}

TEST_P(EverySample, NoLyricSavedIntoAFileWithoutOneWritesNothing)
{
    const std::string before = contents(path);
    EXPECT_FALSE(saveOk(path, "").written);
    EXPECT_EQ(contents(path), before);
}

TEST_P(EverySample, SavesOneAfterTheOtherWithTheStateOfTheLast)
{
    tags::FileState state = readOk(path).state;
    for (const char *text : {"[00:01.00]a", "[00:01.00]b", "", "[00:01.00]c"}) {
        const tags::Outcome<tags::Saved> saved = tags::saveLyric(path, text, state);
        ASSERT_TRUE(saved.ok()) << saved.failure().message.english();
        state = saved.value().state;
    }
    EXPECT_EQ(readOk(path).lyric, "[00:01.00]c");
}

INSTANTIATE_TEST_SUITE_P(
    Formats, EverySample, testing::ValuesIn(samples::names()), [](const auto &parameter) {
        std::string name = parameter.param;
        name.replace(name.find('.'), 1, "_");
        return name;
    });

class Save : public testing::Test
{
protected:
    Folder folder;

    /// An mp3 with a hand-made tag in front of bare frames.
    std::string mp3(const std::string &tag) const
    {
        write(folder.file("song.mp3"), tag + contents(sample("untagged.mp3")));
        return folder.file("song.mp3");
    }
};

TEST_F(Save, Id3VersionStaysAsFound)
{
    for (const int version : {2, 3, 4}) {
        const std::string path
            = mp3(id3v2(version, {{version == 2 ? "TT2" : "TIT2", std::string("\0Name", 5)}}));
        saveOk(path, texts().at("CJK"));
        EXPECT_EQ(contents(path)[3], version);
        EXPECT_EQ(readOk(path).title, "Name");
        EXPECT_EQ(readOk(path).lyric, texts().at("CJK"));
        if (version > 2) { // ffprobe does not know the lyric frame of 2.2
            EXPECT_EQ(lyricByFfprobe(path), texts().at("CJK"));
        }
    }
}

TEST_F(Save, FrameWithTimeTagsIsTheLyricAndKeepsLanguageAndDescription)
{
    const std::string path = mp3(id3v2(3,
        {{"USLT", uslt("eng", "plain", "just words")}, {"TIT2", std::string("\0Name", 5)},
            {"USLT", uslt("jpn", "timed", "[00:01.00]words")}, {"USLT", uslt("deu", "", "Worte")}}));
    ASSERT_EQ(readOk(path).lyric, "[00:01.00]words");
    saveOk(path, "[00:02.00]new");
    const std::vector<tags::LyricField> fields = readOk(path).lyricFields;
    ASSERT_EQ(fields.size(), 3U);
    EXPECT_EQ(fields[0], (tags::LyricField{"ID3v2", "USLT", "eng", "plain", "just words", false}));
    EXPECT_EQ(fields[1], (tags::LyricField{"ID3v2", "USLT", "jpn", "timed", "[00:02.00]new", false}));
    EXPECT_EQ(fields[2], (tags::LyricField{"ID3v2", "USLT", "deu", "", "Worte", false}));
    EXPECT_EQ(readOk(path).title, "Name");
}

TEST_F(Save, ErasingTheLyricLeavesOtherLanguages)
{
    const std::string path
        = mp3(id3v2(4, {{"USLT", uslt("eng", "", "[00:01.00]words")}, {"USLT", uslt("deu", "", "Worte")}}));
    saveOk(path, "");
    EXPECT_THAT(
        readOk(path).lyricFields, ElementsAre(tags::LyricField{"ID3v2", "USLT", "deu", "", "Worte", false}));
}

TEST_F(Save, BytesOfOtherFramesStayWhateverTheyAre)
{
    // A frame nobody knows, one that 2.4 dropped, a deflated one, one with a terminator too many.
    const std::string frames[] = {"XABC", "RVAD", "TIT2"};
    const std::string path = mp3(id3v2(3,
        {{"XABC", std::string("\x01\x02\0\x03", 4)}, {"RVAD", std::string(12, '\x05')},
            {"TIT2", std::string("\0Name\0\0", 7)}}));
    const std::string before = contents(path);
    saveOk(path, kLyric);
    const std::string after = contents(path);
    for (const std::string &id : frames) {
        const std::size_t was = before.find(id);
        const std::size_t is = after.find(id);
        ASSERT_NE(is, std::string::npos) << id;
        EXPECT_EQ(after.substr(is, 14), before.substr(was, 14)) << id;
    }
    saveOk(path, "");
    EXPECT_EQ(readOk(path).title, "Name");
}

TEST_F(Save, UserTextFrameThatHeldTheLyricIsTheOneWritten)
{
    const std::string path = mp3(id3v2(4, {{"TXXX", std::string("\3SYNCEDLYRICS\0[00:01.00]a", 25)}}));
    ASSERT_EQ(readOk(path).lyric, "[00:01.00]a");
    saveOk(path, "[00:01.00]b");
    const std::vector<tags::LyricField> fields = readOk(path).lyricFields;
    EXPECT_THAT(fields,
        ElementsAre(
            tags::LyricField{"ID3v2", "TXXX:SYNCEDLYRICS", "", "SYNCEDLYRICS", "[00:01.00]b", false}));
}

TEST_F(Save, VorbisKeyKeepsItsSpellingAndOtherKeysTheirs)
{
    const std::string path = folder.file("song.flac");
    static_cast<void>(output({"ffmpeg", "-v", "error", "-nostdin", "-i", sample("tagged.flac"), "-c", "copy",
        "-metadata", "UnsyncedLyrics=words", "-metadata", "mixedCase=1", path}));
    ASSERT_EQ(readOk(path).lyric, "words");
    saveOk(path, kLyric);
    const std::string bytes = contents(path);
    EXPECT_THAT(bytes, HasSubstr("UnsyncedLyrics=" + kLyric));
    EXPECT_THAT(bytes, HasSubstr("mixedCase=1"));
}

TEST_F(Save, LyricThatIsNoUtf8IsKeptWhereTheFormatKeepsBytes)
{
    const std::string bytes = "[00:01.00]\xFF\xC0 one\n";
    for (const char *name : {"tagged.flac", "tagged.ogg", "tagged.m4a"}) {
        const std::string path = folder.copy(sample(name));
        saveOk(path, bytes);
        EXPECT_EQ(readOk(path).lyric, bytes) << name;
    }
}

TEST_F(Save, LyricThatIsNoUtf8IsRefusedById3)
{
    const std::string path = folder.copy(sample("v24.mp3"));
    const std::string before = contents(path);
    const auto saved = tags::saveLyric(path, "[00:01.00]\xFF one\n", readOk(path).state);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::NotText);
    EXPECT_EQ(contents(path), before);
}

TEST_F(Save, LyricTooLongForFlacIsRefused)
{
    const std::string path = folder.copy(sample("tagged.flac"));
    const std::string before = contents(path);
    const auto saved = tags::saveLyric(path, std::string(17U << 20, 'x'), readOk(path).state);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::TooLarge);
    EXPECT_EQ(contents(path), before);
}

TEST_F(Save, ReadOnlyFileIsRefused)
{
    const std::string path = folder.copy(sample("v24.mp3"));
    const std::string before = contents(path);
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    const auto saved = tags::saveLyric(path, kLyric, readOk(path).state);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::ReadOnly);
    EXPECT_THAT(saved.failure().message.english(), HasSubstr("read-only"));
    EXPECT_EQ(contents(path), before);
    EXPECT_THAT(folder.names(), ElementsAre("v24.mp3"));
}

TEST_F(Save, FileThatIsGoneIsRefused)
{
    const std::string path = folder.copy(sample("v24.mp3"));
    const tags::FileState state = readOk(path).state;
    std::filesystem::remove(path);
    const auto saved = tags::saveLyric(path, kLyric, state);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::Missing);
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(Save, FileChangedMeanwhileIsLeftAlone)
{
    const std::string path = folder.copy(sample("v24.mp3"));
    const tags::FileState state = readOk(path).state;
    saveOk(path, "[00:01.00]somebody else's");
    const std::string theirs = contents(path);
    const auto saved = tags::saveLyric(path, kLyric, state);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::ChangedMeanwhile);
    EXPECT_EQ(contents(path), theirs);
}

TEST_F(Save, ChangeThatKeepsSizeAndTimeIsNoticed)
{
    const std::string path = folder.copy(sample("v24.mp3"));
    const tags::FileState state = readOk(path).state;
    const auto time = std::filesystem::last_write_time(path);
    std::string bytes = contents(path);
    bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 1);
    write(path, bytes);
    std::filesystem::last_write_time(path, time);
    const auto saved = tags::saveLyric(path, kLyric, state);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::ChangedMeanwhile);
}

TEST_F(Save, LinkStaysALinkAndItsTargetIsWritten)
{
    const std::string target = folder.copy(sample("v24.mp3"));
    std::filesystem::create_directory(folder.file("links"));
    const std::string link = folder.file("links/link.mp3");
    std::filesystem::create_symlink("../v24.mp3", link);
    saveOk(link, kLyric);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(readOk(target).lyric, kLyric);
}

TEST_F(Save, LinkInACircleIsRefused)
{
    const std::string link = folder.file("loop.mp3");
    std::filesystem::create_symlink("loop.mp3", link);
    const auto saved = tags::saveLyric(link, kLyric, {});
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::SystemError);
}

TEST_F(Save, HardLinkIsTold)
{
    const std::string path = folder.copy(sample("v24.mp3"));
    std::filesystem::create_hard_link(path, folder.file("other.mp3"));
    EXPECT_THAT(saveOk(path, kLyric).remark.english(), HasSubstr("hard link"));
    EXPECT_FALSE(readOk(folder.file("other.mp3")).lyric.has_value());
}

TEST_F(Save, ModeAndAttributesAreKept)
{
    const std::string path = folder.copy(sample("tagged.flac"));
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    const bool attributes = setxattr(path.c_str(), "user.note", "mine", 4, 0) == 0;
    saveOk(path, kLyric);
    struct stat status = {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    if (!attributes)
        GTEST_SKIP() << "this file system has no extended attributes";
    char value[8] = {};
    EXPECT_EQ(getxattr(path.c_str(), "user.note", value, sizeof value), 4);
    EXPECT_STREQ(value, "mine");
}

TEST_F(Save, OwnerIsKept)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can give files away";
    const std::string path = folder.copy(sample("tagged.flac"));
    ASSERT_EQ(chown(path.c_str(), 12345, 54321), 0);
    ASSERT_EQ(chmod(path.c_str(), 0644), 0);
    saveOk(path, kLyric);
    struct stat status = {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 12345U);
    EXPECT_EQ(status.st_gid, 54321U);
}

TEST_F(Save, WhatACrashLeftIsSwept)
{
    const std::string path = folder.copy(sample("v24.mp3"));
    write(folder.file(".tqlrc-save-99999999-1"), "half a file");
    write(folder.file(".tqlrc-other"), "somebody else's");
    saveOk(path, kLyric);
    EXPECT_THAT(folder.names(), ElementsAre(".tqlrc-other", "v24.mp3"));
}

TEST_F(Save, TagBehindJunkIsNotHidden)
{
    const std::string path = mp3("junk" + id3v2(3, {{"TIT2", std::string("\0Name", 5)}}));
    const std::string before = contents(path);
    const auto saved = tags::saveLyric(path, kLyric, readOk(path).state);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::Unsupported);
    EXPECT_EQ(contents(path), before);
}

TEST_F(Save, FileBeyondTwoGibibytesIsNotOpened)
{
    const std::string path = folder.copy(sample("tagged.flac"));
    ASSERT_EQ(truncate(path.c_str(), (2LL << 30) + 1), 0);
    const auto read = tags::read(path);
    ASSERT_FALSE(read.ok());
    EXPECT_EQ(read.failure().reason, tags::Reason::TooLarge);
}

TEST_F(Save, TagsAtTheEndOfAnMp3Stay)
{
    const std::string id3v1 = "TAG" + std::string(124, 'x') + '\0';
    const std::string path = mp3("");
    write(path, contents(path) + id3v1);
    const std::string before = contents(path);
    saveOk(path, kLyric);
    const std::string after = contents(path);
    EXPECT_EQ(after.substr(after.size() - before.size()), before);
}

TEST_F(Save, SecondTagBehindTheFirstStays)
{
    const std::string second = id3v2(3, {{"TALB", std::string("\0Other", 6)}});
    const std::string path = mp3(id3v2(3, {{"TIT2", std::string("\0Name", 5)}}) + second);
    saveOk(path, kLyric);
    EXPECT_THAT(contents(path), HasSubstr(second + contents(sample("untagged.mp3"))));
}

TEST_F(Save, TruncatedTailOfAnOggFileIsRefused)
{
    const std::string path = folder.file("cut.ogg");
    const std::string whole = contents(sample("tagged.ogg"));
    write(path, whole.substr(0, whole.size() - 100));
    const std::string before = contents(path);
    const auto saved = tags::saveLyric(path, kLyric, readOk(path).state);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::Damaged);
    EXPECT_EQ(contents(path), before);
}

} // namespace
