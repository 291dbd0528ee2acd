// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Command.h"

#include <string>

namespace cli {

/// What `lrctool --help` shows.
[[nodiscard]] std::string generalHelp();
/// What `lrctool COMMAND --help` shows.
[[nodiscard]] std::string helpOn(const CommandInfo &command);
/// The options of a command as a table that other programs read: one line each of its long name, its letter
/// or
/// `-`, its value or `-`, its choices, with tabs between. The test of the completions compares them with it.
[[nodiscard]] std::string optionTable();

} // namespace cli
