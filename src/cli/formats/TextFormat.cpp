// SPDX-License-Identifier: MIT
#include "cli/LineDiff.h"
#include "cli/TimeText.h"
#include "cli/formats/Formats.h"
#include "cli/formats/SheetTimes.h"
#include "lyrics/Blanks.h"
#include "lyrics/LineEnds.h"

namespace cli {
namespace {

Sheet read(std::string_view text, Losses &)
{
    Sheet sheet;
    for (const std::string_view line : physicalLines(text)) {
        const std::string_view bare = line.substr(0, line.size() - lyrics::lineEndOf(line).size());
        sheet.lines.push_back({sheet.lines.size() + 1, {}, {}, {{std::nullopt, std::string(bare)}}});
    }
    return sheet;
}

std::string write(const Sheet &sheet, Losses &losses)
{
    std::string out;
    noteTags(sheet, {}, "plain text", losses);
    for (const SheetLine &line : sheet.lines) {
        if (line.start)
            losses.add(line.source,
                "the time [" + exactTime(*line.start) + "] is left out; plain text has no place for it.");
        out.append(lyrics::trimmed(line.text())).append("\n");
    }
    noteWordTimes(sheet.lines, "plain text", losses);
    return out;
}

} // namespace

const LyricFormat kTextFormat{"text", "txt", "text", read, write, false};

} // namespace cli
