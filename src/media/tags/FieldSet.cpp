// SPDX-License-Identifier: MIT
#include "media/tags/FieldSet.h"

#include "media/tags/LyricEdits.h"
#include "media/tags/SyncedLyrics.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace tags {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string upper(std::string_view text)
{
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
        [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return out;
}

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

bool saysTheSame(const FieldSet::Entry &entry, std::string_view lyric)
{
    if (entry.field.text == lyric)
        return true;
    if (entry.hasTimes)
        return holdableText(entry.field.text) == holdableText(lyric);
    return sungWords(entry.field.text) == sungWords(lyric);
}

std::string joined(const std::vector<std::string> &lines)
{
    std::string out;
    for (const std::string &line : lines)
        out += (out.empty() ? "" : "\n") + line;
    return out;
}

/// The number that `name` is, from 1; 0 when it is none.
std::size_t numberOf(std::string_view name)
{
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    return error == std::errc() && end == name.data() + name.size() ? number : 0;
}

} // namespace

std::string labelOf(const LyricField &field)
{
    std::string label = field.name;
    if (!field.language.empty())
        label += " (" + field.language + ')';
    // A name that consists of the description has said it.
    if (!field.description.empty() && !field.name.ends_with(':' + field.description))
        label += " \"" + field.description + '"';
    return label;
}

std::vector<std::string> sungWords(std::string_view lyric)
{
    std::string text(lyric);
    if (holdsTimeTags(lyric)) {
        text.clear();
        for (const SyncedEntry &entry : entriesFromLrc(lyric, LineBreaks::Leading))
            text += entry.text;
    }
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
        const std::string_view line = trimmed(std::string_view(text).substr(at, end - at));
        if (!line.empty())
            lines.emplace_back(line);
        at = end + 1;
    }
    return lines;
}

FieldSet::FieldSet(std::vector<LyricField> fields, std::vector<std::string> newNames)
    : m_newNames(std::move(newNames))
{
    const std::optional<std::size_t> counts = lyricFieldIndex(fields);
    for (LyricField &field : fields) {
        Entry entry;
        entry.hasTimes = field.synchronised || holdsTimeTags(field.text);
        entry.isLyric = counts == m_entries.size();
        entry.field = std::move(field);
        m_entries.push_back(std::move(entry));
    }
    for (Entry &entry : m_entries)
        entry.isStale = !saysTheSame(entry, lyric());
}

std::string_view FieldSet::lyric() const
{
    const auto found
        = std::find_if(m_entries.begin(), m_entries.end(), [](const Entry &entry) { return entry.isLyric; });
    return found == m_entries.end() ? std::string_view() : std::string_view(found->field.text);
}

/// The fields that are called so, by the name alone or by name and language.
std::vector<std::size_t> FieldSet::named(std::string_view name) const
{
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const LyricField &field = m_entries[i].field;
        const std::string own = upper(field.name);
        if (own == name || own + ':' + upper(field.language) == name)
            found.push_back(i);
    }
    return found;
}

std::string FieldSet::namesShown() const
{
    std::string shown;
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        shown += (i == 0 ? "" : ", ") + std::to_string(i + 1) + ' ' + labelOf(m_entries[i].field);
    std::string addable;
    for (const std::string &name : m_newNames)
        addable += (addable.empty() ? "" : ", ") + name;
    return "It has " + (shown.empty() ? "none" : shown) + "; it can get " + addable + '.';
}

Outcome<LyricPlace> FieldSet::find(std::string_view name) const
{
    if (const std::size_t number = numberOf(name); number >= 1 && number <= m_entries.size())
        return LyricPlace{number - 1, {}};
    const std::vector<std::size_t> found = named(upper(name));
    if (found.size() == 1)
        return LyricPlace{found.front(), {}};
    if (found.size() > 1) {
        return Failure{Reason::Unsupported,
            "There are several fields called " + std::string(name) + "; choose one by its number. "
                + namesShown()};
    }
    const auto isNew = std::find_if(m_newNames.begin(), m_newNames.end(),
        [wanted = upper(name)](const std::string &addable) { return upper(addable) == wanted; });
    if (isNew != m_newNames.end())
        return LyricPlace{std::nullopt, *isNew};
    return Failure{
        Reason::Unsupported, "The file has no field called " + std::string(name) + ". " + namesShown()};
}

std::vector<FieldEdit> FieldSet::madeEqual() const
{
    std::vector<FieldEdit> edits;
    const std::string words = joined(sungWords(lyric()));
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const Entry &entry = m_entries[i];
        if (!entry.isStale)
            continue;
        const std::string_view text = !entry.hasTimes ? words : lyric();
        edits.push_back({{i, {}}, std::string(text)});
    }
    return edits;
}

std::vector<FieldSet::Change> FieldSet::changes(const std::vector<FieldEdit> &edits) const
{
    std::vector<LyricField> fields;
    for (const Entry &entry : m_entries)
        fields.push_back(entry.field);
    std::vector<std::pair<std::size_t, Change>> sorted;
    for (const FieldEdit &edit : edits) {
        Change change;
        change.isNew = !edit.place.field;
        if (edit.place.field)
            change.field = fields.at(*edit.place.field);
        else
            change.field.name = edit.place.newName.empty() ? m_newNames.front() : edit.place.newName;
        change.after = heldText(fields, edit.place, edit.text);
        if (change.after != change.field.text)
            sorted.emplace_back(edit.place.field.value_or(m_entries.size()), std::move(change));
    }
    std::stable_sort(
        sorted.begin(), sorted.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    std::vector<Change> out;
    for (auto &[place, change] : sorted)
        out.push_back(std::move(change));
    return out;
}

} // namespace tags
