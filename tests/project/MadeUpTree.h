// SPDX-License-Identifier: MIT
#pragma once

#include "project/IncludeRules.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <stdexcept>
#include <string>

namespace project {

/// How a violation is shown when a test fails.
inline void PrintTo(const Violation &violation, std::ostream *out)
{
    *out << violation.file << ':' << violation.line << ": " << violation.what;
}

/// A folder of sources in the folder for temporary files, which goes away with its owner.
class MadeUpTree
{
public:
    MadeUpTree()
    {
        std::string name = testing::TempDir() + "made_up_tree_XXXXXX";
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("cannot make " + name);
        }
        m_root = name;
    }
    ~MadeUpTree()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_root, ignored);
    }
    MadeUpTree(const MadeUpTree &) = delete;
    MadeUpTree &operator=(const MadeUpTree &) = delete;

    [[nodiscard]] const std::filesystem::path &root() const { return m_root; }

    /// Writes a file, and the folders that it needs. \param file  from the root, with '/'.
    void write(const std::string &file, const std::string &text) const
    {
        const std::filesystem::path path = m_root / file;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << text;
    }

private:
    std::filesystem::path m_root;
};

} // namespace project
