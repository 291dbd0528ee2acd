// SPDX-License-Identifier: MIT
#pragma once

#include "cli/formats/Sheet.h"

#include <string>
#include <string_view>

namespace cli {

/// The lyric without its word stamps; each line that had some is told. Every other line keeps its bytes.
[[nodiscard]] std::string withoutStamps(std::string_view lrc, Losses &losses);

/// The lyric with its word stamps in the form `<mm:ss.xx>`. Lines that have none in another form keep their
/// bytes.
[[nodiscard]] std::string withAngleStamps(std::string_view lrc);

} // namespace cli
