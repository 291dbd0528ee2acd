// SPDX-License-Identifier: MIT
#include "cli/Progress.h"

#include <string>

namespace cli {

std::string progressLine(std::size_t done, std::size_t count)
{
    constexpr std::size_t kWidth = 40;
    const std::size_t filled = count > 0
        ? static_cast<std::size_t>(static_cast<double>(done) / static_cast<double>(count) * kWidth)
        : kWidth;
    return "[" + std::string(filled, '#') + std::string(kWidth - filled, '.') + "] " + std::to_string(done)
        + " of " + std::to_string(count);
}

void Progress::show(std::size_t done)
{
    if (!m_isWanted)
        return;
    const Clock::time_point now = Clock::now();
    if (now < m_next)
        return;
    m_next = now + std::chrono::milliseconds(100);
    m_terminal.write("\r" + progressLine(done, m_count) + "\x1B[K");
    m_terminal.flush();
    m_isShown = true;
}

void Progress::hide()
{
    if (!m_isShown)
        return;
    m_terminal.write("\r\x1B[K");
    m_terminal.flush();
    m_isShown = false;
}

} // namespace cli
