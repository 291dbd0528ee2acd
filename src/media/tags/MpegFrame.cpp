// SPDX-License-Identifier: MIT
#include "media/tags/MpegFrame.h"

#include "media/tags/ByteSource.h"

namespace tags {

namespace {

constexpr std::size_t kSearchBytes = 128 * 1024;

struct Header
{
    unsigned kind = 0; ///< the bits that all frames of one stream share
    std::uint64_t bytes = 0; ///< length of the frame, header included
    FrameLength length;
};

// ISO/IEC 11172-3, 2.4.2.3, and 13818-3: kbit/s by row and the header's four bits.
constexpr unsigned kBitrates[5][16] = {
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, 0}, // MPEG-1, layer I
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 0}, // MPEG-1, layer II
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0}, // MPEG-1, layer III
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256, 0}, // MPEG-2, layer I
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0}, // MPEG-2, layers II, III
};

constexpr unsigned kRates[3] = {44100, 48000, 32000};

std::optional<Header> headerAt(std::string_view bytes, std::size_t at)
{
    const auto word = static_cast<unsigned>(bigEndian(bytes, at, 4));
    const unsigned version = (word >> 19) & 3U; // 3: MPEG-1, 2: MPEG-2, 0: MPEG-2.5
    const unsigned layer = 4U - ((word >> 17) & 3U);
    const unsigned rateIndex = (word >> 10) & 3U;
    if ((word >> 21) != 0x7FFU || version == 1 || layer == 4 || rateIndex == 3)
        return std::nullopt;
    const unsigned row = version == 3 ? layer - 1 : (layer == 1 ? 3 : 4);
    const unsigned bitrate = kBitrates[row][(word >> 12) & 15U] * 1000;
    if (bitrate == 0)
        return std::nullopt;
    const unsigned rate = kRates[rateIndex] >> (version == 3 ? 0 : version == 2 ? 1 : 2);
    const unsigned padding = (word >> 9) & 1U;
    Header header;
    header.kind = word & 0xFFFE0C00U;
    header.length = {layer == 1 ? 384U : layer == 3 && version != 3 ? 576U : 1152U, rate};
    if (layer == 1)
        header.bytes = (12ULL * bitrate / rate + padding) * 4;
    else
        header.bytes = header.length.samples / 8ULL * bitrate / rate + padding;
    return header;
}

bool isConfirmed(const ByteSource &source, std::uint64_t at, const Header &header, bool oneIsEnough)
{
    const std::uint64_t next = at + header.bytes;
    if (oneIsEnough || next == source.size())
        return true;
    const std::optional<Header> following = headerAt(source.read(next, 4), 0);
    return following && following->kind == header.kind;
}

} // namespace

std::optional<FrameLength> mpegFrameLength(const ByteSource &source, std::uint64_t at)
{
    const std::optional<Header> header = headerAt(source.read(at, 4), 0);
    return header ? std::optional(header->length) : std::nullopt;
}

std::optional<std::uint64_t> firstMpegFrame(const ByteSource &source, std::uint64_t from, bool oneIsEnough)
{
    const std::string bytes = source.read(from, kSearchBytes);
    for (std::size_t i = 0; i + 4 <= bytes.size(); ++i) {
        if (bytes[i] != '\xFF')
            continue;
        const std::optional<Header> header = headerAt(bytes, i);
        if (header && isConfirmed(source, from + i, *header, oneIsEnough))
            return from + i;
    }
    return std::nullopt;
}

} // namespace tags
