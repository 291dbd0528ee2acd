// SPDX-License-Identifier: MIT
#include "media/tags/LyricEdits.h"

#include "media/tags/SyncedLyrics.h"

#include <algorithm>

namespace tags {

namespace {

FieldEdit newField(std::string_view lyric)
{
    return {{std::nullopt, {}}, std::string(lyric)};
}

} // namespace

std::string heldText(const std::vector<LyricField> &fields, const LyricPlace &place, std::string_view text)
{
    const bool synchronised = place.field ? fields.at(*place.field).synchronised : place.newName == "SYLT";
    return synchronised ? holdableText(text) : std::string(text);
}

std::optional<LyricField> rivalOf(
    std::string_view lyric, const std::vector<LyricField> &fields, const std::vector<FieldEdit> &edits)
{
    if (lyric.empty() || holdsTimeTags(lyric))
        return std::nullopt;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const bool isEdited = std::any_of(
            edits.begin(), edits.end(), [i](const FieldEdit &edit) { return edit.place.field == i; });
        if (!isEdited && holdsTimeTags(fields[i].text))
            return fields[i];
    }
    return std::nullopt;
}

std::vector<FieldEdit> lyricEdits(const std::vector<LyricField> &fields, std::string_view lyric)
{
    std::vector<FieldEdit> edits;
    const std::optional<std::size_t> index = lyricFieldIndex(fields);
    if (!index) {
        if (!lyric.empty())
            edits.push_back(newField(lyric));
        return edits;
    }
    const std::string &old = fields[*index].text;
    if (old == lyric)
        return edits;
    const std::string held = holdableText(lyric);
    const std::string heldOfOld = holdableText(old);
    for (std::size_t i = fields.size(); i-- > 0;) {
        const LyricField &field = fields[i];
        const std::string text = field.synchronised ? held : std::string(lyric);
        const bool isCopy = field.text == old || (field.synchronised && field.text == heldOfOld);
        if (isCopy && field.text != text)
            edits.push_back({{i, {}}, text});
    }
    if (fields[*index].synchronised && held != lyric)
        edits.push_back(newField(lyric));
    return edits;
}

} // namespace tags
