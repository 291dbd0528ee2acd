// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/HandMade.h"
#include "media/tags/HostileFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <zlib.h>

namespace {

using namespace samples;
using tags::Reason;

std::string atom(const std::string &name, const std::string &body)
{
    return big(body.size() + 8, 4) + name + body;
}

const std::string kFileType = atom("ftyp", "M4A \0\0\0\0");

class Hostile : public HostileFile
{
protected:
    std::string mp3(const std::string &tag) { return tag + contents(sample("untagged.mp3")); }
};

TEST_F(Hostile, Mp4NestedAHundredThousandDeep)
{
    for (const char *name : {"moov", "udta", "meta", "ilst", "stsd", "trak"}) {
        constexpr std::size_t depth = 100000;
        const std::size_t extra = name == std::string("meta") ? 4 : name == std::string("stsd") ? 8 : 0;
        std::string nested;
        for (std::size_t i = 0; i < depth; ++i)
            nested += big((depth - i) * (8 + extra), 4) + name + std::string(extra, '\0');
        EXPECT_EQ(tried(kFileType + atom("moov", nested)), Reason::Hostile) << name;
    }
}

TEST_F(Hostile, Mp4OfHundredsOfThousandsOfAtoms)
{
    std::string many;
    for (int i = 0; i < 300000; ++i)
        many += atom("free", "");
    EXPECT_EQ(tried(kFileType + atom("moov", many)), Reason::Hostile);
}

TEST_F(Hostile, Mp4AtomsThatOverlapOrLieAboutTheirSize)
{
    const std::string inner = atom("udta", atom("meta", std::string(4, '\0')));
    for (const std::uint64_t size : {0ULL, 2ULL, 7ULL, 100ULL, 0x7FFFFFFFULL, 0xFFFFFFFFULL}) {
        std::string lying = kFileType + atom("moov", inner);
        lying.replace(kFileType.size() + 8, 4, big(size, 4));
        EXPECT_EQ(tried(lying), Reason::Damaged) << size;
    }
    EXPECT_EQ(tried(kFileType + big(1, 4) + "moov" + big(~0ULL, 8)), Reason::Damaged);
    EXPECT_EQ(tried(kFileType + big(1, 4) + "moov" + big(3, 8)), Reason::Damaged);
}

TEST_F(Hostile, Mp4ChunkTableWithACountThatLies)
{
    const std::string table = atom("stco", std::string(4, '\0') + big(0xFFFFFFFF, 4) + big(40, 4));
    const std::string moov = atom("moov", atom("trak", atom("mdia", atom("minf", atom("stbl", table)))));
    static_cast<void>(tried(kFileType + moov + atom("mdat", std::string(100, 'x'))));
}

TEST_F(Hostile, InflatedFrameOf128MiB)
{
    // Deflated in steps, so that the test itself does not need the memory.
    std::string bomb;
    z_stream stream = {};
    ASSERT_EQ(deflateInit(&stream, 9), Z_OK);
    std::string zeros(1U << 20, '\0');
    std::string out(1U << 16, '\0');
    for (int i = 0; i < 128; ++i) {
        stream.next_in = reinterpret_cast<Bytef *>(zeros.data());
        stream.avail_in = static_cast<uInt>(zeros.size());
        do {
            stream.next_out = reinterpret_cast<Bytef *>(out.data());
            stream.avail_out = static_cast<uInt>(out.size());
            deflate(&stream, i == 127 ? Z_FINISH : Z_NO_FLUSH);
            bomb.append(out, 0, out.size() - stream.avail_out);
        } while (stream.avail_out == 0);
    }
    deflateEnd(&stream);
    for (const int version : {3, 4}) {
        const std::string length = version == 3 ? big(128U << 20, 4) : std::string("\x7F\x7F\x7F\x7F");
        std::string tag = id3v2(version, {{"TXXX", length + bomb}});
        tag[10 + 9] = version == 3 ? '\x80' : '\x09';
        EXPECT_EQ(tried(mp3(tag)), Reason::Hostile) << version;
    }
}

TEST_F(Hostile, ManyDeflatedFrames)
{
    const std::string plain(10U << 20, 'x');
    uLongf size = compressBound(static_cast<uLong>(plain.size()));
    std::string deflated(size, '\0');
    ASSERT_EQ(compress(reinterpret_cast<Bytef *>(deflated.data()), &size,
                  reinterpret_cast<const Bytef *>(plain.data()), static_cast<uLong>(plain.size())),
        Z_OK);
    deflated.resize(size);
    std::string tag
        = id3v2(3, {{"TXXX", big(10U << 20, 4) + deflated}, {"TXXX", big(10U << 20, 4) + deflated}});
    tag[10 + 9] = '\x80';
    tag[10 + 10 + 4 + size + 9] = '\x80';
    EXPECT_EQ(tried(mp3(tag)), Reason::Hostile);
}

TEST_F(Hostile, HundredThousandFrames)
{
#ifdef __SANITIZE_ADDRESS__
    constexpr std::size_t count
        = 10000; // it keeps a stack of each of the library's allocations: 78 s instead of 1
#else
    constexpr std::size_t count = 100000;
#endif
    const std::vector<std::pair<std::string, std::string>> frames(count, {"TXXX", std::string("\0k\0v", 4)});
    EXPECT_EQ(tried(mp3(id3v2(4, frames))), std::nullopt);
}

TEST_F(Hostile, ChaptersInChapters)
{
    std::string body;
    for (int i = 0; i < 2000; ++i) {
        std::string chapter("c\0", 2);
        chapter += std::string(16, '\0') + body;
        body = "CHAP" + big(chapter.size(), 4) + std::string(2, '\0') + chapter;
    }
    EXPECT_EQ(tried(mp3(id3v2(3, {{"CHAP", body.substr(10)}}))), Reason::Hostile);
}

TEST_F(Hostile, Id3TagLongerThanTheFile)
{
    std::string tag = id3v2(3, {{"TIT2", std::string("\0Name", 5)}});
    tag[6] = '\x01';
    EXPECT_TRUE(tried(mp3(tag)).has_value());
}

TEST_F(Hostile, CommentThatCountsToFourThousandMillion)
{
    const std::string comment = little(1, 4) + "v" + little(0xFFFFFFFF, 4) + little(3, 4) + "A=b";
    const std::string flac = "fLaC" + std::string(1, '\0') + big(34, 3) + std::string(34, '\1') + '\x84'
        + big(comment.size(), 3) + comment;
    EXPECT_EQ(tried(flac), Reason::Damaged);
    const std::string entry = little(0, 4) + little(1, 4) + little(0xFFFFFFFF, 4) + "A=b";
    EXPECT_EQ(tried("fLaC" + std::string(1, '\0') + big(34, 3) + std::string(34, '\1') + '\x84'
                  + big(entry.size(), 3) + entry),
        Reason::Damaged);
}

TEST_F(Hostile, EndlessFlacBlocks)
{
    std::string flac = "fLaC" + std::string(1, '\0') + big(34, 3) + std::string(34, '\1');
    for (int i = 0; i < 500000; ++i)
        flac += '\1' + std::string(3, '\0');
    EXPECT_EQ(tried(flac), Reason::Damaged);
}

TEST_F(Hostile, FlippedBytesNeverHarm)
{
    for (const char *name : {"v23.mp3", "v24.mp3", "tagged.flac", "faststart.m4a", "tagged.ogg", "tagged.oga",
             "tagged.ape", "tagged.wv", "tagged.mpc", "tagged.wma"}) {
        const std::string whole = contents(sample(name));
        unsigned random = 12345;
        for (int round = 0; round < 300; ++round) {
            std::string damaged = whole;
            for (int i = 0; i < 4; ++i) {
                random = random * 1664525U + 1013904223U;
                const std::size_t at = (random >> 8) % std::min<std::size_t>(damaged.size(), 3000);
                damaged[at] = static_cast<char>(random >> 16);
            }
            SCOPED_TRACE(name + std::string(" round ") + std::to_string(round));
            static_cast<void>(tried(damaged));
        }
    }
}

} // namespace
