// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBEditSong.h"

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

/// Asks every list of times for write access and changes nothing, so that the writer has to look.
inline void touchAll(RBEditSong &song)
{
    for (RBSongLine &line : song.aryLines())
        static_cast<void>(line.aryTimes().begin());
}

} // namespace songs
