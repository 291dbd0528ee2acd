// SPDX-License-Identifier: MIT
#include "media/tags/ApeTag.h"
#include "media/tags/ByteSource.h"
#include "media/tags/Comparable.h"
#include "media/tags/TextCodec.h"

#include <algorithm>
#include <array>

namespace tags {

namespace {

constexpr std::array<std::string_view, 4> kLyricKeys
    = {"Lyrics", "UNSYNCEDLYRICS", "SYNCEDLYRICS", "UNSYNCED LYRICS"};
constexpr std::uint32_t kReadOnly = 1;

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isKey(std::string_view key, std::string_view wanted)
{
    return std::equal(key.begin(), key.end(), wanted.begin(), wanted.end(),
        [](char a, char b) { return lower(a) == lower(b); });
}

bool isLyric(const ApeItem &item)
{
    return item.isText() && std::any_of(kLyricKeys.begin(), kLyricKeys.end(), [&item](std::string_view key) {
        return isKey(item.key(), key);
    });
}

/// Some writers end a text as C does.
std::string_view withoutTerminator(std::string_view text)
{
    while (!text.empty() && text.back() == '\0')
        text.remove_suffix(1);
    return text;
}

ApeItem makeItem(std::uint32_t flags, std::string_view key, std::string_view value)
{
    std::string raw = toLittleEndian(value.size(), 4) + toLittleEndian(flags, 4);
    raw += key;
    raw += '\0';
    raw += value;
    return {std::move(raw), key.size()};
}

std::uint32_t footerFlags(const ApeTag &tag)
{
    return std::uint32_t(littleEndian(tag.footer, 20, 4));
}

/// A header or footer without the size and count of the items.
std::string withoutSize(const std::string &frame)
{
    return frame.empty() ? frame : frame.substr(0, 12) + frame.substr(20);
}

/// `lyric`: the one that gets the text; null when it is a new one.
std::optional<Failure> refusal(const ApeTag &tag, const FoundLyric *lyric, std::string_view text)
{
    if (tag.version() == 1) {
        return Failure{Reason::Unsupported,
            "The file has an APE tag of the first version, which can be read but not written."};
    }
    if (((footerFlags(tag) | (lyric ? tag.items[lyric->at].flags() : 0)) & kReadOnly) != 0)
        return Failure{Reason::ReadOnly, "The file's APE tag says that it is not to be changed."};
    // What is there already may be kept in other shapes: several values, older encodings.
    const bool isAsBefore = lyric && !isTagText(lyric->field.text);
    if (!isAsBefore && !isTagText(text))
        return notTagText("an APE tag");
    return std::nullopt;
}

} // namespace

std::vector<FoundLyric> lyricsOf(const ApeTag &tag)
{
    std::vector<FoundLyric> lyrics;
    for (const std::string_view key : kLyricKeys) {
        for (std::size_t i = 0; i < tag.items.size(); ++i) {
            const ApeItem &item = tag.items[i];
            if (!item.isText() || !isKey(item.key(), key))
                continue;
            LyricField field;
            field.tag = tag.version() == 1 ? "APEv1" : "APEv2";
            field.name = key;
            field.text = withoutTerminator(item.value());
            lyrics.push_back({i, std::move(field)});
        }
    }
    return lyrics;
}

std::vector<std::string> newApeNames()
{
    return {kLyricKeys.begin(), kLyricKeys.end()};
}

std::optional<Failure> setLyrics(
    ApeTag &tag, const std::vector<FoundLyric> &lyrics, const std::vector<FieldEdit> &edits)
{
    std::vector<std::size_t> gone;
    for (const FieldEdit &edit : edits) {
        const FoundLyric *lyric = edit.place.field ? &lyrics.at(*edit.place.field) : nullptr;
        if (std::optional<Failure> failure = refusal(tag, lyric, edit.text))
            return failure;
        if (!lyric) {
            const std::string &name = edit.place.newName;
            tag.items.push_back(makeItem(0, name.empty() ? kLyricKeys.front() : name, edit.text));
        } else if (edit.text.empty()) {
            gone.push_back(lyric->at);
        } else {
            ApeItem &item = tag.items[lyric->at];
            item = makeItem(item.flags(), std::string(item.key()), edit.text);
        }
    }
    eraseAt(tag.items, std::move(gone));
    return std::nullopt;
}

std::vector<std::string> otherItems(const ApeTag &tag)
{
    std::vector<std::string> others;
    for (const ApeItem &item : tag.items) {
        if (!isLyric(item))
            others.push_back(comparable(item.raw));
    }
    if (!tag.tail.empty())
        others.push_back("tail " + tag.tail);
    // A tag that goes with its last item is no tag: its version is nothing that could be kept.
    if (!others.empty())
        others.insert(others.begin(), "APE " + withoutSize(tag.header) + withoutSize(tag.footer));
    return others;
}

} // namespace tags
