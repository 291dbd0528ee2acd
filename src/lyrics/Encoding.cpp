// SPDX-License-Identifier: MIT
#include "lyrics/Encoding.h"

#include "lyrics/MultiByte.h"
#include "lyrics/SongWriter.h"
#include "lyrics/Utf8.h"

#include <algorithm>
#include <array>

namespace lyrics {
namespace {

constexpr std::size_t kMostBytes = std::size_t(1) << 20;
/// Less than this between the best and the next is a guess that a person had better look at.
constexpr double kClear = 0.15;

/// The first mebibyte, without the beginning of a character that it cuts.
std::string_view beginningOf(std::string_view bytes)
{
    if (bytes.size() <= kMostBytes)
        return bytes;
    bytes = bytes.substr(0, kMostBytes);
    for (int i = 0; i < 4 && static_cast<unsigned char>(bytes.back()) >= 0x80; ++i)
        bytes.remove_suffix(1);
    return bytes;
}

EncodingGuess guessByMark(std::string_view bytes)
{
    if (bytes.starts_with(kByteOrderMark))
        return {Encoding::Utf8, kByteOrderMark.size(), 1};
    if (bytes.starts_with("\xFF\xFE"))
        return {Encoding::Utf16Le, 2, 1};
    if (bytes.starts_with("\xFE\xFF"))
        return {Encoding::Utf16Be, 2, 1};
    return {Encoding::Utf8, 0, 0};
}

/// Brackets, digits and line ends of UTF-16 have a byte 0 before or behind them, always on the same side.
EncodingGuess guessUtf16(std::string_view bytes)
{
    std::array<std::size_t, 2> zeros{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        zeros[i % 2] += bytes[i] == '\0' ? 1 : 0;
    const std::size_t few = std::min(zeros[0], zeros[1]);
    const std::size_t many = std::max(zeros[0], zeros[1]);
    if (bytes.size() % 2 != 0 || many == 0 || many < bytes.size() / 20 || few * 10 > many)
        return {Encoding::Utf8, 0, 0};
    return {zeros[1] == many ? Encoding::Utf16Le : Encoding::Utf16Be, 0, 0.9};
}

/// The share of what is UTF-8 among all that is not ASCII; 1 when there is nothing else.
double utf8Share(std::string_view bytes)
{
    std::size_t right = 0;
    std::size_t wrong = 0;
    const char *const end = bytes.data() + bytes.size();
    for (const char *p = bytes.data(); p < end;) {
        const char32_t c = nextCharacter(p, end);
        right += c >= 0x80 && c != kWrongCharacter ? 1 : 0;
        wrong += c == kWrongCharacter ? 1 : 0;
    }
    return wrong == 0 ? 1 : static_cast<double>(right) / static_cast<double>(right + wrong);
}

bool isUsualLatin(unsigned byte)
{
    return (byte >= 0xC0 && byte != 0xD7 && byte != 0xF7) || (byte >= 0x91 && byte <= 0x97) || byte == 0x85
        || byte == 0xA0 || byte == 0xA1 || byte == 0xAB || byte == 0xBB || byte == 0xBF;
}

/// How much the bytes look like Latin letters with accents: they stand alone among others, seldom in pairs.
double latinScore(std::string_view bytes)
{
    std::size_t high = 0;
    double letters = 0;
    for (std::size_t i = 0; i < bytes.size();) {
        std::size_t usual = 0;
        const std::size_t begin = i;
        for (; i < bytes.size() && static_cast<unsigned char>(bytes[i]) >= 0x80; ++i)
            usual += isUsualLatin(static_cast<unsigned char>(bytes[i])) ? 1 : 0;
        const std::size_t length = i - begin;
        high += length;
        if (length == 1 || length == 2)
            letters += static_cast<double>(usual) / static_cast<double>(length);
        i += length == 0 ? 1 : 0;
    }
    return high == 0 ? 0 : 0.9 * letters / static_cast<double>(high);
}

} // namespace

std::string_view encodingName(Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf8:
        return "UTF-8";
    case Encoding::Utf16Le:
        return "UTF-16LE";
    case Encoding::Utf16Be:
        return "UTF-16BE";
    case Encoding::Gbk:
        return "GB18030";
    case Encoding::Big5:
        return "BIG5-HKSCS";
    case Encoding::ShiftJis:
        return "CP932";
    case Encoding::Windows1252:
        break;
    }
    return "CP1252";
}

EncodingGuess guessEncoding(std::string_view bytes)
{
    bytes = beginningOf(bytes);
    if (const EncodingGuess guess = guessByMark(bytes); guess.confidence > 0)
        return guess;
    if (const EncodingGuess guess = guessUtf16(bytes); guess.confidence > 0)
        return guess;
    const double share = utf8Share(bytes);
    // Nothing else is well-formed UTF-8 for long; a few wrong bytes are damage.
    if (share == 1)
        return {Encoding::Utf8, 0, 1};
    if (share > 0.75)
        return {Encoding::Utf8, 0, 0.8 * share};
    struct Candidate
    {
        Encoding encoding;
        double score;
    };
    std::array<Candidate, 4> candidates = {{{Encoding::Windows1252, latinScore(bytes)},
        {Encoding::Gbk, multiByteScore(bytes, kGbk)}, {Encoding::Big5, multiByteScore(bytes, kBig5)},
        {Encoding::ShiftJis, multiByteScore(bytes, kShiftJis)}}};
    std::stable_sort(candidates.begin(), candidates.end(),
        [](const Candidate &a, const Candidate &b) { return a.score > b.score; });
    const bool isClear = candidates[0].score - candidates[1].score >= kClear;
    // One letter is no text.
    const auto high = static_cast<double>(std::count_if(
        bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; }));
    const double confidence = candidates[0].score * high / (high + 1) * (isClear ? 1.0 : 0.5);
    return {candidates[0].encoding, 0, confidence};
}

} // namespace lyrics
