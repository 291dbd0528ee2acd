// SPDX-License-Identifier: MIT
//
// Any bytes as a text: the laws of tests/lyrics/TextLaws.h.

#include "lyrics/TextLaws.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    const std::string broken = laws::brokenBy(text);
    if (!broken.empty()) {
        std::fprintf(stderr, "broken: %s\n", broken.c_str());
        std::abort();
    }
    return 0;
}
