// SPDX-License-Identifier: MIT
#include "cli/LineView.h"

#include "lyrics/Blanks.h"

namespace cli {

std::optional<TagView> tagOf(const RBSongLine &line)
{
    if (line.isProperty())
        return TagView{line.propertyStr(), line.displayText()};
    if (!line.isOtherTag())
        return std::nullopt;
    // The whole tag, brackets included.
    const std::string_view text = line.lineText();
    const std::size_t colon = text.find(':');
    return TagView{lyrics::trimmed(text.substr(1, colon - 1)),
        lyrics::trimmed(text.substr(colon + 1, text.size() - colon - 2))};
}

} // namespace cli
