// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FileState.h"
#include "media/tags/LoadedFile.h"
#include "media/tags/Outcome.h"

#include <string>

namespace tags {

class SystemCalls;

/// What became of a file that was replaced.
struct Replaced
{
    FileState state;
    std::string remark; ///< for people; empty unless something deserves a word
};

/// Gives the file at `path`, which is no link, the content `bytes` in one step.
///
/// The content goes to a temporary beside it, which takes over mode, owner and extended
/// attributes of `old` as far as the system allows, is forced to the disk, and takes the file's
/// name only when the file is still the one that `old` describes. On every refusal the file is
/// as it was and the temporary is gone. Temporaries that a crash left are swept first.
[[nodiscard]] Outcome<Replaced> replaceFile(
    const std::string &path, const std::string &bytes, const LoadedFile &old, SystemCalls &system);

/// The beginning of the names of our temporaries.
inline constexpr const char *kTemporaryPrefix = ".tqlrc-save-";

} // namespace tags
