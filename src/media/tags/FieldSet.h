// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FieldEdits.h"
#include "media/tags/LyricFields.h"
#include "media/tags/Outcome.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// The lyric fields of one audio file side by side, and what can be done about them. A plain value: nothing
/// is written here, `saveFields()` does that.
class FieldSet
{
public:
    struct Entry
    {
        LyricField field;
        bool hasTimes = false; ///< `synchronised`, or text with time tags
        bool isLyric = false; ///< the one that counts; see lyricFieldIndex()
        /// Whether it says something else than the lyric, although it is in no other language and of no other
        /// description: another word or another time where it has times, another word where it has none.
        /// Spelling, ID tags and blank lines make no difference.
        bool isStale = false;
    };

    /// What an edit would do to one field.
    struct Change
    {
        LyricField field; ///< as it is now; of a new one the name alone
        bool isNew = false;
        std::string after; ///< empty: the field goes
    };

    FieldSet() = default;
    /// \param fields  in the order in which the format prefers them
    /// \param newNames  of the fields that could be added, the usual one first
    FieldSet(std::vector<LyricField> fields, std::vector<std::string> newNames);

    [[nodiscard]] const std::vector<Entry> &entries() const { return m_entries; }
    [[nodiscard]] const std::vector<std::string> &newNames() const { return m_newNames; }
    /// The text that counts; empty when there is none.
    [[nodiscard]] std::string_view lyric() const;

    /// The field that a user means by `name`: its number from 1, its name in any case, or name and language
    /// as `USLT:deu` or `USLT (deu)` where there are several; one that could be added, when there is none of
    /// that name. Refused, with the names that there are, when it is none of these or more than one.
    [[nodiscard]] Outcome<LyricPlace> find(std::string_view name) const;

    /// The edits after which no field is stale: those with times get the lyric, the others its words. What is
    /// not stale stays as it is, byte for byte.
    [[nodiscard]] std::vector<FieldEdit> madeEqual() const;

    /// What `edits` would do, without those that change nothing: in the order of the fields, new ones last.
    [[nodiscard]] std::vector<Change> changes(const std::vector<FieldEdit> &edits) const;

private:
    [[nodiscard]] std::vector<std::size_t> named(std::string_view name) const;
    [[nodiscard]] Failure notOne(const char *pattern, std::string_view name) const;

    std::vector<Entry> m_entries;
    std::vector<std::string> m_newNames;
};

/// The name of a field, with its language where it has one: "USLT (eng)", and its description in quotes.
[[nodiscard]] std::string labelOf(const LyricField &field);

/// The lines that are sung, in the order of their times, or in that of the text where it has none; without
/// blank ones, time tags and word stamps.
[[nodiscard]] std::vector<std::string> sungWords(std::string_view lyric);

} // namespace tags
