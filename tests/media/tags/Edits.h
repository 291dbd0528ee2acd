// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FieldEdits.h"
#include "media/tags/LyricFields.h"
#include "media/tags/Outcome.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Edits of any field of a file in memory, each one checked as a save checks it.
namespace edits {

/// The fields of the file `bytes`; a failed test and none when it cannot be read.
[[nodiscard]] std::vector<tags::LyricField> fieldsOf(const std::string &bytes);
/// Their names, and the names that a new one can have.
[[nodiscard]] std::vector<std::string> namesOf(const std::string &bytes);
[[nodiscard]] std::vector<std::string> newNamesOf(const std::string &bytes);

/// The file with `text` at `place`, or the reason why that was refused.
[[nodiscard]] tags::Outcome<std::string> tried(
    const std::string &bytes, const tags::LyricPlace &place, std::string_view text);
/// The same where it must not be refused: a failed test and nothing when it is.
[[nodiscard]] std::string edited(
    const std::string &bytes, const tags::LyricPlace &place, std::string_view text);

/// Several fields of the file at once.
[[nodiscard]] tags::Outcome<std::string> triedAll(
    const std::string &bytes, std::vector<tags::FieldEdit> edits);
[[nodiscard]] std::string editedAll(const std::string &bytes, const std::vector<tags::FieldEdit> &edits);

/// Why it is refused; null when it is not.
[[nodiscard]] std::optional<tags::Reason> refusalOf(
    const std::string &bytes, const tags::LyricPlace &place, std::string_view text);

[[nodiscard]] tags::LyricPlace field(std::size_t index);
[[nodiscard]] tags::LyricPlace newField(const std::string &name = {});

/// Lyrics that programs have been known to spoil, by what is special about them.
[[nodiscard]] const std::map<std::string, std::string> &texts();

} // namespace edits
