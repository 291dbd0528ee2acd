// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tags {

/// One place where an edited file differs from the old one.
struct Patch
{
    std::uint64_t offset = 0; ///< in the old file
    std::uint64_t removed = 0; ///< bytes of the old file that go
    std::string inserted; ///< bytes that stand there instead
};

/// An edit of a file: patches that rise by offset and do not overlap.
using Edit = std::vector<Patch>;

/// `old` with `edit` applied.
[[nodiscard]] inline std::string applied(const std::string &old, const Edit &edit)
{
    std::size_t size = old.size();
    for (const Patch &patch : edit)
        size = size - std::size_t(patch.removed) + patch.inserted.size();
    std::string out;
    out.reserve(size);
    std::size_t at = 0;
    for (const Patch &patch : edit) {
        out.append(old, at, std::size_t(patch.offset) - at);
        out += patch.inserted;
        at = std::size_t(patch.offset + patch.removed);
    }
    out.append(old, at);
    return out;
}

} // namespace tags
