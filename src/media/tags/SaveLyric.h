// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FieldEdits.h"
#include "media/tags/FileState.h"
#include "media/tags/Outcome.h"
#include "media/tags/WorkProgress.h"

#include <string>
#include <string_view>
#include <vector>

namespace tags {

class SystemCalls;

/// A save that succeeded.
struct Saved
{
    FileState state; ///< of the file as it is now: what the next save expects
    bool written = false; ///< false when the file already held this lyric and was left alone
    Message remark; ///< empty unless something about it deserves a word
};

/// Gives fields of the file at `path` other texts (UTF-8, stored byte for byte), all in one step.
///
/// A field keeps its language and description; an empty text takes it away. No other field and no byte of
/// the audio changes: the edited file is read back by two readers and compared before anything is written.
/// Then the new content replaces the file in one step, keeping mode, owner and extended attributes where the
/// system allows; a link stays a link, its target is replaced.
///
/// Refused, with the file as it was and no temporary left: when the file is not in the state
/// `expected`, is read-only or larger than `kMaxReadBytes`, when `progress` says so, or when anything at
/// all fails. Memory: about the file, but never more than `kMaxMemoryBytes` and the tags. Any thread.
///
/// \param edits  no two of them name one place; their indices are those of the file as it is
[[nodiscard]] Outcome<Saved> saveFields(const std::string &path, const std::vector<FieldEdit> &edits,
    const FileState &expected, const SaveProgress &progress = {});
[[nodiscard]] Outcome<Saved> saveFields(const std::string &path, const std::vector<FieldEdit> &edits,
    const FileState &expected, const SaveProgress &progress, SystemCalls &system);

/// What saveFields() would answer to all but the writing: checked, and refused, in the same way. `written`
/// tells whether it would write.
[[nodiscard]] Outcome<Saved> tryFields(
    const std::string &path, const std::vector<FieldEdit> &edits, const FileState &expected);

/// The same with the edits that make `lyric` the lyric of the file; see lyricEdits(). An empty lyric takes
/// its fields away.
[[nodiscard]] Outcome<Saved> saveLyric(const std::string &path, std::string_view lyric,
    const FileState &expected, const SaveProgress &progress = {});
[[nodiscard]] Outcome<Saved> saveLyric(const std::string &path, std::string_view lyric,
    const FileState &expected, const SaveProgress &progress, SystemCalls &system);

} // namespace tags
