// SPDX-License-Identifier: MIT
#include "media/tags/HandMade.h"

#include <zlib.h>

namespace samples {

namespace {

constexpr std::uint64_t kSamples = 88200;

std::string zeros(std::size_t count)
{
    return std::string(count, '\0');
}

/// A number of seven bits a byte, as Musepack SV8 writes sizes.
std::string septets(std::uint64_t value)
{
    std::string out(1, static_cast<char>(value & 0x7FU));
    for (value >>= 7; value > 0; value >>= 7)
        out.insert(out.begin(), static_cast<char>((value & 0x7FU) | 0x80U));
    return out;
}

std::string packet(const std::string &key, const std::string &body)
{
    return key + septets(body.size() + 3) + body; // of sizes that fit into one byte
}

} // namespace

std::string big(std::uint64_t value, int bytes)
{
    std::string out;
    for (int i = bytes - 1; i >= 0; --i)
        out += static_cast<char>((value >> (8 * i)) & 0xFF);
    return out;
}

std::string little(std::uint64_t value, int bytes)
{
    const std::string reversed = big(value, bytes);
    return {reversed.rbegin(), reversed.rend()};
}

std::string silentMonkeysAudio()
{
    // Checksum with the bit that announces flags; flags: both channels silent; room for the range coder.
    const std::string frame = little(0x80000000U, 4) + little(3, 4) + zeros(8);
    const std::string descriptor = "MAC " + little(3990, 2) + little(0, 2) + little(52, 4) + little(24, 4)
        + little(4, 4) + little(0, 4) + little(frame.size(), 4) + zeros(8) + zeros(16);
    const std::string header = little(1000, 2) + little(32, 2) + little(73728 * 4, 4) + little(kSamples, 4)
        + little(1, 4) + little(16, 2) + little(2, 2) + little(44100, 4);
    const std::string seekTable = little(52 + 24 + 4, 4);
    return descriptor + header + seekTable + frame;
}

std::string silentMusepack()
{
    // Version 8, length, no silence before; 44.1 kHz, up to 6 bands; two channels, one frame a packet.
    const std::string stream = "\x08" + septets(kSamples) + zeros(1) + "\x05\x10";
    const auto checksum = crc32(0, reinterpret_cast<const Bytef *>(stream.data()), uInt(stream.size()));
    std::string file = "MPCK" + packet("SH", big(checksum, 4) + stream) + packet("RG", "\x01" + zeros(8));
    for (std::uint64_t i = 0; i < (kSamples + 1151) / 1152; ++i)
        file += packet("AP", zeros(1));
    return file + packet("SE", "");
}

std::string apeTag(const std::vector<ApeItemOf> &items, ApeHeader header, unsigned version)
{
    std::string body;
    for (const ApeItemOf &item : items)
        body += little(item.value.size(), 4) + little(item.flags, 4) + item.key + '\0' + item.value;
    const auto frame = [&](std::uint64_t flags) {
        return "APETAGEX" + little(version, 4) + little(body.size() + 32, 4) + little(items.size(), 4)
            + little(flags, 4) + zeros(8);
    };
    return header == ApeHeader::Yes ? frame(0xA0000000U) + body + frame(0x80000000U) : body + frame(0);
}

std::string id3v1(const std::string &title)
{
    return "TAG" + title + zeros(30 - title.size()) + zeros(94) + '\xFF';
}

std::string lyrics3(const std::string &lyric)
{
    const auto number = [](std::size_t value, std::size_t digits) {
        const std::string text = std::to_string(value);
        return std::string(digits - text.size(), '0') + text;
    };
    const std::string body = "LYRICSBEGININD0000200LYR" + number(lyric.size(), 5) + lyric;
    return body + number(body.size(), 6) + "LYRICS200";
}

std::string utf16(const std::string &ascii)
{
    std::string out;
    for (const char c : ascii)
        out += std::string(1, c) + '\0';
    return out + zeros(2);
}

std::string asfObject(const std::string &guid, const std::string &body)
{
    return guid + little(body.size() + 24, 8) + body;
}

std::string extendedAttribute(const std::string &name, unsigned type, const std::string &value)
{
    const std::string wide = utf16(name);
    return little(wide.size(), 2) + wide + little(type, 2) + little(value.size(), 2) + value;
}

std::string libraryAttribute(
    unsigned language, unsigned stream, const std::string &name, unsigned type, const std::string &value)
{
    const std::string wide = utf16(name);
    return little(language, 2) + little(stream, 2) + little(wide.size(), 2) + little(type, 2)
        + little(value.size(), 4) + wide + value;
}

std::string attributes(const std::vector<std::string> &all)
{
    std::string out = little(all.size(), 2);
    for (const std::string &attribute : all)
        out += attribute;
    return out;
}

std::string asfExtension(const std::string &objects)
{
    return std::string("\x11\xD2\xD3\xAB\xBA\xA9\xCF\x11\x8E\xE6\x00\xC0\x0C\x20\x53\x65\x06\x00", 18)
        + little(objects.size(), 4) + objects;
}

std::string asfFile(const std::string &like, const std::vector<std::string> &objects)
{
    const auto number = [&like](std::size_t at, std::size_t bytes) {
        std::uint64_t value = 0;
        for (std::size_t i = bytes; i-- > 0;)
            value = (value << 8) | static_cast<unsigned char>(like[at + i]);
        return std::size_t(value);
    };
    const std::size_t headerEnd = number(16, 8);
    std::string header;
    std::uint64_t count = objects.size();
    std::size_t fileSizeAt = 0;
    for (std::size_t at = 30; at < headerEnd; at += number(at + 16, 8)) {
        const std::string guid = like.substr(at, 16);
        if (guid == AsfGuids::kExtension || guid == AsfGuids::kExtendedContent)
            continue;
        if (guid.compare(0, 4, "\xA1\xDC\xAB\x8C") == 0)
            fileSizeAt = 30 + header.size() + 40;
        header += like.substr(at, number(at + 16, 8));
        ++count;
    }
    for (const std::string &object : objects)
        header += object;
    std::string file = like.substr(0, 16) + little(header.size() + 30, 8) + little(count, 4)
        + like.substr(28, 2) + header + like.substr(headerEnd);
    return file.replace(fileSizeAt, 8, little(file.size(), 8));
}

namespace AsfGuids {
const std::string kExtension("\xB5\x03\xBF\x5F\x2E\xA9\xCF\x11\x8E\xE3\x00\xC0\x0C\x20\x53\x65", 16);
const std::string kExtendedContent("\x40\xA4\xD0\xD2\x07\xE3\xD2\x11\x97\xF0\x00\xA0\xC9\x5E\xA8\x50", 16);
const std::string kMetadata("\xEA\xCB\xF8\xC5\xAF\x5B\x77\x48\x84\x67\xAA\x8C\x44\xFA\x4C\xCA", 16);
const std::string kMetadataLibrary("\x94\x1C\x23\x44\x98\x94\xD1\x49\xA1\x41\x1D\x13\x4E\x45\x70\x54", 16);
const std::string kSignature("\xFC\xB3\x11\x22\x23\xBD\xD2\x11\xB4\xB7\x00\xA0\xC9\x55\xFC\x6E", 16);
const std::string kPadding("\x74\xD4\x06\x18\xDF\xCA\x09\x45\xA4\xBA\x9A\xAB\xCB\x96\xAA\xE8", 16);
} // namespace AsfGuids

} // namespace samples
