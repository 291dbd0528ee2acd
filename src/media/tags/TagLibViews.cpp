// SPDX-License-Identifier: MIT
#include "media/tags/TagLibViews.h"

#include "media/tags/AsfSynced.h"
#include "media/tags/Comparable.h"
#include "media/tags/Id3v2Synced.h"
#include "media/tags/TagLibReader.h"

#include <taglib/asfpicture.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/mp4coverart.h>
#include <taglib/synchronizedlyricsframe.h>
#include <taglib/textidentificationframe.h>
#include <taglib/unsynchronizedlyricsframe.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tags {

namespace {

std::string bytesOf(const TagLib::ByteVector &bytes)
{
    return {bytes.data(), bytes.size()};
}

/// Valid as long as `bytes`.
std::string_view viewOf(const TagLib::ByteVector &bytes)
{
    return {bytes.data(), bytes.size()};
}

std::string utf8(const TagLib::String &text)
{
    return text.to8Bit(true);
}

bool isLyricName(const TagLib::String &name)
{
    const TagLib::String upper = name.upper();
    return upper == "LYRICS" || upper == "SYNCEDLYRICS" || upper == "UNSYNCEDLYRICS"
        || upper == "UNSYNCED LYRICS";
}

/// The front cover wins over any other picture, and among equals the first.
void considerCover(const TagLib::ByteVector &data, bool isFront, bool &haveFront, std::string &cover)
{
    if (data.isEmpty() || haveFront || (!isFront && !cover.empty()))
        return;
    cover = bytesOf(data);
    haveFront = isFront;
}

using Synced = TagLib::ID3v2::SynchronizedLyricsFrame;

/// The text of synchronised lyrics; null when it is something else, or in a unit that cannot be told.
std::optional<std::string> syncedText(const Synced &frame, const std::optional<FrameLength> &frameLength)
{
    const bool frames = frame.timestampFormat() == Synced::AbsoluteMpegFrames;
    const bool isLyric = frame.type() == Synced::Lyrics || frame.type() == Synced::TextTranscription;
    if (!isLyric
        || !(frames ? frameLength.has_value() : frame.timestampFormat() == Synced::AbsoluteMilliseconds))
        return std::nullopt;
    std::vector<SyncedEntry> entries;
    for (const Synced::SynchedText &entry : frame.synchedText())
        entries.push_back({frames ? millisecondsOf(entry.time, *frameLength) : entry.time, utf8(entry.text)});
    return lrcFromEntries(entries);
}

/// A lyric's text when the frame is one that counts as a lyric.
std::optional<std::string> lyricText(
    const TagLib::ID3v2::Frame &frame, const std::optional<FrameLength> &frameLength)
{
    if (const auto *uslt = dynamic_cast<const TagLib::ID3v2::UnsynchronizedLyricsFrame *>(&frame))
        return utf8(uslt->text());
    if (const auto *sylt = dynamic_cast<const Synced *>(&frame))
        return syncedText(*sylt, frameLength);
    const auto *user = dynamic_cast<const TagLib::ID3v2::UserTextIdentificationFrame *>(&frame);
    if (!user || !isLyricName(user->description()))
        return std::nullopt;
    const TagLib::StringList fields = user->fieldList();
    return fields.size() > 1 ? utf8(fields[1]) : std::string();
}

/// Texts, data and pictures. Numbers are left out: an item does not say of which width its number
/// is, and reading the wrong one reads memory that was never set.
std::string itemValue(const TagLib::MP4::Item &item)
{
    std::string value;
    for (const TagLib::String &text : item.toStringList())
        value += '\n' + utf8(text);
    for (const TagLib::ByteVector &data : item.toByteVectorList())
        value += '\n' + comparable(viewOf(data));
    for (const TagLib::MP4::CoverArt &art : item.toCoverArtList())
        value += '\n' + comparable(viewOf(art.data()));
    return value;
}

std::string attributeValue(const TagLib::ASF::Attribute &attribute)
{
    using Attribute = TagLib::ASF::Attribute;
    const std::string about = std::to_string(attribute.language()) + ' ' + std::to_string(attribute.stream())
        + ' ' + std::to_string(attribute.type()) + '\n';
    switch (attribute.type()) {
    case Attribute::UnicodeType:
        return about + utf8(attribute.toString());
    case Attribute::BoolType:
        return about + std::to_string(attribute.toBool());
    case Attribute::WordType:
        return about + std::to_string(attribute.toUShort());
    case Attribute::DWordType:
        return about + std::to_string(attribute.toUInt());
    case Attribute::QWordType:
        return about + std::to_string(attribute.toULongLong());
    default:
        return about + comparable(viewOf(attribute.toByteVector()));
    }
}

/// A lyric's text when the attribute, by its name one or a synchronised one, is one.
std::optional<std::string> lyricText(const TagLib::ASF::Attribute &attribute, bool isLyric, bool isSynced)
{
    if ((isLyric || isSynced) && attribute.type() == TagLib::ASF::Attribute::UnicodeType)
        return utf8(attribute.toString());
    if (!isSynced || attribute.type() != TagLib::ASF::Attribute::BytesType)
        return std::nullopt;
    const TagLib::ByteVector bytes = attribute.toByteVector();
    const std::optional<AsfSynced> synced = AsfSynced::parse(viewOf(bytes));
    return synced ? std::optional(lrcFromEntries(synced->entries)) : std::nullopt;
}

} // namespace

void addView(const TagLib::ID3v2::Tag &tag, LibraryView &out, const std::optional<FrameLength> &frameLength)
{
    bool haveFront = false;
    for (const TagLib::ID3v2::Frame *frame : tag.frameList()) {
        if (auto text = lyricText(*frame, frameLength)) {
            out.lyrics.push_back(std::move(*text));
            continue;
        }
        out.others.push_back(comparable(viewOf(frame->render())));
        if (const auto *picture = dynamic_cast<const TagLib::ID3v2::AttachedPictureFrame *>(frame)) {
            const bool front = picture->type() == TagLib::ID3v2::AttachedPictureFrame::FrontCover;
            considerCover(picture->picture(), front, haveFront, out.cover);
        }
    }
}

void addView(const TagLib::Ogg::XiphComment &comment, LibraryView &out)
{
    for (const auto &[key, values] : comment.fieldListMap()) {
        for (const TagLib::String &value : values) {
            if (isLyricName(key))
                out.lyrics.push_back(utf8(value));
            else
                out.others.push_back(utf8(key) + '=' + comparable(utf8(value)));
        }
    }
}

void addView(const TagLib::MP4::Tag &tag, LibraryView &out)
{
    const TagLib::String lyricName("\xA9lyr", TagLib::String::Latin1); // compared as characters, not as bytes
    for (const auto &[name, item] : tag.itemMap()) {
        if (name == lyricName) {
            for (const TagLib::String &text : item.toStringList())
                out.lyrics.push_back(utf8(text));
            continue;
        }
        out.others.push_back(utf8(name) + ' ' + itemValue(item));
        if (name == "covr" && !item.toCoverArtList().isEmpty())
            out.cover = bytesOf(item.toCoverArtList().front().data());
    }
}

void addView(const TagLib::RIFF::Info::Tag &tag, LibraryView &out)
{
    for (const auto &[id, value] : tag.fieldListMap())
        out.others.push_back("INFO " + bytesOf(id) + '=' + utf8(value));
}

void addView(const TagLib::APE::Tag &tag, LibraryView &out)
{
    for (const auto &[key, item] : tag.itemListMap()) {
        if (item.type() == TagLib::APE::Item::Text && isLyricName(key)) {
            // One text, which the library tears at each NUL.
            out.lyrics.push_back(utf8(item.values().toString(TagLib::String('\0'))));
            continue;
        }
        out.others.push_back(comparable(viewOf(item.render())));
        if (key == "COVER ART (FRONT)") {
            const TagLib::ByteVector data = item.binaryData();
            const int nameEnd = data.find('\0');
            out.cover = bytesOf(nameEnd < 0 ? data : data.mid(unsigned(nameEnd) + 1));
        }
    }
}

void addView(const TagLib::ASF::Tag &tag, LibraryView &out)
{
    bool haveFront = false;
    for (const auto &[name, attributes] : tag.attributeListMap()) {
        const bool isSynced = name == "WM/Lyrics_Synchronised";
        for (const TagLib::ASF::Attribute &attribute : attributes) {
            if (const auto text = lyricText(attribute, name == "WM/Lyrics", isSynced)) {
                out.lyrics.push_back(*text);
                continue;
            }
            out.others.push_back(utf8(name) + ' ' + attributeValue(attribute));
            const TagLib::ASF::Picture picture = attribute.toPicture();
            if (name == "WM/Picture" && picture.isValid()) {
                const bool front = picture.type() == TagLib::ASF::Picture::FrontCover;
                considerCover(picture.picture(), front, haveFront, out.cover);
            }
        }
    }
}

void addPictures(const TagLib::List<TagLib::FLAC::Picture *> &pictures, LibraryView &out)
{
    bool haveFront = false;
    for (const TagLib::FLAC::Picture *picture : pictures) {
        out.others.push_back("picture " + comparable(viewOf(picture->render())));
        const bool front = picture->type() == TagLib::FLAC::Picture::FrontCover;
        considerCover(picture->data(), front, haveFront, out.cover);
    }
}

} // namespace tags
