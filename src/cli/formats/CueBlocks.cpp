// SPDX-License-Identifier: MIT
#include "cli/formats/CueBlocks.h"

#include "cli/LineDiff.h"
#include "cli/TimeText.h"
#include "lyrics/Blanks.h"
#include "lyrics/LineEnds.h"

#include <algorithm>
#include <optional>

namespace cli {
namespace {

std::optional<CueBlock> readArrow(std::string_view line)
{
    CueBlock cue;
    std::string_view rest = lyrics::trimmed(line);
    const auto start = takeClockTime(rest);
    rest = lyrics::trimmed(rest);
    if (!start || !rest.starts_with("-->"))
        return std::nullopt;
    rest = lyrics::trimmed(rest.substr(3));
    const auto end = takeClockTime(rest);
    if (!end)
        return std::nullopt;
    cue.start = *start;
    cue.end = *end;
    cue.settings = lyrics::trimmed(rest);
    return cue;
}

bool isNumber(std::string_view line)
{
    return !line.empty() && std::ranges::all_of(line, [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

CueFile readCues(std::string_view text)
{
    CueFile file;
    bool isInCue = false;
    std::size_t number = 0;
    for (const std::string_view whole : physicalLines(text)) {
        ++number;
        const std::string_view line
            = lyrics::trimmed(whole.substr(0, whole.size() - lyrics::lineEndOf(whole).size()));
        if (auto cue = readArrow(line)) {
            cue->source = number;
            file.cues.push_back(*cue);
            isInCue = true;
        } else if (line.empty()) {
            isInCue = false;
        } else if (isInCue) {
            file.cues.back().text.push_back(line);
        } else if (!isNumber(line)) {
            file.others.emplace_back(number, line);
        }
    }
    return file;
}

} // namespace cli
