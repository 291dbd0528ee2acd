// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Command.h"
#include "cli/Inputs.h"

#include <string>
#include <string_view>

namespace cli {

/// The text of one input, as it was asked for.
struct Lyric
{
    std::string file; ///< the bytes that were read, where they are not `text`
    std::string text; ///< in UTF-8 when an encoding was given or guessed; otherwise the bytes as they are
    bool isConverted = false;
    std::string remark; ///< the guess, in a sentence; empty when nothing was guessed
    std::string refusal; ///< why there is no text; empty when there is

    [[nodiscard]] std::string_view bytes() const { return isConverted ? file : text; }
};

/// Reads one input, and converts it as --encoding or --guess-encoding say. A guess that is unsure is refused
/// where a file would be written over by it.
[[nodiscard]] Lyric readLyric(const Invocation &invocation, const Input &input);

/// Why a command that works on lines cannot work on this one, when nobody asked for it to be converted and it
/// looks like UTF-16; empty when it does not.
[[nodiscard]] std::string refusalOfUtf16(const Lyric &lyric);

/// What is wrong with the options on encodings, as a sentence; empty when nothing is.
[[nodiscard]] std::string faultOfEncoding(const Invocation &invocation);

} // namespace cli
