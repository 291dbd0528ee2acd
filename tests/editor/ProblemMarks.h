// SPDX-License-Identifier: MIT
#pragma once

#include "editor/LineProblems.h"
#include "lyrics/RBEditSong.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace marks {

inline std::string_view nameOf(editor::LineProblem::Kind kind)
{
    constexpr std::array<std::string_view, 10> kNames{"earlier", "later", "same", "twice", "many", "gap",
        "end", "empty after empty", "empty at once", "empty before next"};
    return kNames.at(static_cast<std::size_t>(kind));
}

/// Every mark of a lyric as "row kind millis", the row from 1, and "row.time" for a further time.
inline std::vector<std::string> of(const RBEditSong &song, std::int64_t audioMillis = 0)
{
    std::vector<std::string> all;
    for (std::size_t row = 0; row < song.aryLines().size(); ++row) {
        for (const auto &[kind, timeIndex, millis] : editor::problemsOf(song, row, audioMillis)) {
            std::string mark = std::to_string(row + 1);
            if (timeIndex != 0 && timeIndex != editor::LineProblem::kText) {
                mark += '.' + std::to_string(timeIndex + 1);
            }
            mark.append(" ").append(nameOf(kind));
            all.push_back(millis != 0 ? mark + ' ' + std::to_string(millis) : mark);
        }
    }
    return all;
}

inline std::vector<std::string> of(std::string_view text, std::int64_t audioMillis = 0)
{
    RBEditSong song;
    song.buildWithLrcText(text);
    return of(song, audioMillis);
}

} // namespace marks
