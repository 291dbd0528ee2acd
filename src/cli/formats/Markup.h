// SPDX-License-Identifier: MIT
#pragma once

#include "cli/formats/Sheet.h"

#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// A line of a subtitle, taken apart.
struct MarkedLine
{
    std::vector<SheetWord> words;
    bool hadMarkup = false; ///< something was left out: slant, colours, voices, places
};

/// Takes `<i>…</i>` and the like, and `{\…}`, out of a line of SRT. What is no such mark stays.
[[nodiscard]] MarkedLine readSrtText(std::string_view line);
/// The same for WebVTT, where `<00:00:01.000>` is when the next word begins, and `&lt;` is a character.
[[nodiscard]] MarkedLine readVttText(std::string_view line);

/// Appends `text` with `&`, `<` and `>` spelled out, and quotes for attributes.
void appendEscapedMarkup(std::string &out, std::string_view text);

/// Appends `text` with `&amp;` and its like, and `&#…;`, as what they stand for. What is none stays.
void appendUnescaped(std::string &out, std::string_view text);

} // namespace cli
