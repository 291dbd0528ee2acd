// SPDX-License-Identifier: MIT
#include "cli/Lyric.h"

#include "cli/Iconv.h"
#include "cli/ReadFile.h"
#include "lyrics/Encoding.h"

#include <utility>

namespace cli {
namespace {

std::string percent(double confidence)
{
    return std::to_string(static_cast<int>(confidence * 100.0)) + "%";
}

void convert(Lyric &lyric, const std::string &name, std::size_t markLength)
{
    Converted converted = toUtf8(std::string_view(lyric.text).substr(markLength), name);
    if (converted.wrongAt && name == "CP1252") {
        // Five of its bytes mean nothing there, and control characters in the older standard.
        converted = toUtf8(std::string_view(lyric.text).substr(markLength), "ISO-8859-1");
    }
    if (converted.wrongAt) {
        lyric.refusal = "its byte " + std::to_string(*converted.wrongAt + markLength + 1) + " is nothing in "
            + name + "; name another encoding, or let --guess-encoding guess.";
        return;
    }
    lyric.file = std::exchange(lyric.text, std::move(converted.text));
    lyric.isConverted = true;
}

/// Whether a file that is there gets what is read: then a wrong guess would be the end of its words.
bool writesOver(const Invocation &invocation)
{
    return invocation.has(Option::InPlace) || invocation.has(Option::Force)
        || invocation.command().name == "embed";
}

/// A bracket and what stands behind it, a digit or a letter. A text that merely holds some NULs is damaged,
/// and its lines can be read.
bool beginsAsLyricInUtf16(std::string_view text)
{
    if (text.size() < 4)
        return false;
    const bool isLittle = text[0] == '[' && text[1] == '\0' && text[3] == '\0';
    return isLittle || (text[0] == '\0' && text[1] == '[' && text[2] == '\0');
}

void guess(Lyric &lyric, bool isWrittenOver)
{
    constexpr double kSure = 0.5;
    const lyrics::EncodingGuess guess = lyrics::guessEncoding(lyric.text);
    if (guess.encoding == lyrics::Encoding::Utf8)
        return;
    const std::string name(lyrics::encodingName(guess.encoding));
    lyric.remark = "read as " + name + ", which is a guess (" + percent(guess.confidence) + ")";
    if (guess.confidence < kSure && isWrittenOver) {
        lyric.refusal = "it may be " + name + ", but that guess is too unsure to write over a file ("
            + percent(guess.confidence) + "); name the encoding with --encoding.";
        lyric.remark.clear();
        return;
    }
    if (guess.markLength > 0)
        lyric.remark = "read as " + name + ", as its byte-order mark says";
    else if (guess.confidence < kSure)
        lyric.remark += "; look whether the words are right, or name the encoding with --encoding";
    lyric.remark += '.';
    convert(lyric, name, guess.markLength);
}

} // namespace

std::string faultOfEncoding(const Invocation &invocation)
{
    if (invocation.has(Option::Encoding) && invocation.has(Option::GuessEncoding))
        return "--encoding says it and --guess-encoding guesses; give one of them.";
    const std::string name(invocation.value(Option::Encoding));
    if (invocation.has(Option::Encoding) && !isEncoding(name))
        return "'" + name + "' is no encoding that is known here; 'iconv --list' shows them.";
    return {};
}

std::string refusalOfUtf16(const Lyric &lyric)
{
    if (lyric.isConverted)
        return {};
    const lyrics::EncodingGuess guess = lyrics::guessEncoding(lyric.text);
    const bool isUtf16
        = guess.encoding == lyrics::Encoding::Utf16Le || guess.encoding == lyrics::Encoding::Utf16Be;
    if (!isUtf16 || (guess.markLength == 0 && !beginsAsLyricInUtf16(lyric.text)))
        return {};
    return "it looks like UTF-16, in which no line can be read; add --guess-encoding, or name the encoding "
           "with --encoding.";
}

Lyric readLyric(const Invocation &invocation, const Input &input)
{
    Lyric lyric;
    FileText read = input.isStandardInput ? readDescriptor(invocation.around().in) : readFile(input.path);
    lyric.text = std::move(read.bytes);
    lyric.refusal = std::move(read.refusal);
    if (!lyric.refusal.empty())
        return lyric;
    if (invocation.has(Option::Encoding))
        convert(lyric, std::string(invocation.value(Option::Encoding)), 0);
    else if (invocation.has(Option::GuessEncoding))
        guess(lyric, writesOver(invocation));
    return lyric;
}

} // namespace cli
