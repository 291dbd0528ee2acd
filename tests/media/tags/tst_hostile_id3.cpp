// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/ByteSource.h"
#include "media/tags/HostileFile.h"

#include <gtest/gtest.h>

#include <random>
#include <zlib.h>

namespace {

using namespace samples;
using tags::Reason;
using tags::toBigEndian;
using tags::toLittleEndian;

const std::string kLyric = "[00:01.00]x\n";

std::string chunk(const std::string &id, const std::string &body)
{
    return id + toLittleEndian(body.size(), 4) + body + std::string(body.size() % 2, '\0');
}

std::string wav(const std::string &chunks)
{
    return "RIFF" + toLittleEndian(chunks.size() + 4, 4) + "WAVE" + chunks;
}

std::string repeated(const std::string &piece, std::size_t count)
{
    std::string out;
    for (std::size_t i = 0; i < count; ++i)
        out += piece;
    return out;
}

std::string mp3(const std::vector<std::pair<std::string, std::string>> &frames)
{
    return id3v2(3, frames) + contents(sample("untagged.mp3"));
}

/// `text` deflated, behind the number of its bytes: the body of a frame that says so.
std::string deflated(const std::string &text)
{
    uLongf size = compressBound(static_cast<uLong>(text.size()));
    std::string out(size, '\0');
    compress(reinterpret_cast<Bytef *>(out.data()), &size, reinterpret_cast<const Bytef *>(text.data()),
        static_cast<uLong>(text.size()));
    return toBigEndian(text.size(), 4) + out.substr(0, size);
}

using HostileId3 = HostileFile;

TEST_F(HostileId3, RiffOfTwoHundredThousandChunks)
{
    EXPECT_EQ(tried(wav(repeated(chunk("junk", ""), 200000))), Reason::Hostile);
    EXPECT_EQ(tried("FORM" + toBigEndian(1600004, 4) + "AIFF" + repeated(chunk("junk", ""), 200000)),
        Reason::Hostile);
    EXPECT_EQ(tried(wav(repeated(chunk("LIST", "INFO"), 9000))), std::nullopt);
}

TEST_F(HostileId3, RiffWhoseSizesLie)
{
    const std::string fmt = chunk("fmt ", std::string(16, '\1'));
    for (const std::uint64_t size : {1ULL, 7ULL, 100ULL, 0x7FFFFFFFULL, 0xFFFFFFF0ULL, 0xFFFFFFFFULL}) {
        for (const char *id : {"data", "id3 ", "LIST", "fmt "}) {
            const std::string lying = id + toLittleEndian(size, 4) + "0123456789";
            write(path, wav(fmt + lying));
            const auto read = tags::read(path);
            ASSERT_TRUE(read.ok()) << read.failure().message.english();
            EXPECT_EQ(tags::saveLyric(path, kLyric, read.value().state).failure().reason, Reason::Damaged)
                << id << size;
        }
    }
}

TEST_F(HostileId3, RiffChunkOfWordsThatTakesMegabytes)
{
    EXPECT_EQ(tried(wav(chunk("LIST", "INFO" + std::string(100U << 20, 'x')))), Reason::Hostile);
    EXPECT_EQ(tried(wav(chunk("id3 ", std::string(100U << 20, 'x')))), Reason::Hostile);
}

TEST_F(HostileId3, RiffTagThatInflates)
{
    std::string tag = id3v2(3, {{"TXXX", deflated(std::string(20U << 20, 'x'))}});
    tag[10 + 9] = '\x80';
    EXPECT_EQ(tried(wav(chunk("id3 ", tag))), Reason::Hostile);
    EXPECT_EQ(tried(wav(chunk("id3 ", id3v2(3, {})) + chunk("ID3 ", tag))), Reason::Hostile);
}

TEST_F(HostileId3, SynchronisedLyricOfMillionsOfTimes)
{
    const std::string head = std::string("\0eng\2\1\0", 7);
    const std::string entry(5, '\0');
    EXPECT_EQ(tried(mp3({{"SYLT", head + repeated(entry, 200001)}})), Reason::Hostile);
    EXPECT_EQ(tried(mp3({{"SYLT", head + repeated(entry, 5000000)}})), Reason::Hostile);
    EXPECT_EQ(tried(mp3({{"SYLT", head + std::string(5U << 20, 'x')}})), Reason::Hostile);
    std::string hidden = mp3({{"SYLT", deflated(head + repeated(entry, 1000000))}});
    hidden[10 + 9] = '\x80';
    EXPECT_EQ(tried(hidden), Reason::Hostile);
}

TEST_F(HostileId3, SynchronisedLyricAsLongAsItMayBe)
{
#ifdef __SANITIZE_ADDRESS__
    constexpr std::size_t count = 20000; // it keeps a stack of each of the library's allocations
#else
    constexpr std::size_t count = 199990;
#endif
    const std::string body = std::string("\0eng\2\1\0", 7) + repeated(std::string("\n\0\0\0\1\0", 6), count);
    EXPECT_EQ(tried(mp3({{"SYLT", body}})), std::nullopt);
}

TEST_F(HostileId3, SynchronisedLyricsBeyondCounting)
{
    const std::vector<std::pair<std::string, std::string>> frames(
        20000, {"SYLT", std::string("\0eng\2\1\0a\0\0\0\1\0b\0\0\0\2\0", 19)});
    static_cast<void>(tried(mp3(frames)));
}

TEST_F(HostileId3, FlippedBytesNeverHarm)
{
    std::string synced("\1eng\2\1\xFF\xFE\0\0\xFF\xFE", 12);
    synced += repeated(std::string("a\0\0\0\0\0\1\0", 8), 20);
    const std::string files[] = {contents(sample("tagged.wav")), contents(sample("tagged.aiff")),
        contents(sample("tagged.aac")), mp3({{"SYLT", synced}}),
        wav(chunk("id3 ", id3v2(3, {{"SYLT", synced}})) + chunk("data", "sound"))};
    std::mt19937 random(12345);
    for (const std::string &whole : files) {
        for (int round = 0; round < 300; ++round) {
            std::string damaged = whole;
            for (int i = 0; i < 4; ++i)
                damaged[random() % std::min<std::size_t>(damaged.size(), 1000)] = static_cast<char>(random());
            SCOPED_TRACE(round);
            static_cast<void>(tried(damaged));
        }
    }
}

} // namespace
