// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/Issues.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// How long an audio file is, as its headers tell.
struct AudioLength
{
    std::int64_t millis = 0;
    std::string refusal; ///< why it is not known, as a sentence; empty when it is
};

[[nodiscard]] AudioLength lengthOfAudio(const std::string &path);

/// The audio file of the same name beside a lyric; empty when there is none.
[[nodiscard]] std::string audioBeside(const std::string &lyricPath);

/// The lines of `text` that are sung only after `audioMillis`.
[[nodiscard]] std::vector<lyrics::Issue> issuesPastEnd(std::string_view text, std::int64_t audioMillis);

} // namespace cli
