// SPDX-License-Identifier: MIT
#include "media/tags/Container.h"

#include "media/tags/ApeContainer.h"

namespace tags {

namespace {

ContainerOutcome parsed(const ByteSource &source, Format format)
{
    switch (format) {
    case Format::Mpeg:
        return parseMpeg(source);
    case Format::Flac:
        return parseFlac(source);
    case Format::Mp4:
        return parseMp4(source);
    case Format::OggVorbis:
    case Format::OggOpus:
    case Format::OggSpeex:
    case Format::OggFlac:
        return parseOgg(source, format);
    case Format::Wav:
        return parseWav(source);
    case Format::Aiff:
        return parseAiff(source);
    case Format::Aac:
        return parseAac(source);
    case Format::Ape:
    case Format::WavPack:
    case Format::Musepack:
        return parseApeTagged(source, format);
    case Format::Asf:
        return parseAsf(source);
    }
    return Failure{Reason::Unsupported, "This kind of file cannot be read."};
}

} // namespace

ContainerOutcome parseContainer(const ByteSource &source, Format format)
{
    ContainerOutcome container = parsed(source, format);
    if (container.ok()) {
        if (std::optional<Failure> failure = tooMuchLyric(container.value()->lyricFields()))
            return *failure;
    }
    return container;
}

} // namespace tags
