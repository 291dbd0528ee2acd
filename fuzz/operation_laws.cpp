// SPDX-License-Identifier: MIT
//
// A text and, behind it, a script of operations on it: the laws of tests/lyrics/OperationLaws.h. The last
// byte says how many bytes the script has.

#include "lyrics/OperationLaws.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::span<const std::uint8_t> bytes(data, size - 1);
    const std::size_t length = std::min<std::size_t>(data[size - 1] % 64, bytes.size());
    const std::string_view text(reinterpret_cast<const char *>(data), bytes.size() - length);
    const std::string broken = laws::Script(text, bytes.last(length)).brokenLaw();
    if (!broken.empty()) {
        std::fprintf(stderr, "broken: %s\n", broken.c_str());
        std::abort();
    }
    return 0;
}
