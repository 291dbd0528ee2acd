// SPDX-License-Identifier: MIT
#include "media/tags/Id3v2Lyrics.h"

#include "media/tags/Id3v2Synced.h"
#include "media/tags/Id3v2Text.h"
#include "media/tags/TextCodec.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <utility>

namespace tags {

namespace {

constexpr std::string_view kSynced = "SYLT";
/// What all deflated frames together may inflate to: no more are read behind.
constexpr std::size_t kMaxInflated = 16U << 20;
constexpr std::string_view kUserText = "TXXX:"; ///< before the description, in a name for people

/// Description, terminator, text: how the bodies of `USLT` (after its language) and `TXXX` end.
void readStrings(std::string_view bytes, Id3v2Encoding encoding, LyricField &field)
{
    const std::size_t width = unitBytes(encoding);
    const std::size_t end = terminator(bytes, encoding);
    const bool littleEndian = bytes.substr(0, 2) == "\xFF\xFE";
    field.description = decodeId3v2(bytes.substr(0, end), encoding);
    std::string_view text = bytes.substr(std::min(end + width, bytes.size()));
    // Many writers terminate the text too, although it is the last.
    const std::string nul(width, '\0');
    while (text.size() >= width && text.substr(text.size() - width) == nul)
        text.remove_suffix(width);
    field.text = decodeId3v2(text, encoding, littleEndian);
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

bool isUserText(const Id3v2Frame &frame)
{
    return frame.id == "TXXX" || frame.id == "TXX";
}

std::optional<LyricField> readUslt(std::string_view body)
{
    if (body.size() < 4)
        return std::nullopt;
    LyricField field;
    field.tag = "ID3v2";
    field.name = "USLT";
    field.language = body.substr(1, 3);
    readStrings(body.substr(4), id3v2Encoding(body[0]), field);
    return field;
}

std::optional<LyricField> readTxxx(std::string_view body)
{
    if (body.empty())
        return std::nullopt;
    LyricField field;
    readStrings(body.substr(1), id3v2Encoding(body[0]), field);
    if (!isLyricDescription(field.description))
        return std::nullopt;
    field.tag = "ID3v2";
    field.name = std::string(kUserText) + field.description;
    return field;
}

std::optional<LyricField> readSylt(std::string_view body, const std::optional<FrameLength> &frameLength)
{
    std::optional<SyncedFrame> frame = SyncedFrame::parse(body, frameLength);
    if (!frame)
        return std::nullopt;
    LyricField field;
    field.tag = "ID3v2";
    field.name = kSynced;
    field.language = std::move(frame->language);
    field.description = std::move(frame->description);
    field.text = lrcFromEntries(frame->entries);
    field.synchronised = true;
    field.isFixed = frame->unit == SyncedFrame::Unit::MpegFrames;
    return field;
}

void append(std::vector<FoundLyric> &lyrics, std::size_t frame, std::optional<LyricField> field)
{
    if (field)
        lyrics.push_back({frame, std::move(*field)});
}

/// The body of a lyric frame; `head` is what stands between the encoding and the description.
std::string renderBody(
    unsigned version, std::string_view head, const std::string &description, std::string_view text)
{
    const Id3v2Encoding encoding = encodingFor(version, isAscii(text) && isAscii(description));
    std::string out(1, static_cast<char>(encoding));
    out += head;
    out += encodeId3v2(description, encoding) + std::string(unitBytes(encoding), '\0');
    return out + encodeId3v2(text, encoding);
}

/// The identifier of a frame in `version`, by its own in 2.3 and 2.4.
std::string frameId(unsigned version, const std::string &id)
{
    if (version != 2)
        return id;
    return id == "USLT" ? "ULT" : id == kSynced ? "SLT" : "TXX";
}

/// `field` without its text, as a frame that says `text`.
Id3v2Frame unsyncedFrame(const Id3v2Tag &tag, const LyricField &field, std::string_view text)
{
    const bool isUserText = field.name.starts_with(kUserText);
    std::string language = field.language;
    if (!isUserText)
        language.resize(3, ' ');
    return makeFrame(tag.version, frameId(tag.version, isUserText ? "TXXX" : "USLT"),
        renderBody(tag.version, language, field.description, text));
}

/// `frame` with its entries made of `text`.
Outcome<Id3v2Frame> syncedFrame(const Id3v2Tag &tag, SyncedFrame frame, std::string_view text,
    const std::optional<FrameLength> &frameLength)
{
    frame.entries = entriesFromLrc(text, lineBreaksOf(frame.entries));
    Outcome<std::string> body = frame.render(tag.version, frameLength);
    if (!body.ok())
        return body.failure();
    return makeFrame(tag.version, frameId(tag.version, std::string(kSynced)), body.value());
}

/// `name` is one of newId3v2Names() or empty.
Outcome<Id3v2Frame> newFrame(const Id3v2Tag &tag, const std::string &name, std::string_view text)
{
    if (name == kSynced) {
        if (holdableText(text).empty())
            return nothingTimed();
        SyncedFrame frame;
        frame.entries = {{0, "\n"}}; // so that lines are told apart as the standard asks for
        return syncedFrame(tag, frame, text, std::nullopt);
    }
    LyricField field;
    field.name = name;
    if (name.starts_with(kUserText))
        field.description = name.substr(kUserText.size());
    else
        field.language = "XXX"; // "unknown", as the standard spells it
    return unsyncedFrame(tag, field, text);
}

/// A new lyric comes before those that are there: a reader who takes the first one takes what was saved last.
void insertFrame(Id3v2Tag &tag, Id3v2Frame frame)
{
    const auto place
        = isUslt(frame) ? std::find_if(tag.frames.begin(), tag.frames.end(), isUslt) : tag.frames.end();
    tag.frames.insert(place, std::move(frame));
}

Outcome<Id3v2Frame> changedFrame(const Id3v2Tag &tag, const FoundLyric &lyric, std::string_view text,
    const std::optional<FrameLength> &frameLength)
{
    if (!lyric.field.synchronised)
        return unsyncedFrame(tag, lyric.field, text);
    const std::optional<std::string> body = plainBody(tag, tag.frames[lyric.at]);
    return syncedFrame(tag, SyncedFrame::parse(body.value(), frameLength).value(), text, frameLength);
}

/// Whether `field` holds nothing any more once it is given `text`.
bool leavesNothing(const LyricField &field, std::string_view text)
{
    return field.synchronised ? holdableText(text).empty() : text.empty();
}

std::optional<Failure> unstorable(const Id3v2Tag &tag, std::string_view text)
{
    if (!isTagText(text))
        return notTagText("an ID3 tag");
    // In 2.2 sizes have 24 bits, in 2.4 28; room for description and UTF-16 included.
    if (text.size() > (tag.version == 2 ? (7U << 20) : (100U << 20)))
        return Failure{Reason::TooLarge, "The lyric is too long for this kind of file."};
    return std::nullopt;
}

} // namespace

std::vector<FoundLyric> lyricsOf(const Id3v2Tag &tag, const std::optional<FrameLength> &frameLength)
{
    std::vector<FoundLyric> unsynchronised;
    std::vector<FoundLyric> synchronised;
    std::vector<FoundLyric> userText;
    std::size_t syncedBytes = 0;
    std::size_t inflatedBytes = 0;
    for (std::size_t i = 0; i < tag.frames.size(); ++i) {
        const Id3v2Frame &frame = tag.frames[i];
        if (!isUslt(frame) && !isSynced(frame) && !isUserText(frame))
            continue;
        const bool deflated = isCompressed(tag, frame);
        const std::optional<std::string> body
            = inflatedBytes > kMaxInflated ? std::nullopt : plainBody(tag, frame);
        if (!body)
            continue;
        inflatedBytes += deflated ? body->size() : 0;
        if (isUslt(frame))
            append(unsynchronised, i, readUslt(*body));
        else if (isUserText(frame))
            append(userText, i, readTxxx(*body));
        else if ((syncedBytes += body->size()) <= kMaxSyncedBody)
            append(synchronised, i, readSylt(*body, frameLength));
    }
    std::vector<FoundLyric> lyrics = std::move(unsynchronised);
    std::move(synchronised.begin(), synchronised.end(), std::back_inserter(lyrics));
    std::move(userText.begin(), userText.end(), std::back_inserter(lyrics));
    return lyrics;
}

std::vector<std::string> newId3v2Names()
{
    return {"USLT", std::string(kSynced), "TXXX:LYRICS", "TXXX:SYNCEDLYRICS", "TXXX:UNSYNCEDLYRICS"};
}

std::optional<Failure> setLyrics(Id3v2Tag &tag, const std::vector<FoundLyric> &lyrics,
    const std::vector<FieldEdit> &edits, const std::optional<FrameLength> &frameLength)
{
    std::vector<std::size_t> gone;
    std::vector<Id3v2Frame> added;
    for (const FieldEdit &edit : edits) {
        if (auto failure = unstorable(tag, edit.text))
            return failure;
        const FoundLyric *lyric = edit.place.field ? &lyrics.at(*edit.place.field) : nullptr;
        if (lyric && leavesNothing(lyric->field, edit.text)) {
            gone.push_back(lyric->at);
            continue;
        }
        Outcome<Id3v2Frame> frame = lyric ? changedFrame(tag, *lyric, edit.text, frameLength)
                                          : newFrame(tag, edit.place.newName, edit.text);
        if (!frame.ok())
            return frame.failure();
        if (lyric)
            tag.frames[lyric->at] = std::move(frame.value());
        else
            added.push_back(std::move(frame.value()));
    }
    eraseAt(tag.frames, std::move(gone));
    for (Id3v2Frame &frame : added)
        insertFrame(tag, std::move(frame));
    return std::nullopt;
}

} // namespace tags
