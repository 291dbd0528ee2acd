// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace tags {

/// The 64-bit FNV-1a hash of `bytes`, continued from `seed`.
///
/// Tells an accidental change; nobody who means harm is kept out by it. Constants and test
/// vectors: Fowler, Noll and Vo, "FNV Hash".
[[nodiscard]] inline std::uint64_t fnv1a(std::string_view bytes, std::uint64_t seed = 0xCBF29CE484222325ULL)
{
    std::uint64_t hash = seed;
    for (const char c : bytes) {
        hash ^= static_cast<unsigned char>(c);
        hash *= 0x100000001B3ULL;
    }
    return hash;
}

} // namespace tags
