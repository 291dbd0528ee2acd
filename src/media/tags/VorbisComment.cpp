// SPDX-License-Identifier: MIT
#include "media/tags/VorbisComment.h"

#include "media/tags/ByteSource.h"
#include "media/tags/Comparable.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tags {

namespace {

constexpr std::array<std::string_view, 4> kLyricKeys
    = {"LYRICS", "SYNCEDLYRICS", "UNSYNCEDLYRICS", "UNSYNCED LYRICS"};

/// No song has as many, and a library that maps them by key takes a gigabyte for some millions.
constexpr std::uint64_t kMaxEntries = 100000;

/// A string with its length before it, at `at`, which moves behind it; null when it does not fit.
std::optional<std::string_view> take(std::string_view bytes, std::size_t &at)
{
    if (bytes.size() - at < 4)
        return std::nullopt;
    const std::uint64_t length = littleEndian(bytes, at, 4);
    if (length > bytes.size() - at - 4)
        return std::nullopt;
    const std::string_view text = bytes.substr(at + 4, std::size_t(length));
    at += 4 + std::size_t(length);
    return text;
}

std::string withLength(std::string_view text)
{
    return toLittleEndian(text.size(), 4) + std::string(text);
}

std::string upperKey(std::string_view entry)
{
    std::string key(entry.substr(0, entry.find('=')));
    std::transform(key.begin(), key.end(), key.begin(),
        [](unsigned char c) { return static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c); });
    return key;
}

bool isLyric(std::string_view entry)
{
    return entry.find('=') != std::string_view::npos
        && std::find(kLyricKeys.begin(), kLyricKeys.end(), upperKey(entry)) != kLyricKeys.end();
}

} // namespace

std::optional<VorbisComment> VorbisComment::parse(std::string_view bytes)
{
    VorbisComment comment;
    std::size_t at = 0;
    const std::optional<std::string_view> vendor = take(bytes, at);
    if (!vendor || bytes.size() - at < 4)
        return std::nullopt;
    comment.vendor = *vendor;
    const std::uint64_t count = littleEndian(bytes, at, 4);
    at += 4;
    if (count > kMaxEntries)
        return std::nullopt;
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::optional<std::string_view> entry = take(bytes, at);
        if (!entry)
            return std::nullopt;
        comment.entries.emplace_back(*entry);
    }
    comment.rest = bytes.substr(at);
    return comment;
}

std::string VorbisComment::render() const
{
    std::string out = withLength(vendor) + toLittleEndian(entries.size(), 4);
    for (const std::string &entry : entries)
        out += withLength(entry);
    return out + rest;
}

std::vector<FoundLyric> lyricsOf(const VorbisComment &comment)
{
    std::vector<FoundLyric> lyrics;
    for (const std::string_view key : kLyricKeys) {
        for (std::size_t i = 0; i < comment.entries.size(); ++i) {
            const std::string &entry = comment.entries[i];
            if (!isLyric(entry) || upperKey(entry) != key)
                continue;
            LyricField field;
            field.tag = "Vorbis";
            field.name = key;
            field.text = entry.substr(entry.find('=') + 1);
            lyrics.push_back({i, std::move(field)});
        }
    }
    return lyrics;
}

std::vector<std::string> newVorbisNames()
{
    return {kLyricKeys.begin(), kLyricKeys.end()};
}

void setLyrics(
    VorbisComment &comment, const std::vector<FoundLyric> &lyrics, const std::vector<FieldEdit> &edits)
{
    std::vector<std::size_t> gone;
    for (const FieldEdit &edit : edits) {
        if (!edit.place.field) {
            const std::string &name = edit.place.newName;
            comment.entries.push_back(
                (name.empty() ? std::string(kLyricKeys.front()) : name) + '=' + edit.text);
            continue;
        }
        const std::size_t at = lyrics.at(*edit.place.field).at;
        if (edit.text.empty())
            gone.push_back(at);
        std::string &entry = comment.entries[at];
        entry.resize(entry.find('=') + 1);
        entry += edit.text;
    }
    eraseAt(comment.entries, std::move(gone));
}

std::vector<std::string> otherEntries(const VorbisComment &comment)
{
    std::vector<std::string> others = {"vendor " + comment.vendor};
    for (const std::string &entry : comment.entries) {
        if (!isLyric(entry))
            others.push_back(comparable(entry));
    }
    others.push_back("rest " + comparable(comment.rest));
    return others;
}

} // namespace tags
