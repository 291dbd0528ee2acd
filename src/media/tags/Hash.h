// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace tags {

/// The 64-bit XXH3 hash of bytes that come piece by piece.
///
/// Tells an accidental change at the speed of memory; nobody who means harm is kept out by it.
class Hash
{
public:
    Hash();

    Hash &add(std::string_view bytes);
    /// Of what was added so far.
    [[nodiscard]] std::uint64_t value() const;

private:
    struct Deleter
    {
        void operator()(void *state) const;
    };
    std::unique_ptr<void, Deleter> m_state;
};

[[nodiscard]] inline std::uint64_t hashOf(std::string_view bytes)
{
    return Hash().add(bytes).value();
}

} // namespace tags
