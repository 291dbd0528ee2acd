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

} // namespace tags
