// SPDX-License-Identifier: MIT
#include "media/tags/FieldSet.h"

#include "media/tags/LrcTime.h"
#include "media/tags/LyricEdits.h"
#include "media/tags/SyncedLyrics.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace tags {

namespace {

using namespace std::string_literals;

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

bool isUnsaid(const std::string &language)
{
    const std::string code = upper(language);
    return code.empty() || code == "XXX" || code == "UND"
        || code.find_first_not_of(" \0"s) == std::string::npos;
}

/// Whether two fields are meant to say the same: a translation is not.
bool areOfOneKind(const LyricField &a, const LyricField &b)
{
    const bool sameLanguage
        = isUnsaid(a.language) || isUnsaid(b.language) || upper(a.language) == upper(b.language);
    // The description of some is their name.
    const bool sameDescription = a.name.ends_with(':' + a.description)
        || b.name.ends_with(':' + b.description) || a.description == b.description;
    return sameLanguage && sameDescription;
}

std::string joined(const std::vector<std::string> &lines)
{
    std::string out;
    for (const std::string &line : lines)
        out += (out.empty() ? "" : "\n") + line;
    return out;
}

/// The lines of `text` that are not blank.
std::vector<std::string> trimmedLines(std::string_view text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
        const std::string_view line = trimmed(text.substr(at, end - at));
        if (!line.empty())
            lines.emplace_back(line);
        at = end + 1;
    }
    return lines;
}

/// Whether the line is an ID tag alone: `[ti:x]`.
bool isIdTag(std::string_view line)
{
    const bool isBracketed
        = line.starts_with('[') && line.ends_with(']') && line.find(':') != std::string::npos;
    return isBracketed && !holdsTimeTags(line) && line.find_first_of(" \t:") == line.find(':');
}

/// The line without the times before it, whatever their shape, and without stamps of its words.
std::string withoutTimes(std::string_view line)
{
    while (holdsTimeTags(line) && line.find(']') != std::string_view::npos)
        line = trimmed(line.substr(line.find(']') + 1));
    std::string out;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const auto stamp = line[at] == '<' ? lrcTimeAt(line, at, '>') : std::nullopt;
        if (stamp)
            at = stamp->end - 1;
        else
            out += line[at];
    }
    return out;
}

/// Whether every line with words has a time that can be read, so that the order in which they are sung is
/// known.
bool isTimedThroughout(std::string_view lyric)
{
    const std::vector<std::string> lines = trimmedLines(lyric);
    return std::all_of(lines.begin(), lines.end(),
        [](const std::string &line) { return isIdTag(line) || lrcTimeAt(line, 0, ']').has_value(); });
}

/// The number that `name` is, from 1; 0 when it is none.
std::size_t numberOf(std::string_view name)
{
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    return error == std::errc() && end == name.data() + name.size() ? number : 0;
}

/// A lyric, with what others are compared with worked out once.
class Comparison
{
public:
    explicit Comparison(std::string_view lyric)
        : m_lyric(lyric), m_isTimed(isTimedThroughout(lyric)), m_held(holdableText(lyric)),
          m_words(sungWords(lyric))
    { }

    [[nodiscard]] bool saysTheSame(const FieldSet::Entry &entry) const
    {
        const std::string &text = entry.field.text;
        // A synchronised field cannot hold more.
        if (text == m_lyric || (entry.field.synchronised && text == m_held))
            return true;
        // Times in shapes that are not read here cannot be compared; the words can.
        if (entry.hasTimes && m_isTimed && isTimedThroughout(text))
            return holdableText(text) == m_held;
        return sungWords(text) == m_words;
    }

private:
    std::string_view m_lyric;
    bool m_isTimed;
    std::string m_held;
    std::vector<std::string> m_words;
};

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
    // Where a line has no time, or one in a shape that is not read here, only the order of the text is known.
    if (holdsTimeTags(lyric) && isTimedThroughout(lyric)) {
        std::string timed;
        for (const SyncedEntry &entry : entriesFromLrc(lyric, LineBreaks::Leading))
            timed += entry.text;
        return trimmedLines(timed);
    }
    std::vector<std::string> words;
    for (const std::string &line : trimmedLines(lyric)) {
        if (!isIdTag(line))
            words.push_back(withoutTimes(line));
    }
    std::erase(words, "");
    return words;
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
    if (!counts || m_entries.size() == 1)
        return;
    const Comparison comparison(lyric());
    for (Entry &entry : m_entries)
        entry.isStale = areOfOneKind(entry.field, m_entries[*counts].field) && !comparison.saysTheSame(entry);
}

std::string_view FieldSet::lyric() const
{
    const auto found
        = std::find_if(m_entries.begin(), m_entries.end(), [](const Entry &entry) { return entry.isLyric; });
    return found == m_entries.end() ? std::string_view() : std::string_view(found->field.text);
}

/// The fields that are called so: by the name alone, by name and language, or as labelOf() shows them.
std::vector<std::size_t> FieldSet::named(std::string_view name) const
{
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const LyricField &field = m_entries[i].field;
        const std::string own = upper(field.name);
        if (own == name || own + ':' + upper(field.language) == name || upper(labelOf(field)) == name)
            found.push_back(i);
    }
    return found;
}

/// `pattern` says it of `name`, of the fields that there are, and of those that there could be.
Failure FieldSet::notOne(const char *pattern, std::string_view name) const
{
    std::string shown;
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        shown += (i == 0 ? "" : ", ") + std::to_string(i + 1) + ' ' + labelOf(m_entries[i].field);
    std::string addable;
    for (const std::string &newName : m_newNames)
        addable += (addable.empty() ? "" : ", ") + newName;
    return {Reason::Unsupported, {pattern, {std::string(name), shown.empty() ? "none" : shown, addable}}};
}

Outcome<LyricPlace> FieldSet::find(std::string_view name) const
{
    if (const std::size_t number = numberOf(name); number >= 1 && number <= m_entries.size())
        return LyricPlace{number - 1, {}};
    const std::vector<std::size_t> found = named(upper(name));
    if (found.size() == 1)
        return LyricPlace{found.front(), {}};
    if (found.size() > 1) {
        return notOne(
            "There are several fields called %1; choose one by its number. It has %2; it can get %3.", name);
    }
    const auto isNew = std::find_if(m_newNames.begin(), m_newNames.end(),
        [wanted = upper(name)](const std::string &addable) { return upper(addable) == wanted; });
    if (isNew != m_newNames.end())
        return LyricPlace{std::nullopt, *isNew};
    return notOne("The file has no field called %1. It has %2; it can get %3.", name);
}

std::vector<FieldEdit> FieldSet::madeEqual() const
{
    std::vector<FieldEdit> edits;
    const std::string words = joined(sungWords(lyric()));
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const Entry &entry = m_entries[i];
        if (!entry.isStale || entry.field.isFixed)
            continue;
        const std::string_view text = !entry.hasTimes ? words : lyric();
        if (heldText({entry.field}, {0, {}}, text).empty())
            continue; // nothing to say in its place is no reason to take it out
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
