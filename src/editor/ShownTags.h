// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/TagSpans.h"

#include <QtCore/QString>

#include <vector>

namespace editor {

/// Where one tag stands in a line as it is shown, in UTF-16 units.
struct ShownTag
{
    int position;
    int length;
    lyrics::TagKind kind;
};

struct ShownTags
{
    std::vector<ShownTag> tags; ///< from left to right
    bool lyricSeen = false; ///< the lyric has begun with this line or before it
};

/// `lyrics::tagSpans` for a line of a text view. Cost: linear in the text.
[[nodiscard]] ShownTags shownTags(const QString &line, bool lyricSeen);

} // namespace editor
