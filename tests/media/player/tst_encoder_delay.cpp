// SPDX-License-Identifier: MIT
#include "media/player/EncoderDelay.h"
#include "media/player/MpegFrame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

using media::EncoderDelay;
using media::encoderDelayOf;
using media::encoderDelayOfAsf;
using media::encoderDelayOfMpeg;

namespace {

using Bytes = std::vector<std::uint8_t>;

// MPEG-1 layer III, 128 kbit/s, 44.1 kHz, stereo, without padding: 417 bytes.
constexpr std::array<std::uint8_t, 4> kFrameHeader{0xff, 0xfb, 0x90, 0x00};
constexpr std::size_t kFrameBytes = 417;
constexpr std::size_t kInfoAt = 36;

Bytes frames(int count)
{
    Bytes bytes;
    for (int i = 0; i < count; ++i) {
        bytes.insert(bytes.end(), kFrameHeader.begin(), kFrameHeader.end());
        bytes.resize(bytes.size() + kFrameBytes - kFrameHeader.size());
    }
    return bytes;
}

void put(Bytes &bytes, std::size_t at, const std::string &text)
{
    std::copy(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
}

/// A stream whose first frame is an info header with the field for the count of frames alone.
Bytes withInfo(std::uint32_t count, std::uint32_t delay, std::uint32_t padding, const std::string &encoder)
{
    Bytes bytes = frames(3);
    put(bytes, kInfoAt, "Info");
    bytes[kInfoAt + 7] = 1;
    bytes[kInfoAt + 10] = static_cast<std::uint8_t>(count >> 8U);
    bytes[kInfoAt + 11] = static_cast<std::uint8_t>(count);
    put(bytes, kInfoAt + 12, encoder);
    const std::size_t at = kInfoAt + 12 + 21;
    bytes[at] = static_cast<std::uint8_t>(delay >> 4U);
    bytes[at + 1] = static_cast<std::uint8_t>((delay & 0xfU) << 4U | padding >> 8U);
    bytes[at + 2] = static_cast<std::uint8_t>(padding);
    return bytes;
}

Bytes box(const std::string &name, const Bytes &content)
{
    const auto size = static_cast<std::uint32_t>(content.size() + 8);
    Bytes bytes{static_cast<std::uint8_t>(size >> 24U), static_cast<std::uint8_t>(size >> 16U),
        static_cast<std::uint8_t>(size >> 8U), static_cast<std::uint8_t>(size)};
    bytes.insert(bytes.end(), name.begin(), name.end());
    bytes.insert(bytes.end(), content.begin(), content.end());
    return bytes;
}

Bytes operator+(Bytes a, const Bytes &b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

Bytes text(std::size_t zeros, const std::string &characters)
{
    Bytes bytes(zeros, 0);
    bytes.insert(bytes.end(), characters.begin(), characters.end());
    return bytes;
}

/// A track of 44.1 kHz whose list of edits begins at `editAt`, and tags with `field`.
Bytes moov(std::uint8_t editAt, const std::string &field)
{
    const Bytes edits{0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 9, 9, 0, 0, editAt, 0, 0, 1, 0, 0};
    Bytes media(12, 0);
    media.insert(media.end(), {0, 0, 0xac, 0x44, 0, 0, 0, 0});
    const Bytes track
        = box("edts", box("elst", edits)) + box("mdia", box("mdhd", media) + box("hdlr", text(8, "soun")));
    const Bytes entry = box("----", box("name", text(4, "iTunSMPB")) + box("data", text(8, field)));
    const Bytes tags = box("udta", box("meta", text(4, "") + box("ilst", entry)));
    return box("trak", text(20, "")) + box("trak", track) + tags;
}

class TemporaryFile
{
public:
    explicit TemporaryFile(const Bytes &bytes)
        : m_path(std::filesystem::temp_directory_path() / ("encoder-delay-" + std::to_string(::getpid())))
    {
        std::ofstream(m_path, std::ios::binary)
            .write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    ~TemporaryFile() { std::filesystem::remove(m_path); }
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;

    [[nodiscard]] const std::filesystem::path &path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

Bytes id3(std::size_t size)
{
    Bytes tag(10 + size, 0xff);
    put(tag, 0, "ID3");
    tag[3] = 4;
    tag[4] = 0;
    tag[5] = 0;
    tag[6] = 0;
    tag[7] = 0;
    tag[8] = static_cast<std::uint8_t>(size >> 7U);
    tag[9] = static_cast<std::uint8_t>(size & 0x7fU);
    return tag;
}

Bytes asf(unsigned version, std::uint32_t sampleRate)
{
    Bytes bytes{0x30, 0x26, 0xb2, 0x75};
    bytes.resize(100);
    for (const int byte :
        {0x40, 0x9e, 0x69, 0xf8, 0x4d, 0x5b, 0xcf, 0x11, 0xa8, 0xfd, 0x00, 0x80, 0x5f, 0x5c, 0x44, 0x2b}) {
        bytes.push_back(static_cast<std::uint8_t>(byte));
    }
    bytes.resize(100 + 54);
    for (const std::uint32_t byte : {version & 0xffU, version >> 8U, 2U, 0U, sampleRate & 0xffU,
             sampleRate >> 8U & 0xffU, sampleRate >> 16U, 0U}) {
        bytes.push_back(static_cast<std::uint8_t>(byte));
    }
    return bytes;
}

} // namespace

TEST(EncoderDelay, TheInfoHeaderSaysHowMuch)
{
    const EncoderDelay delay = encoderDelayOfMpeg(withInfo(1000, 576, 1000, "LAME3.100"));
    EXPECT_EQ(delay.sampleRate, 44100U);
    EXPECT_EQ(delay.front, 576U + 529U);
    EXPECT_EQ(delay.behind, 1000U - 529U);
    EXPECT_EQ(delay.total, 1000U * 1152U);
    EXPECT_DOUBLE_EQ(delay.frontSeconds(), 1105.0 / 44100);
}

TEST(EncoderDelay, TheLargestNumbersOfTheHeader)
{
    const EncoderDelay delay = encoderDelayOfMpeg(withInfo(1000, 4095, 4095, "LAME3.100"));
    EXPECT_EQ(delay.front, 4095U + 529U);
    EXPECT_EQ(delay.behind, 4095U - 529U);
}

TEST(EncoderDelay, PaddingShorterThanTheDecodersDelayIsNone)
{
    EXPECT_EQ(encoderDelayOfMpeg(withInfo(1000, 576, 100, "LAME3.100")).behind, 0U);
}

TEST(EncoderDelay, AHeaderWithoutAnEncoderIsTakenForTheUsualOne)
{
    const EncoderDelay delay = encoderDelayOfMpeg(withInfo(1000, 0, 0, std::string(9, '\0')));
    EXPECT_EQ(delay.front, 1105U);
    EXPECT_EQ(delay.total, 0U);
}

TEST(EncoderDelay, WithoutAHeaderItIsTheUsualOne)
{
    EXPECT_EQ(encoderDelayOfMpeg(frames(3)).front, 1105U);
}

TEST(EncoderDelay, LayerTwoHasItsDecodersDelay)
{
    Bytes bytes = frames(1);
    bytes[1] = 0xfd;
    const EncoderDelay delay = encoderDelayOfMpeg(bytes);
    EXPECT_EQ(delay.front, 481U);
    EXPECT_EQ(delay.sampleRate, 44100U);
}

TEST(EncoderDelay, FramesAreCountedBehindTagsAndAcrossDamage)
{
    Bytes bytes = id3(300);
    const Bytes second = id3(5);
    bytes.insert(bytes.end(), second.begin(), second.end());
    const Bytes music = frames(1500);
    bytes.insert(bytes.end(), music.begin(), music.end());
    bytes.insert(bytes.end(), 777, 0x00);
    bytes.insert(bytes.end(), music.begin(), music.end());
    put(bytes, bytes.size() - 10, "TAG");
    const TemporaryFile file(bytes);
    EXPECT_EQ(encoderDelayOf(file.path()).total, 3000U * 1152U);
    EXPECT_EQ(encoderDelayOf(file.path()).front, 1105U);
}

TEST(EncoderDelay, TagsOfAnMp4SayHowMuch)
{
    const std::string field = " 00000000 00000840 000001CA 00000000003F31F6 00000000";
    const EncoderDelay delay = media::encoderDelayOfMp4(moov(0, field));
    EXPECT_EQ(delay.sampleRate, 44100U);
    EXPECT_EQ(delay.front, 0x840U);
    EXPECT_EQ(delay.behind, 0x1caU);
    EXPECT_EQ(delay.total, 0x840U + 0x3f31f6U + 0x1caU);
}

TEST(EncoderDelay, AnEditOfAnMp4IsTheLibrarysBusiness)
{
    EXPECT_EQ(media::encoderDelayOfMp4(moov(8, " 0 840 1CA 3F31F6")).front, 0U);
}

TEST(EncoderDelay, TagsOfAnMp4ThatMakeNoSense)
{
    for (const char *field : {"", " ", " 0", " 0 840", " 0 840 1CA", " 0 840 1CA 0", " 0 84x 1CA 3F31F6",
             " 0 FFFFFFFF 0 3F31F6", " 0 -1 0 3F31F6", " 0 840 1CA 3F31F6FFFFFFFFFFFFFFFF"}) {
        EXPECT_EQ(media::encoderDelayOfMp4(moov(0, field)).sampleRate, 0U) << field;
    }
}

TEST(EncoderDelay, AnyMp4IsRead)
{
    std::mt19937 random(2);
    const Bytes whole = moov(0, " 00000000 00000840 000001CA 00000000003F31F6");
    for (int round = 0; round < 3000; ++round) {
        Bytes bytes = whole;
        for (unsigned changes = random() % 8; changes > 0; --changes) {
            bytes.at(random() % bytes.size()) = static_cast<std::uint8_t>(random());
        }
        bytes.resize(random() % (bytes.size() + 1));
        EXPECT_LE(media::encoderDelayOfMp4(bytes).front, 8192U);
    }
}

TEST(EncoderDelay, WindowsMediaAudioHoldsBackOneBlock)
{
    EXPECT_EQ(encoderDelayOfAsf(asf(0x161, 44100)).front, 2048U);
    EXPECT_EQ(encoderDelayOfAsf(asf(0x161, 22050)).front, 1024U);
    EXPECT_EQ(encoderDelayOfAsf(asf(0x160, 32000)).front, 1024U);
    EXPECT_EQ(encoderDelayOfAsf(asf(0x161, 32000)).front, 2048U);
    EXPECT_EQ(encoderDelayOfAsf(asf(0x161, 8000)).front, 512U);
    EXPECT_EQ(encoderDelayOfAsf(asf(0x162, 44100)).front, 0U);
    EXPECT_EQ(encoderDelayOfAsf(asf(0x161, 0)).sampleRate, 0U);
}

TEST(EncoderDelay, OtherFilesHaveNone)
{
    EXPECT_EQ(encoderDelayOf("/nonexistent").sampleRate, 0U);
    EXPECT_EQ(encoderDelayOf(std::filesystem::temp_directory_path()).sampleRate, 0U);
    Bytes container(5000, 0);
    put(container, 4, "ftypM4A ");
    const Bytes inside = frames(5);
    container.insert(container.end(), inside.begin(), inside.end());
    EXPECT_EQ(encoderDelayOf(TemporaryFile(container).path()).sampleRate, 0U);
    EXPECT_EQ(encoderDelayOf(TemporaryFile({}).path()).sampleRate, 0U);
}

TEST(EncoderDelay, AnyBytesAreRead)
{
    std::mt19937 random(1);
    const std::vector<Bytes> seeds{
        withInfo(1000, 576, 1000, "LAME3.100"), frames(4), asf(0x161, 44100), id3(200)};
    for (int round = 0; round < 3000; ++round) {
        Bytes bytes = seeds.at(random() % seeds.size());
        for (unsigned changes = random() % 8; changes > 0; --changes) {
            bytes.at(random() % bytes.size()) = static_cast<std::uint8_t>(random());
        }
        bytes.resize(random() % (bytes.size() + 1));
        const EncoderDelay mpeg = encoderDelayOfMpeg(bytes);
        const EncoderDelay windows = encoderDelayOfAsf(bytes);
        EXPECT_LE(mpeg.front, 4095U + 529U);
        EXPECT_LE(windows.front, 2048U);
    }
}

TEST(MpegFrame, LengthsOfAllRates)
{
    const auto bytesOf = [](std::uint8_t kind, std::uint8_t rates) {
        const std::array<std::uint8_t, 4> header{0xff, kind, rates, 0};
        const auto frame = media::readMpegFrame(header);
        return frame ? frame->bytes : 0;
    };
    EXPECT_EQ(bytesOf(0xfb, 0x90), 417U); // layer III, 128 kbit/s, 44.1 kHz
    EXPECT_EQ(bytesOf(0xfb, 0x92), 418U); // the same, padded
    EXPECT_EQ(bytesOf(0xfb, 0xe4), 960U); // 320 kbit/s, 48 kHz
    EXPECT_EQ(bytesOf(0xf3, 0x80), 208U); // 64 kbit/s, 22.05 kHz: half as many samples
    EXPECT_EQ(bytesOf(0xe3, 0x80), 417U); // 64 kbit/s, 11.025 kHz
    EXPECT_EQ(bytesOf(0xfd, 0xa4), 576U); // layer II, 192 kbit/s, 48 kHz
    EXPECT_EQ(bytesOf(0xfb, 0x00), 0U); // free format
    EXPECT_EQ(bytesOf(0xfb, 0xf0), 0U); // forbidden rate
    EXPECT_EQ(bytesOf(0xfb, 0x9c), 0U); // forbidden sampling
    EXPECT_EQ(bytesOf(0xeb, 0x90), 0U); // forbidden version
    EXPECT_EQ(bytesOf(0xff, 0x90), 0U); // layer I
}
