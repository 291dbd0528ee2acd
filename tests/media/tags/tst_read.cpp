// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/AudioTags.h"
#include "media/tags/FaultySystem.h"
#include "media/tags/HandMade.h"
#include "media/tags/SaveLyric.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace samples;
using tags::Reason;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

Reason reasonOf(const std::string &path)
{
    const auto outcome = tags::read(path);
    EXPECT_FALSE(outcome.ok()) << path;
    if (outcome.ok())
        return Reason::WouldChangeMore;
    EXPECT_THAT(outcome.failure().message.english(), Not(IsEmpty()));
    return outcome.failure().reason;
}

TEST(Read, TitleArtistAlbumCoverAndDuration)
{
    for (const std::string &name : names()) {
        const auto outcome = tags::read(sample(name));
        ASSERT_TRUE(outcome.ok()) << name << ": " << outcome.failure().message.english();
        const tags::AudioTags &tags = outcome.value();
        const bool tagged = name.find("untagged") != 0;
        EXPECT_EQ(tags.title, tagged ? "The Title" : "") << name;
        EXPECT_EQ(tags.artist, tagged ? "The Artist" : "") << name;
        EXPECT_EQ(tags.album, tagged ? "The Album" : "") << name;
        // TagLib finds no length in Ogg FLAC; the player's word counts as soon as it is known.
        EXPECT_NEAR(tags.duration, name == "tagged.oga" ? 0.0 : 2.0, 0.1) << name;
        EXPECT_FALSE(tags.lyric.has_value()) << name;
        EXPECT_EQ(tags.state.size, contents(sample(name)).size()) << name;
        const bool covered = name == "v23.mp3" || name == "v24.mp3" || name == "tagged.flac"
            || name == "tagged.m4a" || name == "faststart.m4a" || name == "tagged.aiff";
        EXPECT_EQ(tags.cover.substr(0, 3), covered ? "\xFF\xD8\xFF" : "") << name;
    }
}

TEST(Read, ContentDecidesNotTheName)
{
    const Folder folder;
    EXPECT_EQ(
        tags::read(folder.copy(sample("tagged.flac"), "really.mp3")).value().format, tags::Format::Flac);
    EXPECT_EQ(tags::read(folder.copy(sample("v24.mp3"), "really.ogg")).value().format, tags::Format::Mpeg);
    EXPECT_EQ(
        tags::read(folder.copy(sample("tagged.m4a"), "no extension")).value().format, tags::Format::Mp4);
    EXPECT_EQ(
        tags::read(folder.copy(sample("tagged.opus"), "opus.mp3")).value().format, tags::Format::OggOpus);
}

TEST(Read, TextThatIsCalledMp3IsNoAudio)
{
    const Folder folder;
    const std::string path = folder.file("song.mp3");
    for (const std::string &text : {std::string("just words\n"), std::string(100000, 'a'),
             std::string(100000, '\0'), std::string("\xFF\xFEw\0o\0r\0d\0s\0", 12),
             std::string("\xFF\xFB\x90\x40 and words"), std::string("ID3")}) {
        write(path, text);
        EXPECT_EQ(reasonOf(path), Reason::NotAudio) << text.substr(0, 20);
    }
}

TEST(Read, EmptyFileIsNoAudio)
{
    const Folder folder;
    write(folder.file("song.mp3"), "");
    EXPECT_EQ(reasonOf(folder.file("song.mp3")), Reason::NotAudio);
}

TEST(Read, AudioOfAnotherKindIsNamed)
{
    const Folder folder;
    for (const auto &[head, name] : {std::pair("DSD ", "DSF"), std::pair("RF64", "RF64"),
             std::pair("BW64", "BW64"), std::pair("RIFF1234AVI ", "RIFF")}) {
        write(folder.file("song.wav"), head + std::string(100, '\0'));
        const auto outcome = tags::read(folder.file("song.wav"));
        ASSERT_FALSE(outcome.ok());
        EXPECT_EQ(outcome.failure().reason, Reason::Unsupported);
        EXPECT_THAT(outcome.failure().message.english(), HasSubstr(name));
        EXPECT_THAT(
            outcome.failure().message.english(), HasSubstr("Choose an MP3, M4A, FLAC, Ogg, Opus, WAV"));
    }
}

TEST(Read, MissingFileFolderAndLinkToNowhere)
{
    const Folder folder;
    EXPECT_EQ(reasonOf(folder.file("none.mp3")), Reason::Missing);
    EXPECT_EQ(reasonOf(folder.file("none/song.mp3")), Reason::Missing);
    EXPECT_EQ(reasonOf(folder.path()), Reason::NotAFile);
    EXPECT_EQ(reasonOf(""), Reason::Missing);
    EXPECT_EQ(reasonOf(std::string("a\0b", 3)), Reason::Missing);
    std::filesystem::create_symlink("nowhere", folder.file("link.mp3"));
    EXPECT_EQ(reasonOf(folder.file("link.mp3")), Reason::Missing);
}

TEST(Read, PipeAndDeviceAreNotWaitedFor)
{
    const Folder folder;
    ASSERT_EQ(mkfifo(folder.file("pipe.mp3").c_str(), 0600), 0);
    EXPECT_EQ(reasonOf(folder.file("pipe.mp3")), Reason::NotAFile);
    EXPECT_EQ(reasonOf("/dev/zero"), Reason::NotAFile);
}

TEST(Read, FileWithoutPermission)
{
    const Folder folder;
    const std::string path = folder.copy(sample("v24.mp3"));
    // What the system says to everybody but root, who reads everything.
    FaultySystem forbidding(1, EACCES);
    const auto outcome = tags::read(path, forbidding);
    ASSERT_FALSE(outcome.ok());
    EXPECT_EQ(outcome.failure().reason, Reason::NoPermission);
}

TEST(Read, HugeFileIsNotRead)
{
    const Folder folder;
    const std::string path = folder.copy(sample("v24.mp3"));
    ASSERT_EQ(truncate(path.c_str(), 3LL << 30), 0);
    EXPECT_EQ(reasonOf(path), Reason::TooLarge);
}

TEST(Read, FileTooLargeToSaveIsStillRead)
{
    const Folder folder;
    const std::string path = folder.copy(sample("tagged.flac"));
    ASSERT_EQ(truncate(path.c_str(), 200LL << 20), 0);
    const auto outcome = tags::read(path);
    ASSERT_TRUE(outcome.ok()) << outcome.failure().message.english();
    EXPECT_EQ(outcome.value().title, "The Title");
    EXPECT_FALSE(outcome.value().state.hash.has_value());
}

TEST(Read, EachCallThatFailsIsARefusalWithTheReason)
{
    const std::string path = sample("v24.mp3");
    for (int failing = 1;; ++failing) {
        FaultySystem system(failing, EIO);
        const auto outcome = tags::read(path, system);
        if (!system.hasFailed())
            break;
        if (failing == system.calls() && outcome.ok())
            continue; // the last call closes the file; what was read stays read
        ASSERT_FALSE(outcome.ok()) << failing;
        EXPECT_EQ(outcome.failure().reason, Reason::SystemError);
        EXPECT_THAT(outcome.failure().message.english(), HasSubstr(std::strerror(EIO)));
    }
}

TEST(Read, EveryTruncationIsReadOrRefused)
{
    const Folder folder(Folder::On::Memory);
    for (const char *name :
        {"v23.mp3", "tagged.flac", "tagged.m4a", "faststart.m4a", "tagged.ogg", "tagged.opus", "tagged.aiff",
            "tagged.aac", "tagged.ape", "tagged.wv", "tagged.mpc", "tagged.wma"}) {
        const std::string whole = contents(sample(name));
        int refused = 0;
        for (std::size_t size = 0; size < whole.size(); size += size < 600 ? 1 : 997) {
            write(folder.file(name), whole.substr(0, size));
            refused += tags::read(folder.file(name)).ok() ? 0 : 1;
        }
        EXPECT_GT(refused, 10) << name;
    }
}

TEST(Read, Utf16LyricsInEitherByteOrder)
{
    const Folder folder;
    const std::string path = folder.file("song.mp3");
    const std::string little = std::string("\1eng\xFF\xFE\0\0\xFF\xFE\x70\x8D\n\0", 14);
    const std::string big = std::string("\1eng\xFE\xFF\0\0\xFE\xFF\x8D\x70\0\n", 14);
    const std::string unmarked = std::string("\2eng\0\0\x8D\x70\0\n\0\0", 12); // and terminated
    for (const std::string &body : {little, big, unmarked}) {
        write(path, id3v2(3, {{"USLT", body}}) + contents(sample("untagged.mp3")));
        EXPECT_EQ(tags::read(path).value().lyric, "\u8D70\n");
    }
}

TEST(Read, TagUnsynchronisedAsAWhole)
{
    const Folder folder;
    const std::string path = folder.file("song.mp3");
    // The mark FF FE of UTF-16 is what unsynchronisation breaks up: FF 00 FE.
    std::string tag = id3v2(3, {{"USLT", std::string("\1eng\xFF\0\xFE\0\0\xFF\0\xFE\x70\x8D", 14)}});
    tag[5] = '\x80';
    tag[17] = '\x0C'; // sizes of frames are from before
    write(path, tag + contents(sample("untagged.mp3")));
    EXPECT_EQ(tags::read(path).value().lyric, "\u8D70");
}

TEST(Read, FrameSizesOf23InA24Tag)
{
    const Folder folder;
    const std::string path = folder.file("song.mp3");
    const std::string lyric = "[00:01.00]" + std::string(300, 'x');
    std::string tag = id3v2(3, {{"USLT", uslt("eng", "", lyric)}, {"TIT2", std::string("\0Name", 5)}});
    tag[3] = 4;
    write(path, tag + contents(sample("untagged.mp3")));
    EXPECT_EQ(tags::read(path).value().lyric, lyric);
}

/// More pictures than TagLib is shown: the front cover is among them wherever it stands, and the file stays
/// one that can be saved.
TEST(Read, FrontCoverBehindPicturesThatAreTooMany)
{
    const auto block = [](int type, const std::string &body) {
        return static_cast<char>(type) + big(body.size(), 3) + body;
    };
    const auto picture = [&](unsigned type, std::size_t size, char filling) {
        const std::string data(size, filling);
        return block(
            6, big(type, 4) + big(9, 4) + "image/png" + std::string(4 + 16, '\0') + big(size, 4) + data);
    };
    const std::string flac = contents(sample("tagged.flac"));
    const std::string info = '\0' + flac.substr(5, 4 + 34 - 1);
    const std::string pictures
        = picture(4, 15U << 20, 'b') + picture(3, 10U << 20, 'f') + picture(4, 15U << 20, 'c');
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.file("song.flac");
    for (const bool lastIsHidden : {true, false}) {
        std::string last
            = lastIsHidden ? picture(4, 1000, 'd') + picture(4, 15U << 20, 'e') : block(1, "padding");
        const std::size_t lastAt = lastIsHidden ? picture(4, 1000, 'd').size() : 0;
        last[lastAt] = static_cast<char>(last[lastAt] | '\x80');
        write(path, "fLaC" + info + pictures + last + flac.substr(flac.find("\xFF\xF8")));
        const auto read = tags::read(path);
        ASSERT_TRUE(read.ok()) << read.failure().message.english();
        EXPECT_EQ(read.value().cover.size(), std::size_t(10U << 20));
        EXPECT_EQ(read.value().cover.front(), 'f');
        EXPECT_GT(read.value().duration, 1.0);
        const auto saved = tags::saveLyric(path, "[00:01.00]x\n", read.value().state);
        ASSERT_TRUE(saved.ok()) << saved.failure().message.english();
        EXPECT_EQ(tags::read(path).value().lyric, "[00:01.00]x\n");
    }
}

} // namespace
