// SPDX-License-Identifier: MIT
#include "media/tags/Id3v2Lyrics.h"

#include "media/tags/TextCodec.h"

#include <algorithm>
#include <cctype>

namespace tags {

namespace {

constexpr std::string_view kUserText = "TXXX:"; ///< before the description, in a name for people

enum Encoding : unsigned char { Latin1 = 0, MarkedUtf16 = 1, Utf16Big = 2, Utf8 = 3 };

/// Where the string at the start of `bytes` ends: the index of its terminator, or the end.
std::size_t terminator(std::string_view bytes, unsigned char encoding)
{
    if (encoding == Latin1 || encoding == Utf8)
        return std::min(bytes.find('\0'), bytes.size());
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        if (bytes[i] == '\0' && bytes[i + 1] == '\0')
            return i;
    }
    return bytes.size();
}

/// `littleEndianAbove`: the byte order of the string before, for those that have no mark.
std::string decode(std::string_view bytes, unsigned char encoding, bool littleEndianAbove = false)
{
    switch (encoding) {
    case Latin1:
        return utf8FromLatin1(bytes);
    case MarkedUtf16: {
        const bool marked = bytes.substr(0, 2) == "\xFF\xFE" || bytes.substr(0, 2) == "\xFE\xFF";
        return marked || !littleEndianAbove ? utf8FromMarkedUtf16(bytes) : utf8FromUtf16(bytes, false);
    }
    case Utf16Big:
        return utf8FromUtf16(bytes, true);
    default:
        return std::string(bytes);
    }
}

/// Description, terminator, text: how the bodies of `USLT` (after its language) and `TXXX` end.
void readStrings(std::string_view bytes, unsigned char encoding, LyricField &field)
{
    const std::size_t width = encoding == Latin1 || encoding == Utf8 ? 1 : 2;
    const std::size_t end = terminator(bytes, encoding);
    const bool littleEndian = bytes.substr(0, 2) == "\xFF\xFE";
    field.description = decode(bytes.substr(0, end), encoding);
    std::string_view text = bytes.substr(std::min(end + width, bytes.size()));
    // Many writers terminate the text too, although it is the last.
    const std::string nul(width, '\0');
    while (text.size() >= width && text.substr(text.size() - width) == nul)
        text.remove_suffix(width);
    field.text = decode(text, encoding, littleEndian);
}

bool isLyricDescription(std::string description)
{
    std::transform(description.begin(), description.end(), description.begin(),
        [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return description == "SYNCEDLYRICS" || description == "LYRICS" || description == "UNSYNCEDLYRICS";
}

bool isUslt(const Id3v2Frame &frame)
{
    return frame.id == "USLT" || frame.id == "ULT";
}

std::optional<LyricField> readUslt(std::string_view body)
{
    if (body.size() < 4)
        return std::nullopt;
    LyricField field;
    field.tag = "ID3v2";
    field.name = "USLT";
    field.language = body.substr(1, 3);
    readStrings(body.substr(4), static_cast<unsigned char>(body[0]), field);
    return field;
}

std::optional<LyricField> readTxxx(std::string_view body)
{
    if (body.empty())
        return std::nullopt;
    LyricField field;
    readStrings(body.substr(1), static_cast<unsigned char>(body[0]), field);
    if (!isLyricDescription(field.description))
        return std::nullopt;
    field.tag = "ID3v2";
    field.name = std::string(kUserText) + field.description;
    return field;
}

void append(std::vector<Id3v2Lyric> &lyrics, std::size_t frame, const std::optional<LyricField> &field)
{
    if (field)
        lyrics.push_back({frame, *field});
}

/// The body of a lyric frame; `head` is what stands between the encoding and the description.
std::string renderBody(
    unsigned version, std::string_view head, const std::string &description, std::string_view text)
{
    // 2.4 has UTF-8, which keeps every byte; before, all but ASCII goes as UTF-16.
    const bool narrow = version == 4 || (isAscii(text) && isAscii(description));
    std::string out(1, static_cast<char>(!narrow ? MarkedUtf16 : version == 4 ? Utf8 : Latin1));
    out += head;
    if (narrow)
        return out + description + '\0' + std::string(text);
    return out + markedUtf16FromUtf8(description) + std::string(2, '\0') + markedUtf16FromUtf8(text);
}

Id3v2Frame renderFrame(
    const Id3v2Tag &tag, const LyricField &field, const std::string &id, std::string_view text)
{
    std::string language = field.language;
    if (id.front() == 'U')
        language.resize(3, ' ');
    return makeFrame(tag.version, id, renderBody(tag.version, language, field.description, text));
}

/// `name` is one of newId3v2Names() or empty.
Id3v2Frame newFrame(const Id3v2Tag &tag, const std::string &name, std::string_view text)
{
    LyricField field;
    if (name.starts_with(kUserText)) {
        field.description = name.substr(kUserText.size());
        return renderFrame(tag, field, tag.version == 2 ? "TXX" : "TXXX", text);
    }
    field.language = "XXX"; // "unknown", as the standard spells it
    return renderFrame(tag, field, tag.version == 2 ? "ULT" : "USLT", text);
}

} // namespace

std::vector<Id3v2Lyric> lyricsOf(const Id3v2Tag &tag)
{
    std::vector<Id3v2Lyric> unsynchronised;
    std::vector<Id3v2Lyric> userText;
    for (std::size_t i = 0; i < tag.frames.size(); ++i) {
        const Id3v2Frame &frame = tag.frames[i];
        const bool isText = frame.id == "TXXX" || frame.id == "TXX";
        if ((!isUslt(frame) && !isText) || isOpaque(tag, frame))
            continue;
        if (isText)
            append(userText, i, readTxxx(plainBody(tag, frame)));
        else
            append(unsynchronised, i, readUslt(plainBody(tag, frame)));
    }
    unsynchronised.insert(unsynchronised.end(), userText.begin(), userText.end());
    return unsynchronised;
}

std::vector<std::string> newId3v2Names()
{
    return {"USLT", "TXXX:LYRICS", "TXXX:SYNCEDLYRICS", "TXXX:UNSYNCEDLYRICS"};
}

std::optional<Failure> setLyric(
    Id3v2Tag &tag, const std::vector<Id3v2Lyric> &lyrics, const LyricPlace &place, std::string_view text)
{
    if (!isUtf8(text) || text.find('\0') != std::string_view::npos) {
        return Failure{Reason::NotText,
            "The lyric holds bytes that are not text, which an ID3 tag cannot store. Correct the lines that "
            "show a "
            "replacement mark, then save again."};
    }
    // In 2.2 sizes have 24 bits, in 2.4 28; room for description and UTF-16 included.
    if (text.size() > (tag.version == 2 ? (7U << 20) : (100U << 20)))
        return Failure{Reason::TooLarge, "The lyric is too long for this kind of file."};
    if (!place.field) {
        tag.frames.push_back(newFrame(tag, place.newName, text));
        return std::nullopt;
    }
    const Id3v2Lyric &lyric = lyrics.at(*place.field);
    if (text.empty()) {
        tag.frames.erase(tag.frames.begin() + std::ptrdiff_t(lyric.frame));
    } else {
        Id3v2Frame &frame = tag.frames[lyric.frame];
        frame = renderFrame(tag, lyric.field, frame.id, text);
    }
    return std::nullopt;
}

} // namespace tags
