// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

class RBEditSong;
class RBSongLine;

/// What the commands do to lines, without a table and without a controller.
namespace editor {

/// Makes `line` the tag line `key` ("ti", "ar", "al", "by"): its times go, its text is the value.
void makeTagLine(RBSongLine &line, std::string_view key);
/// Takes all times and the tag key off `line`; its text stays.
void untag(RBSongLine &line);
void untagAll(RBEditSong &song);
/// Makes `line` a timed line with one time more, after those it has. `millis` from the start.
void stamp(RBSongLine &line, std::int64_t millis);
/// Moves every time of every line that is no tag line, later for a positive amount.
void shiftAll(RBEditSong &song, std::int64_t millis);

} // namespace editor
