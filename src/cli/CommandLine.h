// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Command.h"

#include <span>
#include <string>

namespace cli {

/// Takes what follows the command's name apart.
///
/// `--name value`, `--name=value`, `-n value`, `-nvalue`; letters may stand together; `--` ends the options.
/// A dash and a digit begin an operand, so that `shift -0.5s` needs no `--`; only `-0` alone is an option.
/// \return what is wrong with them, as a sentence; empty when nothing is.
[[nodiscard]] std::string parseArguments(std::span<const std::string> arguments, Invocation &invocation);

/// The one of `words` that `word` was probably meant to be; empty when none is near.
[[nodiscard]] std::string_view nearest(std::string_view word, std::span<const std::string_view> words);

} // namespace cli
