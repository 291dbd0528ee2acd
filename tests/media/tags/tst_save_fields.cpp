// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/AudioTags.h"
#include "media/tags/ByteSource.h"
#include "media/tags/FaultySystem.h"
#include "media/tags/HandMade.h"
#include "media/tags/SaveLyric.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <zlib.h>

namespace {

using namespace samples;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kLyric = "[00:01.00]first line\n[00:02.50]second line\n";

/// A file of 130 MiB: an ID3v2 tag, then one frame of sound over and over.
std::string largeMp3(const Folder &folder)
{
    const std::string frame = "\xFF\xFB\x90\x64" + std::string(413, '\0');
    const std::string path = folder.file("large.mp3");
    std::ofstream out(path, std::ios::binary);
    out << id3v2(4, {{"TIT2", std::string("\3Large")}, {"USLT", uslt("eng", "", "old words")}});
    std::string block;
    while (block.size() < (1U << 20))
        block += frame;
    for (int i = 0; i < 130; ++i)
        out << block;
    return path;
}

class SaveFields : public testing::Test
{
protected:
    Folder folder{Folder::On::Memory};

    static tags::AudioTags readOk(const std::string &path)
    {
        auto outcome = tags::read(path);
        EXPECT_TRUE(outcome.ok());
        return outcome.ok() ? outcome.value() : tags::AudioTags();
    }

    static std::vector<std::string> texts(const std::string &path)
    {
        std::vector<std::string> out;
        for (const tags::LyricField &field : readOk(path).lyricFields)
            out.push_back(field.name + '=' + field.text);
        return out;
    }
};

TEST_F(SaveFields, SeveralAtOnceChangeAddAndTakeAway)
{
    const std::string path = folder.copy(sample("tagged.flac"));
    const std::vector<tags::FieldEdit> first = {
        {{{}, "UNSYNCEDLYRICS"}, "words"}, {{{}, "SYNCEDLYRICS"}, kLyric}, {{{}, "LYRICS"}, "other words"}};
    const auto saved = tags::saveFields(path, first, readOk(path).state);
    ASSERT_TRUE(saved.ok()) << saved.failure().message.english();
    ASSERT_THAT(
        texts(path), ElementsAre("LYRICS=other words", "SYNCEDLYRICS=" + kLyric, "UNSYNCEDLYRICS=words"));

    const std::vector<tags::FieldEdit> second
        = {{{0, {}}, ""}, {{2, {}}, "changed"}, {{{}, "UNSYNCED LYRICS"}, "new"}, {{1, {}}, kLyric}};
    ASSERT_TRUE(tags::saveFields(path, second, saved.value().state).ok());
    EXPECT_THAT(
        texts(path), ElementsAre("SYNCEDLYRICS=" + kLyric, "UNSYNCEDLYRICS=changed", "UNSYNCED LYRICS=new"));
    EXPECT_EQ(readOk(path).title, "The Title");
}

TEST_F(SaveFields, WhatIsSaidAlreadyIsNotWritten)
{
    const std::string path = folder.copy(sample("tagged.flac"));
    const auto saved = tags::saveFields(path, {{{{}, "LYRICS"}, kLyric}}, readOk(path).state);
    ASSERT_TRUE(saved.ok());
    const auto again
        = tags::saveFields(path, {{{0, {}}, kLyric}, {{{}, "SYNCEDLYRICS"}, ""}}, saved.value().state);
    ASSERT_TRUE(again.ok());
    EXPECT_FALSE(again.value().written);
    EXPECT_EQ(again.value().state, saved.value().state);
}

TEST_F(SaveFields, OneFieldThatCannotBeWrittenLeavesThemAllAsTheyWere)
{
    const std::string path = folder.copy(sample("v24.mp3"));
    const std::string before = contents(path);
    const auto saved = tags::saveFields(
        path, {{{{}, "USLT"}, kLyric}, {{{}, "TXXX:LYRICS"}, "bad \xFF byte"}}, readOk(path).state);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::NotText);
    EXPECT_EQ(contents(path), before);
}

TEST_F(SaveFields, UntimedWordsDoNotTakeASynchronisedFieldAway)
{
    const std::string path = folder.copy(sample("v24.mp3"));
    ASSERT_TRUE(tags::saveFields(path, {{{{}, "SYLT"}, kLyric}}, readOk(path).state).ok());
    const std::string before = contents(path);
    const auto saved = tags::saveFields(path, {{{0, {}}, "just words"}}, readOk(path).state);
    ASSERT_FALSE(saved.ok());
    EXPECT_THAT(saved.failure().message.english(), HasSubstr("timed lines alone"));
    EXPECT_EQ(contents(path), before);
}

TEST_F(SaveFields, ALyricThatWouldNotReadBackIsRefused)
{
    const std::string path = folder.copy(sample("tagged.flac"));
    const std::vector<tags::FieldEdit> two
        = {{{{}, "LYRICS"}, kLyric}, {{{}, "SYNCEDLYRICS"}, "[00:01.00]older"}};
    ASSERT_TRUE(tags::saveFields(path, two, readOk(path).state).ok());
    const std::string before = contents(path);
    const auto saved = tags::saveLyric(path, "just words", readOk(path).state);
    ASSERT_FALSE(saved.ok());
    EXPECT_THAT(saved.failure().message.english(), HasSubstr("SYNCEDLYRICS"));
    EXPECT_EQ(contents(path), before);
    const auto cleared = tags::saveFields(path, {{{1, {}}, ""}}, readOk(path).state);
    ASSERT_TRUE(cleared.ok());
    ASSERT_TRUE(tags::saveLyric(path, "just words", cleared.value().state).ok());
    EXPECT_EQ(readOk(path).lyric, "just words");
}

TEST_F(SaveFields, TwoNewFieldsMaySayTheSame)
{
    for (const auto &[name, first, second] : {std::tuple("tagged.flac", "LYRICS", "SYNCEDLYRICS"),
             std::tuple("v24.mp3", "USLT", "TXXX:SYNCEDLYRICS"),
             std::tuple("tagged.wv", "Lyrics", "SYNCEDLYRICS")}) {
        const std::string path = folder.copy(sample(name));
        const auto saved
            = tags::saveFields(path, {{{{}, first}, kLyric}, {{{}, second}, kLyric}}, readOk(path).state);
        ASSERT_TRUE(saved.ok()) << name << ": " << saved.failure().message.english();
        EXPECT_EQ(texts(path).size(), 2U) << name;
        EXPECT_EQ(readOk(path).lyric, kLyric);
    }
}

TEST_F(SaveFields, ATrialAnswersWhatTheSaveWouldAndWritesNothing)
{
    const std::string path = folder.copy(sample("v24.mp3"));
    const std::string before = contents(path);
    const tags::FileState state = readOk(path).state;
    const auto fine = tags::tryFields(path, {{{{}, "USLT"}, kLyric}}, state);
    ASSERT_TRUE(fine.ok());
    EXPECT_TRUE(fine.value().written);
    const std::vector<tags::FieldEdit> refused = {{{{}, "USLT"}, "bad \xFF byte"}};
    ASSERT_FALSE(tags::tryFields(path, refused, state).ok());
    EXPECT_EQ(tags::tryFields(path, refused, state).failure().message.english(),
        tags::saveFields(path, refused, state).failure().message.english());
    EXPECT_EQ(contents(path), before);
    EXPECT_THAT(folder.names(), ElementsAre("v24.mp3"));
}

TEST_F(SaveFields, ManyFilesOfOneFolderAtOnce)
{
    constexpr int kFiles = 8;
    constexpr int kRounds = 40;
    for (int i = 0; i < kFiles; ++i)
        static_cast<void>(folder.copy(sample("tagged.flac"), std::to_string(i)));
    std::atomic<int> refused = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < kFiles; ++i) {
        threads.emplace_back([&refused, path = folder.file(std::to_string(i))] {
            for (int round = 0; round < kRounds; ++round) {
                const auto state = tags::read(path).value().state;
                refused += tags::saveLyric(path, std::to_string(round), state).ok() ? 0 : 1;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(refused, 0);
    EXPECT_EQ(folder.names().size(), std::size_t(kFiles));
}

TEST_F(SaveFields, AnApeTagThatIsTheOnlyOneGetsTheLyric)
{
    const std::string path = folder.file("ape.mp3");
    write(path, contents(sample("untagged.mp3")) + apeTag({{"Title", "The Title"}}));
    ASSERT_EQ(readOk(path).title, "The Title");
    const auto saved = tags::saveLyric(path, kLyric, readOk(path).state);
    ASSERT_TRUE(saved.ok()) << saved.failure().message.english();
    EXPECT_EQ(saved.value().remark.english(), "");
    EXPECT_THAT(texts(path), ElementsAre("Lyrics=" + kLyric));
    EXPECT_NE(contents(path).substr(0, 3), "ID3") << "a tag at the start would hide the one at the end";
    EXPECT_EQ(readOk(path).title, "The Title");
}

TEST_F(SaveFields, ANewTagBesideAnId3v1TagIsTold)
{
    const std::string path = folder.file("v1.mp3");
    write(path, contents(sample("untagged.mp3")) + "TAG" + "The Title" + std::string(116, '\0'));
    ASSERT_EQ(readOk(path).title, "The Title");
    const auto saved = tags::saveLyric(path, kLyric, readOk(path).state);
    ASSERT_TRUE(saved.ok()) << saved.failure().message.english();
    EXPECT_THAT(saved.value().remark.english(), HasSubstr("older ID3 tag"));
    const auto again = tags::saveLyric(path, kLyric + "more", saved.value().state);
    ASSERT_TRUE(again.ok());
    EXPECT_EQ(again.value().remark.english(), "");
}

/// `bytes`, an MP4 file whose movie stands last, with `more` at the end of its lyric atom.
std::string withMoreInLyricAtom(std::string bytes, const std::string &more)
{
    const std::string lyricAtom = "\xA9lyr";
    const std::size_t lyric = bytes.find(lyricAtom) - 4;
    for (const std::string &name :
        {std::string("moov"), std::string("udta"), std::string("meta"), std::string("ilst"), lyricAtom}) {
        const std::size_t at = bytes.rfind(name, lyric + 4) - 4;
        const std::uint64_t size = tags::bigEndian(bytes, at, 4) + more.size();
        bytes.replace(at, 4, tags::toBigEndian(size, 4));
    }
    return bytes.insert(lyric + std::size_t(tags::bigEndian(bytes, lyric, 4)) - more.size(), more);
}

TEST_F(SaveFields, TheSecondValueOfAnMp4LyricStays)
{
    const std::string path = folder.copy(sample("tagged.m4a"));
    ASSERT_TRUE(tags::saveLyric(path, "first", readOk(path).state).ok());
    const std::string second
        = tags::toBigEndian(22, 4) + "data" + tags::toBigEndian(1, 4) + tags::toBigEndian(0, 4) + "second";
    write(path, withMoreInLyricAtom(contents(path), second));
    ASSERT_EQ(readOk(path).lyric, "first");
    const auto saved = tags::saveLyric(path, kLyric, readOk(path).state);
    ASSERT_TRUE(saved.ok()) << saved.failure().message.english();
    EXPECT_EQ(readOk(path).lyric, kLyric);
    EXPECT_NE(contents(path).find(second), std::string::npos);
}

TEST_F(SaveFields, CancelledAtAnyMomentLeavesTheOldFileAndNothingElse)
{
    for (const char *name : {"v24.mp3", "tagged.flac", "faststart.m4a"}) {
        const std::string path = folder.copy(sample(name));
        const std::string before = contents(path);
        int cancelledAt = 0;
        for (bool cancelled = true; cancelled; ++cancelledAt) {
            int calls = 0;
            double last = 0;
            const auto progress = [&](double done) {
                EXPECT_GE(done, last);
                EXPECT_LE(done, 1.0);
                last = done;
                return calls++ != cancelledAt;
            };
            const auto saved = tags::saveLyric(path, kLyric, readOk(path).state, progress);
            cancelled = !saved.ok();
            if (cancelled) {
                EXPECT_EQ(saved.failure().reason, tags::Reason::Cancelled);
                EXPECT_EQ(contents(path), before);
                EXPECT_EQ(calls, cancelledAt + 1) << "nobody is asked again after a no";
            }
            EXPECT_THAT(folder.names(), ElementsAre(std::string(name)));
        }
        EXPECT_GE(cancelledAt, 4) << "asked before, while and after the copy is written";
        EXPECT_EQ(readOk(path).lyric, kLyric);
        std::filesystem::remove(path);
    }
}

TEST_F(SaveFields, LargeFileIsCopiedWithoutHoldingIt)
{
    const std::string path = largeMp3(folder);
    const auto size = std::filesystem::file_size(path);
    ASSERT_GT(size, tags::kMaxMemoryBytes);
    const tags::AudioTags before = readOk(path);
    EXPECT_EQ(before.lyric, "old words");
    EXPECT_FALSE(before.state.hash);
    const auto saved = tags::saveLyric(path, kLyric, before.state);
    ASSERT_TRUE(saved.ok()) << saved.failure().message.english();
    EXPECT_EQ(readOk(path).lyric, kLyric);
    EXPECT_EQ(readOk(path).state, saved.value().state);
    EXPECT_EQ(readOk(path).title, "Large");
    EXPECT_THAT(folder.names(), ElementsAre("large.mp3"));
}

TEST_F(SaveFields, LargeFileThatCannotBeReadToItsEndIsLeftAlone)
{
    const std::string path = largeMp3(folder);
    const tags::AudioTags before = readOk(path);
    FaultySystem counting(0, 0);
    ASSERT_TRUE(tags::saveLyric(path, kLyric, before.state, {}, counting).ok());
    const tags::FileState state = readOk(path).state;
    const auto modified = std::filesystem::last_write_time(path);
    // Every call would take minutes at this size; these fall into each part of the work.
    for (const int tenth : {2, 5, 8}) {
        FaultySystem system(counting.calls() * tenth / 10, EIO);
        const auto saved = tags::saveLyric(path, "[00:03.00]other", state, {}, system);
        ASSERT_FALSE(saved.ok()) << "tenth " << tenth;
        EXPECT_EQ(std::filesystem::last_write_time(path), modified);
        EXPECT_THAT(folder.names(), ElementsAre("large.mp3"));
    }
}

TEST_F(SaveFields, WordsWithoutTimesAreRefusedByAnEmptySynchronisedFieldToo)
{
    const std::string path = folder.file("empty.mp3");
    write(path, id3v2(3, {{"SYLT", std::string("\0eng\2\1\0", 7)}}) + contents(sample("untagged.mp3")));
    const auto saved = tags::saveFields(path, {{{0, {}}, "just words"}}, readOk(path).state);
    ASSERT_FALSE(saved.ok());
    EXPECT_THAT(saved.failure().message.english(), HasSubstr("timed lines alone"));
}

/// A field that another program keeps deflated is a field as any other.
TEST_F(SaveFields, ADeflatedLyricIsReadAndWrittenAnew)
{
    const std::string body = uslt("eng", "notes", "[00:01.00]deflated");
    uLongf size = compressBound(static_cast<uLong>(body.size()));
    std::string deflated(size, '\0');
    ASSERT_EQ(compress(reinterpret_cast<Bytef *>(deflated.data()), &size,
                  reinterpret_cast<const Bytef *>(body.data()), static_cast<uLong>(body.size())),
        Z_OK);
    deflated.resize(size);
    const std::string path = folder.file("deflated.mp3");
    for (const int version : {3, 4}) {
        std::string tag = id3v2(version, {{"USLT", big(body.size(), 4) + deflated}});
        tag[10 + 9] = version == 3 ? '\x80' : '\x09';
        write(path, tag + contents(sample("untagged.mp3")));
        const tags::AudioTags before = readOk(path);
        ASSERT_EQ(before.lyricFields.size(), 1U) << version;
        EXPECT_EQ(before.lyricFields.front(),
            (tags::LyricField{"ID3v2", "USLT", "eng", "notes", "[00:01.00]deflated", false}));
        ASSERT_TRUE(tags::saveLyric(path, kLyric, before.state).ok());
        EXPECT_THAT(texts(path), ElementsAre("USLT=" + kLyric));
        EXPECT_EQ(readOk(path).lyricFields.front().description, "notes");
    }
}

TEST_F(SaveFields, ATagThatHidesAnOlderOneIsTold)
{
    const std::string id3 = id3v2(3, {{"TIT2", std::string("\0Name", 5)}});
    const std::string flac = contents(sample("tagged.flac"));
    constexpr std::size_t infoBytes = 4 + 34;
    const std::string info = '\x80' + flac.substr(5, infoBytes - 1); // the only block, and the last
    const std::pair<const char *, std::string> files[] = {{"id3.ape", id3 + contents(sample("untagged.ape"))},
        {"id3.flac", id3 + "fLaC" + info + flac.substr(flac.find("\xFF\xF8"))}};
    for (const auto &[name, bytes] : files) {
        const std::string path = folder.file(name);
        write(path, bytes);
        const auto saved = tags::saveLyric(path, kLyric, readOk(path).state);
        ASSERT_TRUE(saved.ok()) << name << saved.failure().message.english();
        EXPECT_THAT(saved.value().remark.english(), HasSubstr("older ID3 tag")) << name;
        const auto again = tags::saveLyric(path, "other words", saved.value().state);
        EXPECT_TRUE(again.value().remark.empty()) << name;
    }
}

TEST_F(SaveFields, AnotherFieldThatIsStaleFromNowOnIsTold)
{
    const std::string path = folder.copy(sample("tagged.flac"));
    const std::vector<tags::FieldEdit> both
        = {{{{}, "LYRICS"}, "first line\nsecond line"}, {{{}, "SYNCEDLYRICS"}, kLyric}};
    const auto saved = tags::saveFields(path, both, readOk(path).state);
    ASSERT_TRUE(saved.ok());
    EXPECT_TRUE(saved.value().remark.empty());
    const auto changed = tags::saveLyric(path, "[00:01.00]other words\n", saved.value().state);
    ASSERT_TRUE(changed.ok());
    EXPECT_EQ(changed.value().remark.english(),
        "Another lyric field of the file, LYRICS, says something else now.");
    const auto again = tags::saveLyric(path, "[00:01.00]other\n", changed.value().state);
    EXPECT_TRUE(again.value().remark.empty()) << "it was stale before";
}

/// Written in place by somebody who gives the file its old time back.
TEST_F(SaveFields, ALargeFileThatChangedUnderItsTimeIsLeftAlone)
{
    const std::string path = folder.file("large.mp3");
    std::string bytes = id3v2(4, {{"USLT", uslt("eng", "", "old words")}}) + contents(sample("untagged.mp3"));
    bytes += std::string(tags::kMaxMemoryBytes, '\0');
    write(path, bytes);
    const tags::AudioTags before = readOk(path);
    struct stat status = {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    bytes.replace(bytes.find("old words"), 9, "new words");
    {
        std::fstream in(path, std::ios::in | std::ios::out | std::ios::binary);
        in << bytes.substr(0, 200);
    }
    const timespec times[] = {status.st_atim, status.st_mtim};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    const auto saved = tags::saveLyric(path, kLyric, before.state);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::ChangedMeanwhile);
    EXPECT_THAT(texts(path), ElementsAre("USLT=new words"));
}

TEST_F(SaveFields, AFileThatAnotherSaveIsAtIsLeftAlone)
{
    const std::string path = folder.copy(sample("v24.mp3"));
    const tags::FileState state = readOk(path).state;
    const int other = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(other, LOCK_EX | LOCK_NB), 0);
    const auto refused = tags::saveLyric(path, kLyric, state);
    ASSERT_FALSE(refused.ok());
    EXPECT_EQ(refused.failure().reason, tags::Reason::ChangedMeanwhile);
    EXPECT_THAT(refused.failure().message.english(), HasSubstr("at this moment"));
    ASSERT_EQ(close(other), 0);
    EXPECT_TRUE(tags::saveLyric(path, kLyric, state).ok());
}

/// Two at once on one file: who is told that it was saved finds what it saved.
TEST_F(SaveFields, OfTwoSavesAtOnceNoneIsLostUntold)
{
    const std::string path = folder.copy(sample("tagged.flac"));
    const std::string before = contents(path);
    for (int round = 0; round < 60; ++round) {
        write(path, before);
        const tags::FileState state = readOk(path).state;
        const std::string names[] = {"UNSYNCEDLYRICS", "SYNCEDLYRICS"};
        bool saved[2] = {};
        const auto save = [&](int i) {
            saved[i] = tags::saveFields(path, {{{{}, names[i]}, kLyric}}, state).ok();
        };
        std::thread beside(save, 0);
        save(1);
        beside.join();
        std::vector<std::string> expected;
        for (int i = 0; i < 2; ++i) {
            if (saved[i])
                expected.push_back(names[i] + '=' + kLyric);
        }
        EXPECT_THAT(texts(path), testing::UnorderedElementsAreArray(expected)) << "round " << round;
    }
}

} // namespace
