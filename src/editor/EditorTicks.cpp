// SPDX-License-Identifier: MIT
//
// The times of the document as the player strip marks them.
#include "editor/TQLRCEditorViewCtl.h"
#include "kit/AfterDelay.h"

#include <algorithm>
#include <utility>

namespace {

void appendTimes(const RBSongLine &line, std::vector<double> &seconds)
{
    if (line.isProperty()) {
        return;
    }
    for (const std::int64_t time : line.aryTimes()) {
        seconds.push_back(static_cast<double>(time) / 1000.0);
    }
}

} // namespace

void TQLRCEditorViewCtl::showTicksSoon()
{
    // After the command, once however much it changed: a stamp does not wait for marks.
    if (std::exchange(m_ticksAreDue, true)) {
        return;
    }
    kit::afterDelay(std::chrono::milliseconds(0), [weak = std::weak_ptr(self())] {
        if (const auto editor = weak.lock()) {
            editor->m_ticksAreDue = false;
            editor->showTicks();
        }
    });
}

void TQLRCEditorViewCtl::showTicks()
{
    if (const auto parent = parentVC()) {
        parent->showTimeTags(ticks(), ticksOfSelection());
    }
}

const std::vector<double> &TQLRCEditorViewCtl::ticks()
{
    if (!m_ticks) {
        m_ticks.emplace();
        for (const RBSongLine &line : std::as_const(m_song).aryLines()) {
            appendTimes(line, *m_ticks);
        }
    }
    return *m_ticks;
}

std::vector<double> TQLRCEditorViewCtl::ticksOfSelection() const
{
    std::vector<double> seconds;
    const auto &lines = m_song.aryLines();
    for (const auto &[first, last] : selection().rows) {
        for (int row = first; row <= std::min(last, songLinesNum() - 1); ++row) {
            appendTimes(lines[static_cast<std::size_t>(row)], seconds);
        }
    }
    return seconds;
}
