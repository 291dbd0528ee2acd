// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FieldEdits.h"
#include "media/tags/LyricFields.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace tags {

/// A lyric that was found in a tag: where it stands, and what it says.
struct FoundLyric
{
    std::size_t at = 0; ///< index into the tag's entries
    LyricField field;
};

[[nodiscard]] inline std::vector<LyricField> fieldsOf(const std::vector<FoundLyric> &lyrics)
{
    std::vector<LyricField> fields;
    for (const FoundLyric &lyric : lyrics)
        fields.push_back(lyric.field);
    return fields;
}

/// Takes the entries with the indices `gone` out of `entries`. An edit of several lyrics does so at its end:
/// no index moves before. Cost: one pass.
template <typename Entry>
void eraseAt(std::vector<Entry> &entries, std::vector<std::size_t> gone)
{
    std::sort(gone.begin(), gone.end());
    auto next = gone.begin();
    std::size_t kept = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (next != gone.end() && *next == i)
            ++next;
        else if (kept++ != i)
            entries[kept - 1] = std::move(entries[i]);
    }
    entries.erase(entries.begin() + std::ptrdiff_t(kept), entries.end());
}

} // namespace tags
