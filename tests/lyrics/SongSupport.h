// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/IdTag.h"
#include "lyrics/LineAccess.h"
#include "lyrics/LineEnds.h"
#include "lyrics/RBEditSong.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What the tests of the lyric model have in common.
namespace songs {

/// The content of one line, told plainly: what two readers of one text must agree on.
struct PlainLine
{
    std::vector<std::int64_t> times;
    std::string text;
    std::string key; ///< empty where the line is no tag line

    friend bool operator==(const PlainLine &, const PlainLine &) = default;
};

inline std::ostream &operator<<(std::ostream &out, const PlainLine &line)
{
    if (!line.key.empty())
        out << line.key << ' ';
    for (const std::int64_t millis : line.times)
        out << millis << ' ';
    return out << '"' << line.text << '"';
}

inline PlainLine plain(const RBSongLine &line)
{
    const lyrics::TimeList &times = line.aryTimes();
    const std::string key(line.isProperty() ? line.propertyStr() : std::string_view());
    return {{times.begin(), times.end()}, std::string(line.lineText()), key};
}

inline std::vector<PlainLine> plain(const RBEditSong &song)
{
    std::vector<PlainLine> lines;
    for (const RBSongLine &line : song.aryLines())
        lines.push_back(plain(line));
    return lines;
}

inline RBEditSong built(std::string_view text)
{
    RBEditSong song;
    song.buildWithLrcText(text);
    return song;
}

inline std::string written(RBEditSong &song)
{
    song.updateSongText();
    return std::string(song.songText());
}

/// The only line of `text`, as it is read.
inline PlainLine onlyLine(std::string_view text)
{
    const RBEditSong song = built(text);
    return song.aryLines().size() == 1 ? plain(song.aryLines()[0]) : PlainLine{{}, "not one line", "!"};
}

/// Whether the lyric begins with `line` at the latest once it is written and read again.
inline bool isReadAsLyric(const RBSongLine &line)
{
    const bool isTag = line.isProperty() && !line.propertyStr().empty();
    if (isTag || !std::as_const(line).aryTimes().empty())
        return !isTag;
    const RBEditSong alone = built(line.lineText());
    return std::any_of(alone.aryLines().begin(), alone.aryLines().end(),
        [](const RBSongLine &read) { return !read.isProperty() && !read.isOtherTag(); });
}

/// The text round one physical line.
struct Surroundings
{
    std::string before;
    std::string after;
    /// The same, where physical lines with a tag of an unknown word before another line are parted into
    /// those.
    std::string afterParted;
    /// The last line of the physical line.
    std::size_t last = 0;
};

/// \param row  of a document that was not edited yet.
inline Surroundings surroundings(const RBEditSong &song, std::size_t row)
{
    using lyrics::LineAccess;
    const auto &lines = song.aryLines();
    const auto lastJoined = [&lines](std::size_t at) {
        while (LineAccess::joinsNext(lines[at]))
            ++at;
        return at;
    };
    std::size_t first = row;
    while (first > 0 && LineAccess::joinsPrevious(lines[first]))
        --first;
    Surroundings around;
    around.last = lastJoined(row);
    const std::string_view text = song.songText();
    around.before = text.substr(0, LineAccess::begin(lines[first]));
    around.after = text.substr(LineAccess::end(lines[around.last]));
    lyrics::LineEndCount count;
    for (const RBSongLine &line : lines)
        count.count(lyrics::lineEndOf(LineAccess::spelling(line)));
    const std::string_view lineEnd = count.prevailing().empty() ? "\n" : count.prevailing();
    for (std::size_t at = around.last + 1; at < lines.size();) {
        const std::size_t last = lastJoined(at);
        bool isParted = false;
        for (std::size_t i = at; i < last; ++i)
            isParted = isParted || (lines[i].isOtherTag() && !lyrics::isKnownOtherTag(lines[i].lineText()));
        for (; at <= last; ++at) {
            around.afterParted += LineAccess::spelling(lines[at]);
            around.afterParted += isParted && at < last ? lineEnd : "";
        }
    }
    return around;
}

/// Asks every list of times for write access and changes nothing, so that the writer has to look.
inline void touchAll(RBEditSong &song)
{
    for (RBSongLine &line : song.aryLines())
        static_cast<void>(line.aryTimes().begin());
}

} // namespace songs
