// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FileState.h"
#include "media/tags/Outcome.h"

#include <string>
#include <string_view>

namespace tags {

class SystemCalls;

/// A save that succeeded.
struct Saved
{
    FileState state; ///< of the file as it is now: what the next save expects
    bool written = false; ///< false when the file already held this lyric and was left alone
    std::string remark; ///< for people, UTF-8; empty unless something about it deserves a word
};

/// Puts `lyric` (UTF-8, stored byte for byte) into the tags of the file at `path`.
///
/// It goes to the field that holds the lyric now, with its language and description, or to the
/// format's usual one; an empty lyric takes that field away. No other field and no byte of the
/// audio changes: the new content is built in memory, read back by two readers and compared
/// before anything is written. Then it replaces the file in one step, keeping mode, owner and
/// extended attributes where the system allows; a link stays a link, its target is replaced.
///
/// Refused, with the file as it was and no temporary left: when the file is not in the state
/// `expected`, is read-only or larger than `kMaxSaveBytes`, or when anything at all fails.
/// Memory: about twice the file. Any thread.
[[nodiscard]] Outcome<Saved> saveLyric(
    const std::string &path, std::string_view lyric, const FileState &expected);
[[nodiscard]] Outcome<Saved> saveLyric(
    const std::string &path, std::string_view lyric, const FileState &expected, SystemCalls &system);

} // namespace tags
