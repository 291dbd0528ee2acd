// SPDX-License-Identifier: MIT
#include "media/tags/AdtsFrame.h"

#include "media/tags/ByteSource.h"

namespace tags {

namespace {

constexpr std::size_t kSearchBytes = 128 * 1024;
constexpr std::size_t kHeaderBytes = 7;
constexpr int kMeasured = 500; ///< frames, about ten seconds

// ISO/IEC 13818-7, 6.2 and 14496-3, 1.6.3.4.
constexpr unsigned kRates[]
    = {96000, 88200, 64000, 48000, 44100, 32000, 24000, 22050, 16000, 12000, 11025, 8000, 7350};

struct Header
{
    std::uint64_t kind = 0; ///< the bits that all frames of one stream share
    std::uint64_t bytes = 0; ///< length of the frame, header included
    FrameLength length;
};

std::optional<Header> headerAt(std::string_view bytes, std::size_t at)
{
    const std::uint64_t word = bigEndian(bytes, at, kHeaderBytes); // 56 bits
    const auto rateIndex = unsigned((word >> 34) & 0xFU);
    Header header;
    header.bytes = (word >> 13) & 0x1FFFU;
    if ((word >> 44) != 0xFFFU || ((word >> 41) & 3U) != 0 || rateIndex >= std::size(kRates)
        || header.bytes < kHeaderBytes)
        return std::nullopt;
    header.kind = word >> 28 & ~0x20ULL; // but for the private bit
    header.length = {1024U * (unsigned(word & 3U) + 1), kRates[rateIndex]};
    return header;
}

bool isConfirmed(const ByteSource &source, std::uint64_t at, const Header &first)
{
    const std::uint64_t next = at + first.bytes;
    if (next == source.size())
        return true;
    const std::optional<Header> following = headerAt(source.read(next, kHeaderBytes), 0);
    return following && following->kind == first.kind;
}

} // namespace

std::optional<std::uint64_t> firstAdtsFrame(const ByteSource &source, std::uint64_t from)
{
    const std::string bytes = source.read(from, kSearchBytes);
    for (std::size_t i = 0; i + kHeaderBytes <= bytes.size(); ++i) {
        if (bytes[i] != '\xFF')
            continue;
        const std::optional<Header> header = headerAt(bytes, i);
        if (header && isConfirmed(source, from + i, *header))
            return from + i;
    }
    return std::nullopt;
}

std::optional<FrameLength> adtsFrameLength(const ByteSource &source, std::uint64_t at)
{
    const std::optional<Header> header = headerAt(source.read(at, kHeaderBytes), 0);
    return header ? std::optional(header->length) : std::nullopt;
}

double adtsDuration(const ByteSource &source, std::uint64_t at)
{
    std::uint64_t end = at;
    double seconds = 0;
    for (int i = 0; i < kMeasured; ++i) {
        const std::optional<Header> header = headerAt(source.read(end, kHeaderBytes), 0);
        if (!header)
            break;
        end += header->bytes;
        seconds += double(header->length.samples) / header->length.rate;
    }
    return end == at ? 0 : seconds * double(source.size() - at) / double(end - at);
}

} // namespace tags
