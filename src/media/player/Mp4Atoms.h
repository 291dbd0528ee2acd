// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <fstream>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

namespace media {

/// One box of an MPEG-4 file, without its header.
struct Mp4Atom
{
    /// Four characters.
    std::string_view name;
    std::span<const std::uint8_t> content;

    [[nodiscard]] bool isNamed(std::string_view other) const { return name == other; }
};

/// The boxes that stand side by side in `bytes`, thousands at most; one that reaches over the end
/// is cut there and the last. They refer to `bytes`.
[[nodiscard]] std::vector<Mp4Atom> atomsIn(std::span<const std::uint8_t> bytes);

/// The content of the first box of each name on the way down; empty when one is missing.
[[nodiscard]] std::span<const std::uint8_t> atomAt(
    std::span<const std::uint8_t> bytes, std::initializer_list<std::string_view> path);

/// The bytes as characters.
[[nodiscard]] std::string_view textOf(std::span<const std::uint8_t> bytes);

/// The content of the file's "moov"; empty when there is none or it is absurdly large.
[[nodiscard]] std::vector<std::uint8_t> readMoov(std::ifstream &file);

} // namespace media
