// SPDX-License-Identifier: MIT
#pragma once

#include "project/IncludeRules.h"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

/// Which headers others may include: those that their module declares as public.
namespace project {

/// Headers as paths from src/, with '/'.
using Headers = std::set<std::string>;

/// The lines of a text, each of them a path. Throws std::runtime_error when one is no header.
Headers readHeaders(const std::string &text);

/// What breaks the rule that a header is private to its module unless it is declared as public.
///
/// Found are: a private header that another module includes, one that a public header includes
/// (it would be missing from the package), and a public header that does not exist.
std::vector<Violation> headerViolationsBelow(const std::filesystem::path &root, const Headers &publicHeaders);

} // namespace project
