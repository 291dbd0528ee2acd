// SPDX-License-Identifier: MIT
#include "lyrics/Encoding.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

using lyrics::Encoding;
using lyrics::EncodingGuess;
using lyrics::guessEncoding;

struct Sample
{
    Encoding encoding;
    std::string_view bytes;
};

const std::array<Sample, 4> kSamples = {{
    {Encoding::Gbk,
        "[00:01.00]\xC4\xE3\xCA\xC7\xCE\xD2\xD0\xC4\xC0\xEF\xB5\xC4\xD2\xBB\xCA\xD7\xB8\xE8\n"
        "[00:05.50]\xD7\xDF\xD4\xDA\xC3\xBB\xD3\xD0\xC8\xCB\xB5\xC4\xD2\xB9\xC0\xEF\n"
        "[00:09.00]\xD3\xEA\xCD\xA3\xC1\xCB\xA3\xAC\xCE\xD2\xC3\xC7\xCB\xB5\xD4\xD9\xBC\xFB\n"},
    {Encoding::Big5,
        "[00:01.00]\xA7"
        "A\xACO\xA7\xDA\xA4\xDF\xB8\xCC\xAA\xBA\xA4@\xAD\xBA\xBAq\n"
        "[00:05.50]\xA8\xAB\xA6"
        "b\xA8S\xA6\xB3\xA4H\xAA\xBA\xA9]\xB8\xCC\n"
        "[00:09.00]\xAB"
        "B\xB0\xB1\xA4"
        "F\xA1"
        "A\xA7\xDA\xAD\xCC\xBB\xA1\xA6"
        "A\xA8\xA3\n"},
    {Encoding::ShiftJis,
        "[00:01.00]\x8CN\x82\xCC\x90\xBA\x82\xAA\x95\xB7\x82\xB1\x82\xA6\x82\xE9\n"
        "[00:05.50]\x96\xE9\x82\xCC\x8B\xF3\x82\xC9\x96\xB2\x82\xF0\x95`\x82\xA2\x82\xC4\n"
        "[00:09.00]\x83"
        "A\x83\x81\x82\xAA\x8E~\x82\xF1\x82\xBE\x82\xE7\x95\xE0\x82\xAB\x8Fo\x82\xB7\n"},
    {Encoding::Windows1252,
        "[00:01.00]F\xFCr dich wird der Morgen gr\xF6\xDF"
        "er\n"
        "[00:05.50]d\xE9j\xE0 le matin s\x92\xE9veille\n"
        "[00:09.00]ma\xF1"
        "ana el coraz\xF3n\n"},
}};

constexpr std::string_view kUtf8 = "[00:01.00]你是我心里的一首歌\n[00:05.00]é\n";

/// In UTF-16, of characters below U+10000.
std::string inUtf16(std::u16string_view text, bool isBig)
{
    std::string bytes;
    for (const char16_t c : text) {
        const auto high = static_cast<char>(c >> 8);
        const auto low = static_cast<char>(c & 0xFF);
        bytes += isBig ? high : low;
        bytes += isBig ? low : high;
    }
    return bytes;
}

TEST(Encoding, OfASampleIsGuessed)
{
    for (const Sample &sample : kSamples) {
        const EncodingGuess guess = guessEncoding(sample.bytes);
        EXPECT_EQ(encodingName(guess.encoding), encodingName(sample.encoding));
        EXPECT_EQ(guess.markLength, 0U);
        EXPECT_GE(guess.confidence, 0.5) << encodingName(sample.encoding);
        EXPECT_LT(guess.confidence, 1);
    }
}

TEST(Encoding, OfASingleLineIsGuessed)
{
    for (const Sample &sample : kSamples) {
        for (std::string_view rest = sample.bytes; !rest.empty();) {
            const std::string_view line = rest.substr(0, rest.find('\n') + 1);
            EXPECT_EQ(encodingName(guessEncoding(line).encoding), encodingName(sample.encoding)) << line;
            rest.remove_prefix(line.size());
        }
    }
}

TEST(Encoding, Utf8IsCertain)
{
    for (const std::string_view text : {std::string_view(), std::string_view("[00:01.00]a\n"), kUtf8}) {
        EXPECT_EQ(guessEncoding(text).encoding, Encoding::Utf8);
        EXPECT_EQ(guessEncoding(text).confidence, 1);
    }
    const EncodingGuess marked = guessEncoding("\xEF\xBB\xBF\xFF");
    EXPECT_EQ(marked.encoding, Encoding::Utf8);
    EXPECT_EQ(marked.markLength, 3U);
}

TEST(Encoding, DamagedUtf8IsStillUtf8)
{
    const EncodingGuess guess = guessEncoding(std::string(kUtf8) + "\xE4\xBD\n");
    EXPECT_EQ(guess.encoding, Encoding::Utf8);
    EXPECT_LT(guess.confidence, 0.8);
    EXPECT_GT(guess.confidence, 0.5);
}

TEST(Encoding, Utf16IsKnownByItsMark)
{
    const EncodingGuess little = guessEncoding("\xFF\xFE" + inUtf16(u"走", false));
    EXPECT_EQ(little.encoding, Encoding::Utf16Le);
    EXPECT_EQ(little.markLength, 2U);
    EXPECT_EQ(little.confidence, 1);
    EXPECT_EQ(guessEncoding("\xFE\xFF" + inUtf16(u"走", true)).encoding, Encoding::Utf16Be);
}

TEST(Encoding, Utf16IsKnownWithoutItsMark)
{
    for (const std::u16string_view text :
        {u"[00:01.00]a\n", u"[00:01.00]你是我心里的一首歌走在没有人的夜里雨停了\n"}) {
        const EncodingGuess little = guessEncoding(inUtf16(text, false));
        EXPECT_EQ(little.encoding, Encoding::Utf16Le);
        EXPECT_EQ(little.markLength, 0U);
        EXPECT_GT(little.confidence, 0.5);
        EXPECT_EQ(guessEncoding(inUtf16(text, true)).encoding, Encoding::Utf16Be);
    }
    using namespace std::string_view_literals;
    EXPECT_EQ(
        guessEncoding("[00:01.00]a\0b and a long text behind it, with no other such thing\n"sv).encoding,
        Encoding::Utf8);
}

TEST(Encoding, OfWhatIsNothingIsNoCertainty)
{
    for (const std::string_view bytes : {"\xFF", "\x81", "\xFF\xFF\xFF\xFF", "\x80\x80", "a\xF5\x20\xF5\xF5"})
        EXPECT_LT(guessEncoding(bytes).confidence, 0.5) << testing::PrintToString(bytes);
}

TEST(Encoding, OfALongTextIsThatOfItsBeginning)
{
    for (const Sample &sample : kSamples) {
        for (std::size_t shift = 0; shift < 3; ++shift) {
            std::string text(shift, 'a');
            while (text.size() < (std::size_t(1) << 20) + 100)
                text += sample.bytes;
            EXPECT_EQ(guessEncoding(text + std::string(1000, '\0')).encoding, sample.encoding);
        }
    }
}

TEST(Encoding, NamesDiffer)
{
    std::set<std::string_view> names;
    for (const Encoding encoding : {Encoding::Utf8, Encoding::Utf16Le, Encoding::Utf16Be, Encoding::Gbk,
             Encoding::Big5, Encoding::ShiftJis, Encoding::Windows1252})
        names.insert(encodingName(encoding));
    EXPECT_EQ(names.size(), 7U);
}

} // namespace
