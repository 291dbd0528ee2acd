// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/TimeTag.h"

#include <cstdint>
#include <limits>

namespace lyrics {

/// Settles what `[a:b:c]` means in one document, from all its time tags in order.
///
/// Hours, minutes and seconds only if no field speaks against it, and only if the lines rise that way
/// and do not rise when the last field is a fraction.
class ColonVote
{
public:
    /// A tag, read both ways, that begins a line.
    void addFirst(std::int64_t asFraction, std::int64_t asHours)
    {
        m_fractionRises = m_fractionRises && asFraction >= m_lastFraction;
        m_hoursRise = m_hoursRise && asHours >= m_lastHours;
        m_lastFraction = asFraction;
        m_lastHours = asHours;
    }
    /// Any tag of the colon form.
    void addColonForm(bool canBeHours)
    {
        m_any = true;
        m_canBeHours = m_canBeHours && canBeHours;
    }
    [[nodiscard]] bool hasColonForm() const { return m_any; }
    [[nodiscard]] ColonReading result() const
    {
        return m_any && m_canBeHours && m_hoursRise && !m_fractionRises ? ColonReading::Hours
                                                                        : ColonReading::Fraction;
    }

private:
    bool m_any = false;
    bool m_canBeHours = true;
    bool m_fractionRises = true;
    bool m_hoursRise = true;
    std::int64_t m_lastFraction = std::numeric_limits<std::int64_t>::min();
    std::int64_t m_lastHours = std::numeric_limits<std::int64_t>::min();
};

} // namespace lyrics
