// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Output.h"

#include <chrono>
#include <cstddef>

namespace cli {

/// A bar on a terminal that tells how many inputs are done. Comes only when a run takes a while.
class Progress
{
public:
    Progress(Output &terminal, bool isWanted, std::size_t count)
        : m_terminal(terminal), m_isWanted(isWanted), m_count(count)
    { }

    void show(std::size_t done);
    /// Takes it off, so that something else can be written there.
    void hide();

private:
    using Clock = std::chrono::steady_clock;

    Output &m_terminal;
    bool m_isWanted;
    std::size_t m_count;
    bool m_isShown = false;
    Clock::time_point m_next = Clock::now() + std::chrono::milliseconds(400);
};

/// The bar itself for `done` of `count`, one line without its end.
[[nodiscard]] std::string progressLine(std::size_t done, std::size_t count);

} // namespace cli
