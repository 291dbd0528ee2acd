// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FileState.h"
#include "media/tags/LoadedFile.h"
#include "media/tags/Outcome.h"

#include <optional>
#include <string>

namespace tags {

class SystemCalls;
class WorkProgress;

/// Whether temporaries that a crash left are removed before a save.
enum class Sweep { First, No };

/// What became of a file that was replaced.
struct Replaced
{
    FileState state;
    Message remark; ///< empty unless something deserves a word
};

/// The refusal when the file at `path`, which has `status`, may not be replaced. The mode is asked as well as
/// the system: to an administrator everything is writable, and read-only is still meant.
[[nodiscard]] std::optional<Failure> unwritable(
    const std::string &path, const struct stat &status, SystemCalls &system);

/// Gives the file at `path`, which is no link, `content` in one step.
///
/// The content goes to a temporary beside it, which takes over mode, owner and extended
/// attributes of `old` as far as the system allows, is forced to the disk, and takes the file's
/// name only when the file is still the one that `old` describes, its hash included. On every refusal the
/// file is as it was and the temporary is gone. Temporaries that a crash left are swept first, unless the
/// caller does that: it reads the whole folder.
[[nodiscard]] Outcome<Replaced> replaceFile(const std::string &path, const ByteSource &content,
    const LoadedFile &old, SystemCalls &system, WorkProgress &progress, Sweep sweep = Sweep::First);

/// Makes the file at `path` with `content` in one step, refusing when something has that name, also
/// when it came meanwhile.
[[nodiscard]] Outcome<Replaced> createFile(
    const std::string &path, const ByteSource &content, SystemCalls &system);

/// The beginning of the names of our temporaries.
inline constexpr const char *kTemporaryPrefix = ".tqlrc-save-";

} // namespace tags
