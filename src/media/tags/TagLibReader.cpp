// SPDX-License-Identifier: MIT
#include "media/tags/TagLibReader.h"

#include "media/tags/ByteSource.h"
#include "media/tags/Id3v2Guard.h"
#include "media/tags/Id3v2Tag.h"
#include "media/tags/LibraryPart.h"
#include "media/tags/MpegFrame.h"
#include "media/tags/PatchedSource.h"
#include "media/tags/RiffGuard.h"
#include "media/tags/SoundFrames.h"
#include "media/tags/SourceStream.h"
#include "media/tags/TagLibViews.h"

#include <taglib/aifffile.h>
#include <taglib/apefile.h>
#include <taglib/asffile.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/mp4file.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/oggflacfile.h>
#include <taglib/opusfile.h>
#include <taglib/speexfile.h>
#include <taglib/vorbisfile.h>
#include <taglib/wavfile.h>
#include <taglib/wavpackfile.h>

#include <algorithm>
#include <utility>

namespace tags {

namespace {

void addName(const TagLib::String &name, std::string &out)
{
    if (out.empty())
        out = name.to8Bit(true);
}

/// Title, artist and album, those of them that are not known yet.
void addNames(const TagLib::Tag &tag, LibraryView &out)
{
    addName(tag.title(), out.title);
    addName(tag.artist(), out.artist);
    addName(tag.album(), out.album);
}

void view(TagLib::RIFF::WAV::File &file, LibraryView &out)
{
    if (file.hasID3v2Tag()) {
        addView(*file.ID3v2Tag(), out);
        addNames(*file.ID3v2Tag(), out);
    }
    if (file.hasInfoTag()) {
        addView(*file.InfoTag(), out);
        addNames(*file.InfoTag(), out);
    }
}

void view(TagLib::RIFF::AIFF::File &file, LibraryView &out)
{
    if (file.hasID3v2Tag())
        addView(*file.tag(), out);
}

/// Monkey's Audio, WavPack and Musepack.
template <typename File>
requires requires(File &file)
{
    file.APETag();
}
void view(File &file, LibraryView &out)
{
    if (file.hasAPETag())
        addView(*file.APETag(), out);
}

void view(TagLib::ASF::File &file, LibraryView &out)
{
    if (file.tag())
        addView(*file.tag(), out);
}

void view(TagLib::MP4::File &file, LibraryView &out)
{
    if (file.tag())
        addView(static_cast<const TagLib::MP4::Tag &>(*file.tag()), out);
}

void view(TagLib::FLAC::File &file, LibraryView &out)
{
    if (file.hasXiphComment())
        addView(*file.xiphComment(), out);
    addPictures(file.pictureList(), out);
}

template <typename OggFile>
void view(OggFile &file, LibraryView &out)
{
    if (!file.tag())
        return;
    addView(*file.tag(), out);
    addPictures(file.tag()->pictureList(), out);
}

Outcome<LibraryView> finished(TagLib::File &file, const SourceStream &stream, LibraryView view)
{
    if (stream.isExhausted())
        return Failure{Reason::Hostile, "The file takes too much reading to be opened safely."};
    if (!file.isValid())
        return Failure{Reason::Damaged, "The file is damaged or incomplete, so its tags cannot be read."};
    if (const TagLib::Tag *tag = file.tag())
        addNames(*tag, view);
    if (const TagLib::AudioProperties *properties = file.audioProperties())
        view.duration = std::max(0, properties->lengthInMilliseconds()) / 1000.0;
    std::sort(view.lyrics.begin(), view.lyrics.end());
    std::sort(view.others.begin(), view.others.end());
    return view;
}

template <typename File, typename... Arguments>
Outcome<LibraryView> viewOf(SourceStream &stream, Arguments... arguments)
{
    File file(&stream, arguments...);
    LibraryView out;
    if (file.isValid())
        view(file, out);
    return finished(file, stream, std::move(out));
}

/// A tag before frames of MPEG sound, or of bare AAC, which the library does not know outside of MP4: it must
/// not look for frames there.
Outcome<LibraryView> viewOfFrames(SourceStream &stream, const ByteSource &source, Format format)
{
    TagLib::MPEG::File file(&stream, TagLib::ID3v2::FrameFactory::instance(), format == Format::Mpeg);
    LibraryView out;
    if (file.isValid() && file.hasID3v2Tag())
        addView(*file.ID3v2Tag(), out, soundFrameLength(source, format));
    if (file.isValid() && format == Format::Mpeg && file.hasAPETag())
        addView(*file.APETag(), out);
    if (format == Format::Aac)
        out.duration = aacDuration(source);
    return finished(file, stream, std::move(out));
}

/// Where the library begins to read: not at what stands before the file proper, since it would
/// look for tags there that are not checked here.
std::uint64_t startOf(const ByteSource &source, Format format)
{
    switch (format) {
    case Format::Flac:
    case Format::Ape:
    case Format::WavPack:
    case Format::Musepack:
        return leadingId3v2Size(source);
    default:
        break;
    }
    if (format == Format::Mpeg && id3v2Size(source, 0) == 0)
        return firstMpegFrame(source, 0, false).value_or(0);
    return 0;
}

std::optional<Failure> hostileContent(const ByteSource &source, Format format)
{
    if (const std::optional<RiffOrder> order = riffOrder(format))
        return hostileRiff(source, *order);
    if (format != Format::Mpeg && format != Format::Aac)
        return std::nullopt; // the other containers bound what they hold when they are parsed
    const Outcome<Id3v2Tag> tag = Id3v2Tag::parse(source);
    return tag.ok() ? hostileTag(tag.value()) : tag.failure();
}

} // namespace

Outcome<LibraryView> readWithTagLib(const ByteSource &source, Format format, const std::string &name)
{
    if (auto failure = hostileContent(source, format))
        return *failure;
    const PatchedSource shown(source, hiddenFromLibrary(source, format));
    SourceStream stream(shown, startOf(source, format), name);
    switch (format) {
    case Format::Mpeg:
    case Format::Aac:
        return viewOfFrames(stream, source, format);
    case Format::Flac:
        return viewOf<TagLib::FLAC::File>(stream, TagLib::ID3v2::FrameFactory::instance());
    case Format::OggVorbis:
        return viewOf<TagLib::Ogg::Vorbis::File>(stream);
    case Format::OggOpus:
        return viewOf<TagLib::Ogg::Opus::File>(stream);
    case Format::OggSpeex:
        return viewOf<TagLib::Ogg::Speex::File>(stream);
    case Format::OggFlac:
        return viewOf<TagLib::Ogg::FLAC::File>(stream);
    case Format::Mp4:
        return viewOf<TagLib::MP4::File>(stream);
    case Format::Wav:
        return viewOf<TagLib::RIFF::WAV::File>(stream);
    case Format::Aiff:
        return viewOf<TagLib::RIFF::AIFF::File>(stream);
    case Format::Ape:
        return viewOf<TagLib::APE::File>(stream);
    case Format::WavPack:
        return viewOf<TagLib::WavPack::File>(stream);
    case Format::Musepack:
        return viewOf<TagLib::MPC::File>(stream);
    case Format::Asf:
        return viewOf<TagLib::ASF::File>(stream);
    }
    return Failure{Reason::Unsupported, "This kind of file cannot be read."};
}

std::string textAsTagLibReads(std::string_view text)
{
    return TagLib::String(std::string(text), TagLib::String::UTF8).to8Bit(true);
}

} // namespace tags
