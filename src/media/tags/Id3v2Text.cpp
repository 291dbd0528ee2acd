// SPDX-License-Identifier: MIT
#include "media/tags/Id3v2Text.h"

#include "media/tags/TextCodec.h"

#include <algorithm>

namespace tags {

namespace {

bool isMarked(std::string_view bytes)
{
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

} // namespace

Id3v2Encoding id3v2Encoding(char byte)
{
    return byte >= 0 && byte <= 3 ? Id3v2Encoding(byte) : Id3v2Encoding::Utf8;
}

std::size_t unitBytes(Id3v2Encoding encoding)
{
    return encoding == Id3v2Encoding::Latin1 || encoding == Id3v2Encoding::Utf8 ? 1 : 2;
}

std::size_t terminator(std::string_view bytes, Id3v2Encoding encoding)
{
    if (unitBytes(encoding) == 1)
        return std::min(bytes.find('\0'), bytes.size());
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        if (bytes[i] == '\0' && bytes[i + 1] == '\0')
            return i;
    }
    return bytes.size();
}

std::string decodeId3v2(std::string_view bytes, Id3v2Encoding encoding, bool littleEndianAbove)
{
    switch (encoding) {
    case Id3v2Encoding::Latin1:
        return utf8FromLatin1(bytes);
    case Id3v2Encoding::MarkedUtf16:
        return isMarked(bytes) || !littleEndianAbove ? utf8FromMarkedUtf16(bytes)
                                                     : utf8FromUtf16(bytes, false);
    case Id3v2Encoding::Utf16Big:
        return utf8FromUtf16(bytes, true);
    case Id3v2Encoding::Utf8:
        break;
    }
    return std::string(bytes);
}

Id3v2Encoding encodingFor(unsigned version, bool isAscii)
{
    if (version == 4)
        return Id3v2Encoding::Utf8;
    return isAscii ? Id3v2Encoding::Latin1 : Id3v2Encoding::MarkedUtf16;
}

std::string encodeId3v2(std::string_view text, Id3v2Encoding encoding)
{
    return encoding == Id3v2Encoding::MarkedUtf16 ? markedUtf16FromUtf8(text) : std::string(text);
}

} // namespace tags
