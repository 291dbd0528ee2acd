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

std::vector<FieldEdit> unguardedEdits(const std::vector<LyricField> &fields, std::string_view lyric)
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
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const LyricField &field = fields[i];
        const std::string text = field.synchronised ? held : std::string(lyric);
        const bool isCopy = field.text == old || (field.synchronised && field.text == heldOfOld);
        if (isCopy && !field.isFixed && field.text != text)
            edits.push_back({{i, {}}, text});
    }
    const LyricField &main = fields[*index];
    if (!lyric.empty() && (main.isFixed || (main.synchronised && held != lyric)))
        edits.push_back(newField(lyric));
    return edits;
}

} // namespace

std::string heldText(const std::vector<LyricField> &fields, const LyricPlace &place, std::string_view text)
{
    const bool synchronised
        = place.field ? fields.at(*place.field).synchronised : isSynchronisedName(place.newName);
    return synchronised ? holdableText(text) : std::string(text);
}

std::vector<LyricField> fieldsAfter(std::vector<LyricField> fields, const std::vector<FieldEdit> &edits)
{
    std::vector<LyricField> added;
    std::vector<bool> isGone(fields.size());
    for (const FieldEdit &edit : edits) {
        const std::string text = heldText(fields, edit.place, edit.text);
        if (edit.place.field) {
            fields[*edit.place.field].text = text;
            isGone[*edit.place.field] = text.empty();
        } else if (!text.empty()) {
            LyricField field;
            field.name = edit.place.newName;
            field.text = text;
            added.push_back(std::move(field));
        }
    }
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!isGone[i])
            added.push_back(std::move(fields[i]));
    }
    return added;
}

Outcome<std::vector<FieldEdit>> lyricEdits(const std::vector<LyricField> &fields, std::string_view lyric)
{
    std::vector<FieldEdit> edits = unguardedEdits(fields, lyric);
    const std::vector<LyricField> after = fieldsAfter(fields, edits);
    const std::optional<std::size_t> index = lyricFieldIndex(after);
    if (lyric.empty() || edits.empty() || (index && after[*index].text == lyric))
        return edits;
    return Failure{Reason::Unsupported,
        {"Another field of the file, %1, would be read as its lyric from now on, because this one has no "
         "times. Take that field out first (lrctool fields --clear), or give a line a time.",
            {index ? after[*index].name : "unknown"}}};
}

} // namespace tags
