// SPDX-License-Identifier: MIT
#pragma once

namespace support {

/// How often memory was asked for since the program began, by whomever, libraries included. Linking
/// CountedMalloc.cpp replaces the functions that all go through, but where a sanitizer has done so.
[[nodiscard]] long long mallocs();
/// False where a sanitizer counts in our place: `mallocs` is always 0 then.
[[nodiscard]] bool countsMallocs();

} // namespace support
