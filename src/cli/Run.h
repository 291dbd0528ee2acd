// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Command.h"
#include "cli/Inputs.h"
#include "cli/Lyric.h"
#include "cli/Report.h"

#include <functional>

namespace cli {

/// Runs `work` for each input, many at a time, and writes what it reports in the order of the inputs: results
/// to standard output, remarks and complaints to standard error, and a progress bar where someone watches.
/// Ends early when standard output takes no more, and says why, unless its reader has left.
[[nodiscard]] Verdict forEachInput(
    const Invocation &invocation, const InputList &list, const std::function<void(Report &)> &work);

/// The same for lyrics: each is read first, and what cannot be read is refused.
[[nodiscard]] Verdict forEachLyric(
    const Invocation &invocation, const InputList &list, const std::function<void(Lyric &, Report &)> &work);

} // namespace cli
