// SPDX-License-Identifier: MIT
#pragma once

#include "cli/formats/Sheet.h"

#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// One cue of a format that writes `start --> end` above each text.
struct CueBlock
{
    std::size_t source = 1; ///< the physical line of the arrow
    std::int64_t start = 0;
    std::int64_t end = 0;
    std::string_view settings; ///< behind the end time
    std::vector<std::string_view> text; ///< lines without their ends, the blank ones left out
};

struct CueFile
{
    std::vector<CueBlock> cues;
    /// What stands before the first cue and between cues, but for numbers: names, notes, styles.
    std::vector<std::pair<std::size_t, std::string_view>> others;
};

/// Reads the cues of a text: times with a comma or a point, with or without hours. A cue ends at a blank
/// line; what follows it up to the next one belongs to none.
[[nodiscard]] CueFile readCues(std::string_view text);

} // namespace cli
