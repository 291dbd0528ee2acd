// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// Which folder under src/ may include what; ARCHITECTURE.md has the same as a table.
namespace project {

/// One include that breaks a rule, or a file that no rule covers.
struct Violation
{
    std::string file; ///< from the root of the sources, with '/'
    int line = 0; ///< from 1; 0 when the whole file is meant
    std::string what; ///< which rule, and what was included

    bool operator==(const Violation &) const = default;
};

/// One `#include` as it stands in a file.
struct Include
{
    int line = 0; ///< from 1
    bool quoted = false;
    std::string path; ///< what stands between the quotes or the angle brackets
};

/// The includes of a text, in order; those in comments that begin a line are not includes.
std::vector<Include> includesOf(const std::string &text);

/// The folder of the table that a file belongs to ("shell/contracts", not "shell"); empty when
/// there is none.
///
/// \param file  the path from src/, with '/'.
std::string moduleOf(const std::string &file);

/// Every C++ file below `root`, as paths from it with '/', sorted.
std::vector<std::string> cppFilesBelow(const std::filesystem::path &root);

/// The whole of a file. Throws std::runtime_error when it cannot be read.
std::string contentsOf(const std::filesystem::path &file);

/// All violations in the sources below `root` (the folder that holds lyrics/, kit/, …), in the
/// order of files and lines.
std::vector<Violation> violationsBelow(const std::filesystem::path &root);

} // namespace project
