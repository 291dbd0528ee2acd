// SPDX-License-Identifier: MIT
#include "media/player/EncoderDelay.h"

#include "media/player/ByteSource.h"
#include "media/player/Mp4Atoms.h"
#include "media/player/MpegFrame.h"
#include "media/player/MpegLength.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <string_view>

namespace media {

namespace {

// A decoder of layer III runs this far behind its input, and one of layer II so far.
constexpr std::uint32_t kLayer3DecoderDelay = 529;
constexpr std::uint32_t kLayer2DecoderDelay = 481;
// What the usual encoder puts in front when it is not told otherwise.
constexpr std::uint32_t kUsualLayer3EncoderDelay = 576;

constexpr std::size_t kBytesToLookAt = 64 * 1024;
constexpr std::size_t kId3HeaderBytes = 10;

std::string_view textAt(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t length)
{
    if (at + length > bytes.size()) {
        return {};
    }
    // The bytes of a file are characters wherever a magic word is looked for.
    return {reinterpret_cast<const char *>(bytes.data() + at), length};
}

std::uint32_t bigEndian(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return std::uint32_t{bytes[at]} << 24U | std::uint32_t{bytes[at + 1]} << 16U
        | std::uint32_t{bytes[at + 2]} << 8U | bytes[at + 3];
}

/// What stands in the info header of a layer III file ("Xing" for a variable rate, "Info" for a
/// constant one): which optional fields there are, the fields, and then the encoder's own part.
struct InfoHeader
{
    std::optional<std::uint32_t> frames;
    std::optional<std::uint32_t> encoderDelay;
    std::uint32_t padding = 0;
};

std::optional<InfoHeader> readInfoHeader(std::span<const std::uint8_t> frame, std::size_t offset)
{
    const std::string_view magic = textAt(frame, offset, 4);
    if ((magic != "Xing" && magic != "Info") || offset + 8 > frame.size()) {
        return std::nullopt;
    }
    InfoHeader header;
    const std::uint32_t fields = bigEndian(frame, offset + 4);
    std::size_t at = offset + 8;
    if ((fields & 1U) != 0 && at + 4 <= frame.size()) {
        header.frames = bigEndian(frame, at);
    }
    constexpr std::array<std::size_t, 4> kFieldBytes{4, 4, 100, 4};
    for (std::size_t bit = 0; bit < kFieldBytes.size(); ++bit) {
        at += (fields >> bit & 1U) != 0 ? kFieldBytes.at(bit) : 0;
    }
    // The encoder's part begins with its name; the two lengths of silence share three bytes.
    constexpr std::size_t kDelayOffset = 21;
    const std::string_view encoder = textAt(frame, at, 4);
    const bool named = !encoder.empty() && encoder.front() > ' ' && encoder.front() < 0x7f;
    if (named && at + kDelayOffset + 3 <= frame.size()) {
        const auto bytes = frame.subspan(at + kDelayOffset, 3);
        header.encoderDelay = std::uint32_t{bytes[0]} << 4U | bytes[1] >> 4U;
        header.padding = (bytes[1] & 0xfU) << 8U | bytes[2];
    }
    return header;
}

EncoderDelay layer3Delay(const MpegFrame &frame, std::span<const std::uint8_t> bytes)
{
    EncoderDelay delay;
    delay.sampleRate = frame.sampleRate;
    const auto header = readInfoHeader(bytes, frame.infoOffset());
    if (!header || !header->encoderDelay) {
        delay.front = kUsualLayer3EncoderDelay + kLayer3DecoderDelay;
        return delay;
    }
    delay.front = *header->encoderDelay + kLayer3DecoderDelay;
    // The padding is counted from what the encoder sees, the decoder's delay comes out of it.
    delay.behind = header->padding > kLayer3DecoderDelay ? header->padding - kLayer3DecoderDelay : 0;
    delay.total = std::uint64_t{header->frames.value_or(0)} * frame.samples;
    return delay;
}

/// Where the stream begins behind the ID3v2 tags, of which there may be several.
std::uint64_t skipId3(std::ifstream &file)
{
    std::uint64_t at = 0;
    for (int tags = 0; tags < 8; ++tags) {
        const auto head = readAt(file, at, kId3HeaderBytes);
        if (head.size() < kId3HeaderBytes || textAt(head, 0, 3) != "ID3") {
            return at;
        }
        std::uint64_t size = 0;
        for (std::size_t i = 6; i < kId3HeaderBytes; ++i) {
            size = size << 7U | (head[i] & 0x7fU);
        }
        const bool footer = (head[5] & 0x10U) != 0;
        at += kId3HeaderBytes + size + (footer ? kId3HeaderBytes : 0);
    }
    return at;
}

} // namespace

EncoderDelay encoderDelayOfMpeg(std::span<const std::uint8_t> start)
{
    const auto at = findMpegFrame(start);
    if (!at) {
        return {};
    }
    const auto bytes = start.subspan(*at);
    const auto frame = readMpegFrame(bytes);
    if (frame->layer == 2) {
        return {.sampleRate = frame->sampleRate, .front = kLayer2DecoderDelay};
    }
    return layer3Delay(*frame, bytes.first(std::min(bytes.size(), frame->bytes)));
}

EncoderDelay encoderDelayOf(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return {};
    }
    const std::uint64_t begin = skipId3(file);
    const auto bytes = readAt(file, begin, kBytesToLookAt);
    if (bytes.size() < 4) {
        return {};
    }
    if (bytes[0] == 0x30 && bytes[1] == 0x26) {
        return encoderDelayOfAsf(bytes);
    }
    if (textAt(bytes, 4, 4) == "ftyp") {
        return encoderDelayOfMp4(readMoov(file));
    }
    // Only a stream that begins here: inside other containers a sync word is chance.
    if (begin == 0 && !readMpegFrame(bytes)) {
        return {};
    }
    EncoderDelay delay = encoderDelayOfMpeg(bytes);
    if (delay.sampleRate > 0 && delay.total == 0) {
        delay.total = countMpegSamples(file, begin);
    }
    return delay;
}

MusicSpan musicSpan(const EncoderDelay &delay, std::optional<double> told)
{
    const double whole = delay.totalSeconds();
    const double music = std::max(0.0, whole - delay.frontSeconds() - delay.behindSeconds());
    // Which kind of release this is shows in the length that it tells.
    const bool done = delay.behind > 0 && told && std::abs(*told - music) < std::abs(*told - whole);
    return {done ? 0.0 : delay.frontSeconds(), music};
}

} // namespace media
