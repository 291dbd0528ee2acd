// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tags {

/// The encodings of ID3v2, by the byte that names them.
enum class Id3v2Encoding : unsigned char { Latin1 = 0, MarkedUtf16 = 1, Utf16Big = 2, Utf8 = 3 };

/// What the byte at the start of a frame's body names; a number that the standard does not know is UTF-8, as
/// long as nobody says otherwise.
[[nodiscard]] Id3v2Encoding id3v2Encoding(char byte);

/// Bytes of a unit of text, and so of the NUL that ends one: 1 or 2.
[[nodiscard]] std::size_t unitBytes(Id3v2Encoding encoding);

/// Where the string at the start of `bytes` ends: the index of its terminator, or the end.
[[nodiscard]] std::size_t terminator(std::string_view bytes, Id3v2Encoding encoding);

/// UTF-8. `littleEndianAbove`: the byte order of the frame's first string, which those without a mark share.
[[nodiscard]] std::string decodeId3v2(
    std::string_view bytes, Id3v2Encoding encoding, bool littleEndianAbove = false);

/// The encoding in which a tag of `version` keeps every character of a text: UTF-8 where there is one,
/// otherwise Latin-1 for ASCII and UTF-16 for all else.
[[nodiscard]] Id3v2Encoding encodingFor(unsigned version, bool isAscii);

/// `text`, which is UTF-8, in `encoding`, one that encodingFor() gave for it; no terminator.
[[nodiscard]] std::string encodeId3v2(std::string_view text, Id3v2Encoding encoding);

} // namespace tags
