// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Command.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// One thing to read.
struct Input
{
    std::string path; ///< bytes, as the system takes them
    bool isStandardInput = false;
    /// Met in a folder, not named by the user.
    bool isFound = false;

    /// What messages and JSON call it.
    [[nodiscard]] std::string label() const { return isStandardInput ? "standard input" : path; }
};

/// What a call asks to be read.
struct InputList
{
    std::vector<Input> inputs;
    /// Folders that could not be read, in sentences.
    std::vector<std::string> complaints;
    /// A call that is wrong in itself; empty when it is not.
    std::string wrongUse;
    /// More than one file, or a folder or a list, however many files that gave: answers tell which file is
    /// meant.
    bool isSeveral = false;
};

/// The inputs that `operands` name, in their order, and those of --files-from behind them.
///
/// A folder stands for every file in it, however deep, whose name has one of `endings` (lower case, without
/// the point; any case is found), in the order of their names as bytes; hidden names and folders behind links
/// are passed over. No operand at all is standard input, unless that is a terminal.
[[nodiscard]] InputList findInputs(const Invocation &invocation, std::span<const std::string> operands,
    std::span<const std::string_view> endings);

/// The ending of a file's name, in lower case and without the point; empty when there is none.
[[nodiscard]] std::string endingOf(std::string_view path);

inline constexpr std::string_view kLyricEndings[] = {"lrc"};
inline constexpr std::string_view kAudioEndings[] = {"mp3", "m4a", "mp4", "flac", "ogg", "oga", "opus", "spx",
    "wav", "aif", "aiff", "aifc", "aac", "mp2", "wma", "asf", "ape", "wv", "mpc"};

} // namespace cli
