// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBSongLine.h"

#include <span>
#include <vector>

/// The same for many lines as for each of them, where one at a time would count references one at a time.
namespace lyrics {

/// Copies of `lines` in a vector of exactly their number.
[[nodiscard]] std::vector<RBSongLine> copyTogether(std::span<const RBSongLine> lines);

/// Lets go of the text blocks of lines that are about to be destroyed.
void releaseTogether(std::span<RBSongLine> lines) noexcept;

/// Whether two documents have the same lines. Runs of lines that are as they were read, and were read in the
/// same way, are compared as bytes.
[[nodiscard]] bool equalTogether(std::span<const RBSongLine> a, std::span<const RBSongLine> b);

} // namespace lyrics
