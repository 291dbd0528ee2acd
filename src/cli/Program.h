// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Surroundings.h"

#include <span>
#include <string>

namespace cli {

/// Runs lrctool as if it had been called with `arguments` (without its own name).
/// \return the exit status: 0 fine, 1 findings or a refused input, 2 wrong use.
[[nodiscard]] int runProgram(std::span<const std::string> arguments, const Surroundings &around);

} // namespace cli
