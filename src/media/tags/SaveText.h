// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Outcome.h"
#include "media/tags/SaveLyric.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tags {

class SystemCalls;

/// The largest file of text that is written over: 128 MiB.
inline constexpr std::uint64_t kMaxTextBytes = 128ULL << 20;

/// Gives the text file at `path` the content `text` in one step, as `saveLyric` does it for audio files: a
/// link stays a link and its target is replaced, mode, owner and extended attributes stay.
///
/// Refused, with the file as it was and no temporary left: when the file no longer holds `expected`, byte for
/// byte, is read-only or larger than `kMaxTextBytes`, or when anything at all fails. A file that holds
/// `text` already is left alone. Any thread, each on another file.
///
/// \param sweeps  remove temporaries that a crash left in the folder. That reads all of it: whoever saves
/// many
///                files of one folder asks for it once.
[[nodiscard]] Outcome<Saved> saveText(const std::string &path, std::string_view expected,
    const std::string &text, bool sweeps, SystemCalls &system);

/// Makes the file at `path` and gives it the content `text` in one step. Refused when something is there
/// already, also when it came while this was at work; `path` is a whole new file or none.
[[nodiscard]] Outcome<Saved> createText(
    const std::string &path, const std::string &text, SystemCalls &system);

} // namespace tags
