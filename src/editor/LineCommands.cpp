// SPDX-License-Identifier: MIT
#include "editor/LineCommands.h"

#include "lyrics/RBEditSong.h"
#include "lyrics/RBSongLine.h"

namespace editor {

void makeTagLine(RBSongLine &line, std::string_view key)
{
    line.aryTimes().removeAllObjects();
    line.setIsProperty(true);
    line.setPropertyStr(key);
}

void untag(RBSongLine &line)
{
    if (line.isProperty()) {
        line.setIsProperty(false);
        line.setPropertyStr({});
    }
    // Asking for the times to be changed makes a line look again at its own spelling.
    if (!std::as_const(line).aryTimes().empty()) {
        line.aryTimes().removeAllObjects();
    }
}

void untagAll(RBEditSong &song)
{
    for (RBSongLine &line : song.aryLines()) {
        untag(line);
    }
}

void stamp(RBSongLine &line, std::int64_t millis)
{
    line.setIsProperty(false);
    line.appendTime(millis);
}

void shiftAll(RBEditSong &song, std::int64_t millis)
{
    for (RBSongLine &line : song.aryLines()) {
        if (!line.isProperty()) {
            line.shiftAllTime(millis);
        }
    }
}

} // namespace editor
