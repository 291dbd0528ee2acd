// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace corpus {

/// What the time tags of a generated lyric look like.
enum class Times {
    Usual, ///< one in most lines, up to five in the others
    Many ///< one to five, each equally often
};

/// A lyric of `lines` lines: five ID tags, then lines with time tags, half of them CJK, one in twelve blank.
/// The same text for the same arguments on every machine.
[[nodiscard]] std::string song(std::size_t lines, Times times);

} // namespace corpus
