// SPDX-License-Identifier: MIT
#pragma once

#include "project/IncludeRules.h"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

/// Which headers others may include: those that the build declares as public.
namespace project {

/// The headers that the modules declare, as paths from src/ with '/'.
struct DeclaredHeaders
{
    std::set<std::string> publicOnes; ///< installed; anyone may include them
    std::set<std::string> privateOnes; ///< listed among the sources; their module alone
};

/// Reads lines of the form `public editor/Rows.h` and `private editor/RowHelp.h`. Throws
/// std::runtime_error on any other line.
DeclaredHeaders readDeclaredHeaders(const std::string &text);

/// Headers below `root` that nothing declares, private headers that another module or a public
/// header includes. Programs (host/, cli/) have no public headers: nobody may include theirs.
std::vector<Violation> headerViolationsBelow(
    const std::filesystem::path &root, const DeclaredHeaders &declared);

} // namespace project
