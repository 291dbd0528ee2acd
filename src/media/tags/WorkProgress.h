// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Outcome.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <utility>

namespace tags {

/// Told on the thread that saves, about once a mebibyte: `done` rises from 0 to 1. Answers whether to go
/// on; after a "no" the save is refused with `Reason::Cancelled` and the file is as it was.
using SaveProgress = std::function<bool(double done)>;

/// Counts the bytes of a piece of work and asks whether it shall go on.
class WorkProgress
{
public:
    WorkProgress() = default;
    WorkProgress(SaveProgress report, std::uint64_t totalBytes)
        : m_report(std::move(report)), m_total(std::max<std::uint64_t>(totalBytes, 1))
    { }

    /// `bytes` more are done. False when the work is to stop; it stays false.
    bool advance(std::uint64_t bytes)
    {
        m_done = std::min(m_done + bytes, m_total);
        if (m_goesOn && m_report)
            m_goesOn = m_report(double(m_done) / double(m_total));
        return m_goesOn;
    }
    [[nodiscard]] bool goesOn() const { return m_goesOn; }

private:
    SaveProgress m_report;
    std::uint64_t m_total = 1;
    std::uint64_t m_done = 0;
    bool m_goesOn = true;
};

[[nodiscard]] inline Failure cancelled()
{
    return {Reason::Cancelled, "Saving was cancelled. The file is as it was."};
}

} // namespace tags
