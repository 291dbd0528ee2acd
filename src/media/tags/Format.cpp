// SPDX-License-Identifier: MIT
#include "media/tags/Format.h"

#include "media/tags/AdtsFrame.h"
#include "media/tags/AsfHeader.h"
#include "media/tags/ByteSource.h"
#include "media/tags/Id3v2Tag.h"
#include "media/tags/MpegFrame.h"
#include "media/tags/OggPage.h"

#include <string>
#include <string_view>
#include <utility>

namespace tags {

namespace {

struct Signature
{
    std::size_t at;
    std::string_view bytes;
    const char *name;
};

using namespace std::string_view_literals;

/// Audio that is known by sight and cannot be edited.
constexpr Signature kOthers[] = {
    {0, "RIFF"sv, "RIFF, but no WAV at the start of the file"},
    {0, "RF64"sv, "RF64, which is WAV beyond 4 GiB"},
    {0, "BW64"sv, "BW64, which is WAV beyond 4 GiB"},
    {0, "FORM"sv, "IFF, but no AIFF at the start of the file"},
    {0, "TTA1"sv, "TTA"},
    {0, "DSD "sv, "DSF"},
    {0, "FRM8"sv, "DSDIFF"},
    {0, "\x1A\x45\xDF\xA3"sv, "Matroska"},
    {0, "ADIF"sv, "AAC in ADIF"},
};

/// Audio that other tags may stand before.
constexpr std::pair<std::string_view, Format> kBehindTags[] = {
    {"fLaC"sv, Format::Flac},
    {"MAC "sv, Format::Ape},
    {"wvpk"sv, Format::WavPack},
    {"MPCK"sv, Format::Musepack},
    {"MP+"sv, Format::Musepack},
};

Failure unsupported(const char *name)
{
    return {Reason::Unsupported,
        {"Files of this kind (%1) cannot be opened. Choose an MP3, M4A, FLAC, Ogg, Opus, WAV, AIFF, AAC, "
         "WMA, APE or WavPack file.",
            {name}}};
}

Failure notAudio()
{
    return {Reason::NotAudio,
        "This is not an audio file, whatever its name says. Choose an MP3, M4A, FLAC, Ogg, Opus, WAV, AIFF, "
        "AAC, WMA, APE or WavPack file."};
}

Outcome<Format> oggFormat(const ByteSource &source)
{
    const std::optional<OggPage> page = OggPage::parse(source, 0);
    if (!page)
        return Failure{Reason::Damaged, "The Ogg file is damaged or incomplete."};
    const std::string packet = source.read(page->bodyAt(), 8);
    const auto begins
        = [&packet](std::string_view with) { return packet.compare(0, with.size(), with) == 0; };
    if (begins("\x01vorbis"))
        return Format::OggVorbis;
    if (begins("OpusHead"))
        return Format::OggOpus;
    if (begins("Speex   "))
        return Format::OggSpeex;
    if (begins("\x7F"
               "FLAC"))
        return Format::OggFlac;
    return Failure{Reason::Unsupported, "The Ogg file holds no Vorbis, Opus, Speex or FLAC sound."};
}

/// What comes in frames without a header before them, behind tags that end at `tagEnd`.
Outcome<Format> framesFormat(const ByteSource &source, std::uint64_t tagEnd)
{
    const std::optional<std::uint64_t> adts = firstAdtsFrame(source, tagEnd);
    const std::optional<std::uint64_t> mpeg = firstMpegFrame(source, tagEnd, tagEnd > 0);
    // What stands between tag and frames may look like either; without a tag AAC begins at once.
    if (adts && (tagEnd > 0 || *adts == 0) && (!mpeg || *adts <= *mpeg))
        return Format::Aac;
    if (mpeg)
        return Format::Mpeg;
    return notAudio();
}

} // namespace

Outcome<Format> detectFormat(const ByteSource &source)
{
    if (source.size() == 0)
        return Failure{Reason::NotAudio, "The file is empty. Choose an audio file."};
    const std::uint64_t tagEnd = leadingId3v2Size(source);
    const std::string head = source.read(tagEnd, 16);
    const auto has = [&head](std::size_t at, std::string_view bytes) {
        return head.compare(at < head.size() ? at : head.size(), bytes.size(), bytes) == 0;
    };
    for (const auto &[bytes, format] : kBehindTags) {
        if (has(0, bytes))
            return format;
    }
    if (tagEnd == 0 && has(0, "OggS"))
        return oggFormat(source);
    if (tagEnd == 0 && has(4, "ftyp"))
        return Format::Mp4;
    if (tagEnd == 0 && has(0, "RIFF") && has(8, "WAVE"))
        return Format::Wav;
    if (tagEnd == 0 && has(0, "FORM") && (has(8, "AIFF") || has(8, "AIFC")))
        return Format::Aiff;
    if (tagEnd == 0 && has(0, asfHeaderGuid()))
        return Format::Asf;
    for (const Signature &other : kOthers) {
        if (has(other.at, other.bytes))
            return unsupported(other.name);
    }
    return framesFormat(source, tagEnd);
}

} // namespace tags
