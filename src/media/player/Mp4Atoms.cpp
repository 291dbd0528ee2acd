// SPDX-License-Identifier: MIT
#include "media/player/Mp4Atoms.h"

#include "media/player/ByteSource.h"

#include <algorithm>

namespace media {

namespace {

constexpr std::size_t kHeaderBytes = 8;
constexpr std::size_t kWideHeaderBytes = 16;
// Tables for ten hours of sound, with a cover picture.
constexpr std::uint64_t kLargestMoov = 32ULL * 1024 * 1024;
constexpr int kMostBoxesOfAFile = 1000;
constexpr std::size_t kMostBoxesInABox = 10000;

struct Header
{
    std::string_view name;
    /// With the header; 0 when it is none.
    std::uint64_t bytes = 0;
    std::size_t headerBytes = kHeaderBytes;
};

std::uint64_t bigEndian(std::span<const std::uint8_t> bytes)
{
    std::uint64_t number = 0;
    for (const std::uint8_t byte : bytes) {
        number = number << 8U | byte;
    }
    return number;
}

Header readHeader(std::span<const std::uint8_t> bytes, std::uint64_t rest)
{
    if (bytes.size() < kHeaderBytes) {
        return {};
    }
    Header header{textOf(bytes.subspan(4, 4)), bigEndian(bytes.first(4))};
    if (header.bytes == 0) {
        header.bytes = rest;
    } else if (header.bytes == 1 && bytes.size() >= kWideHeaderBytes) {
        header.bytes = bigEndian(bytes.subspan(kHeaderBytes, 8));
        header.headerBytes = kWideHeaderBytes;
    }
    return header.bytes >= header.headerBytes ? header : Header{};
}

} // namespace

std::string_view textOf(std::span<const std::uint8_t> bytes)
{
    return {reinterpret_cast<const char *>(bytes.data()), bytes.size()};
}

std::vector<Mp4Atom> atomsIn(std::span<const std::uint8_t> bytes)
{
    std::vector<Mp4Atom> atoms;
    while (!bytes.empty() && atoms.size() < kMostBoxesInABox) {
        const Header header = readHeader(bytes, bytes.size());
        if (header.bytes == 0) {
            break;
        }
        const auto whole = static_cast<std::size_t>(std::min<std::uint64_t>(header.bytes, bytes.size()));
        atoms.push_back({header.name, bytes.first(whole).subspan(std::min(header.headerBytes, whole))});
        bytes = bytes.subspan(whole);
    }
    return atoms;
}

std::span<const std::uint8_t> atomAt(
    std::span<const std::uint8_t> bytes, std::initializer_list<std::string_view> path)
{
    for (const std::string_view name : path) {
        const auto atoms = atomsIn(bytes);
        const auto found = std::find_if(
            atoms.begin(), atoms.end(), [&](const Mp4Atom &atom) { return atom.isNamed(name); });
        if (found == atoms.end()) {
            return {};
        }
        bytes = found->content;
    }
    return bytes;
}

std::vector<std::uint8_t> readMoov(std::ifstream &file)
{
    std::uint64_t at = 0;
    for (int boxes = 0; boxes < kMostBoxesOfAFile; ++boxes) {
        const auto start = readAt(file, at, kWideHeaderBytes);
        const Header header = readHeader(start, kLargestMoov);
        if (header.bytes == 0) {
            break;
        }
        if (header.name == "moov" && header.bytes <= kLargestMoov) {
            return readAt(
                file, at + header.headerBytes, static_cast<std::size_t>(header.bytes) - header.headerBytes);
        }
        at += header.bytes;
    }
    return {};
}

} // namespace media
