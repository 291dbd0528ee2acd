// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace cli {

enum class Option : std::uint8_t {
    Help,
    Version,
    Json,
    InPlace,
    DryRun,
    Output,
    Into,
    Force,
    From,
    To,
    Sense,
    Anchor,
    Audio,
    BesideAudio,
    Encoding,
    GuessEncoding,
    FilesFrom,
    Null,
    Jobs,
    Quiet,
    Field,
    Clear,
    Equal,
    Beside,
    Color
};

/// What is known of one option; the help, the manual's page and the completions say the same.
struct OptionInfo
{
    Option option;
    std::string_view name; ///< with its dashes
    char letter = '\0'; ///< of the short form, or none
    std::string_view value; ///< what follows it, as the help names it; empty when nothing does
    std::string_view choices; ///< the values there are, one blank between; empty when any will do
    std::string_view help;
};

[[nodiscard]] std::span<const OptionInfo> allOptions();
[[nodiscard]] const OptionInfo &infoOf(Option option);

} // namespace cli
