// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// What encoding a lyric file is in. The document itself is UTF-8 and keeps what is not; this is for programs
/// that convert a file before they read it, because their user asked for that.
namespace lyrics {

enum class Encoding : std::uint8_t { Utf8, Utf16Le, Utf16Be, Gbk, Big5, ShiftJis, Windows1252 };

/// How to call it towards people, and towards iconv: "UTF-8", "UTF-16LE", "UTF-16BE", "GB18030" for Gbk,
/// "BIG5-HKSCS", "CP932", "CP1252". The last has five bytes without a character: fall back to "ISO-8859-1"
/// for them.
[[nodiscard]] std::string_view encodingName(Encoding encoding);

struct EncodingGuess
{
    Encoding encoding = Encoding::Utf8;
    /// How many bytes of byte-order mark stand at the beginning; they are no part of the text.
    std::size_t markLength = 0;
    /// From 0 to 1: 1 for a byte-order mark and for UTF-8 that is well-formed, below 0.5 for what had better
    /// be confirmed by a person.
    double confidence = 1;
};

/// Guesses from well-formedness, from where Latin letters, digits and line ends stand, and from how frequent
/// the characters would be. Text of Latin letters alone is UTF-8. Looks at the first mebibyte.
[[nodiscard]] EncodingGuess guessEncoding(std::string_view bytes);

} // namespace lyrics
