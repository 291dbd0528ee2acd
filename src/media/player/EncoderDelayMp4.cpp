// SPDX-License-Identifier: MIT
#include "media/player/EncoderDelay.h"
#include "media/player/Mp4Atoms.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace media {

namespace {

using Bytes = std::span<const std::uint8_t>;

// A version byte and flags stand in front of the content of "full" atoms.
constexpr std::size_t kFullHeader = 4;

std::uint32_t numberAt(Bytes bytes, std::size_t at)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4 && at + i < bytes.size(); ++i) {
        number = number << 8U | bytes[at + i];
    }
    return at + 4 <= bytes.size() ? number : 0;
}

Bytes after(Bytes bytes, std::size_t count)
{
    return bytes.subspan(std::min(count, bytes.size()));
}

/// The track that sounds; empty when there is none.
Bytes soundTrack(Bytes moov)
{
    for (const Mp4Atom &track : atomsIn(moov)) {
        const Bytes handler = atomAt(track.content, {"mdia", "hdlr"});
        if (track.isNamed("trak") && textOf(after(handler, kFullHeader + 4)).starts_with("soun")) {
            return track.content;
        }
    }
    return {};
}

/// Whether the file's list of edits begins inside the track: the library follows it.
bool beginsWithAnEdit(Bytes track)
{
    const Bytes list = atomAt(track, {"edts", "elst"});
    if (list.empty()) {
        return false;
    }
    const bool wide = list[0] == 1;
    const std::size_t begin = kFullHeader + 4 + (wide ? 8 + 4 : 4);
    // An empty edit, which only waits, has -1 here.
    const std::uint32_t time = numberAt(list, begin);
    return time != 0 && time != 0xffffffffU;
}

/// Text of the named field that an encoder left in the tags.
std::string_view gaplessField(Bytes moov)
{
    const Bytes meta = after(atomAt(moov, {"udta", "meta"}), kFullHeader);
    for (const Mp4Atom &entry : atomsIn(atomAt(meta, {"ilst"}))) {
        if (entry.isNamed("----")
            && textOf(after(atomAt(entry.content, {"name"}), kFullHeader)) == "iTunSMPB") {
            return textOf(after(atomAt(entry.content, {"data"}), 2 * kFullHeader));
        }
    }
    return {};
}

/// The `index`-th hexadecimal word of `text`; nothing when it is none.
std::optional<std::uint64_t> wordOf(std::string_view text, int index)
{
    for (int word = 0;; ++word) {
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        const std::string_view digits = text.substr(0, text.find(' '));
        if (word == index) {
            std::uint64_t value = 0;
            const auto end = digits.data() + digits.size();
            const auto read = std::from_chars(digits.data(), end, value, 16);
            return !digits.empty() && read.ec == std::errc() && read.ptr == end ? std::optional(value)
                                                                                : std::nullopt;
        }
        if (digits.empty()) {
            return std::nullopt;
        }
        text.remove_prefix(digits.size());
    }
}

} // namespace

EncoderDelay encoderDelayOfMp4(std::span<const std::uint8_t> moov)
{
    // More would be no silence but a mistake.
    constexpr std::uint64_t kMost = 8192;
    const Bytes track = soundTrack(moov);
    if (track.empty() || beginsWithAnEdit(track)) {
        return {};
    }
    const std::string_view field = gaplessField(moov);
    const auto front = wordOf(field, 1);
    const auto behind = wordOf(field, 2);
    const auto music = wordOf(field, 3);
    if (!front || !behind || !music || *front > kMost || *behind > kMost || *music == 0) {
        return {};
    }
    const Bytes header = atomAt(track, {"mdia", "mdhd"});
    const bool wide = !header.empty() && header[0] == 1;
    EncoderDelay delay;
    delay.sampleRate = numberAt(header, kFullHeader + (wide ? 16 : 8));
    delay.front = static_cast<std::uint32_t>(*front);
    delay.behind = static_cast<std::uint32_t>(*behind);
    delay.total = *front + *music + *behind;
    return delay;
}

} // namespace media
