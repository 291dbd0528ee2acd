// SPDX-License-Identifier: MIT
#pragma once

#include <mutex>
#include <set>
#include <string>
#include <string_view>

namespace cli {

/// What became of a file that was to be written.
struct SaveAnswer
{
    std::string refusal; ///< why the file is as it was; empty when it is written
    std::string remark; ///< something that deserves a word; may be empty

    [[nodiscard]] bool ok() const { return refusal.empty(); }
};

/// Writes files, each whole or not at all. One for all threads of a run.
class Saver
{
public:
    /// Gives the file at `path`, which holds `expected`, the content `text`.
    [[nodiscard]] SaveAnswer replace(
        const std::string &path, std::string_view expected, const std::string &text);
    /// Makes the file at `path`. \param force  what is there already is written over.
    [[nodiscard]] SaveAnswer create(const std::string &path, const std::string &text, bool force);

private:
    /// What crashes left in a folder is looked for once: there may be a hundred thousand files in it.
    [[nodiscard]] bool isFirstIn(const std::string &path);

    std::mutex m_mutex;
    std::set<std::string> m_swept;
};

} // namespace cli
