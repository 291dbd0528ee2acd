// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Json.h"
#include "lyrics/Issues.h"

#include <span>
#include <string>
#include <string_view>

namespace cli {

/// Writes the issues as a JSON array.
void addIssues(JsonWriter &json, std::span<const lyrics::Issue> issues);

/// One issue as compilers write them, with its line end: `song.lrc:3:1: warning: … [code]`.
[[nodiscard]] std::string issueShown(const lyrics::Issue &issue, std::string_view label, bool inColor);

} // namespace cli
