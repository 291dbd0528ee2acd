// SPDX-License-Identifier: MIT
#include "media/tags/SoundFrames.h"

#include "media/tags/AdtsFrame.h"
#include "media/tags/Id3v2Tag.h"

namespace tags {

namespace {

std::optional<std::uint64_t> firstFrame(const ByteSource &source, Format format)
{
    const std::uint64_t from = leadingId3v2Size(source);
    return format == Format::Aac ? firstAdtsFrame(source, from) : firstMpegFrame(source, from, from > 0);
}

} // namespace

std::optional<FrameLength> soundFrameLength(const ByteSource &source, Format format)
{
    if (format != Format::Aac && format != Format::Mpeg)
        return std::nullopt;
    const std::optional<std::uint64_t> first = firstFrame(source, format);
    if (!first)
        return std::nullopt;
    return format == Format::Aac ? adtsFrameLength(source, *first) : mpegFrameLength(source, *first);
}

double aacDuration(const ByteSource &source)
{
    const std::optional<std::uint64_t> first = firstFrame(source, Format::Aac);
    return first ? adtsDuration(source, *first) : 0;
}

} // namespace tags
