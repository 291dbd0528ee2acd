// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Command.h"
#include "cli/Report.h"
#include "lyrics/RBEditSong.h"

#include <functional>
#include <span>
#include <string>

namespace cli {

/// Changes a document; false, with a word to the report, when it will not.
using Change = std::function<bool(RBEditSong &song, Report &report)>;

/// Runs a command that changes lyrics: reads each, applies `change` if there is one, and writes the result to
/// standard output, over the file (--in-place), or shows what would change (--dry-run).
[[nodiscard]] Verdict transform(
    const Invocation &invocation, std::span<const std::string> operands, const Change &change);

/// The options of such a command, for the table of a command that has no others.
inline constexpr Option kTransformOptions[]
    = {Option::InPlace, Option::DryRun, Option::Json, Option::Encoding, Option::GuessEncoding,
        Option::FilesFrom, Option::Null, Option::Jobs, Option::Quiet, Option::Color};

} // namespace cli
