// SPDX-License-Identifier: MIT
#include "views/LyricText.h"

namespace views {

PlainLyricText::PlainLyricText(const QString &text) : m_text(text), m_starts(1, 0)
{
    for (qsizetype at = text.indexOf(u'\n'); at >= 0; at = text.indexOf(u'\n', at + 1))
        m_starts.push_back(static_cast<std::size_t>(at) + 1);
    m_starts.push_back(static_cast<std::size_t>(text.size()) + 1);
}

QString PlainLyricText::line(int index) const
{
    const auto at = static_cast<std::size_t>(index);
    const std::size_t begin = m_starts.at(at);
    return m_text.mid(static_cast<qsizetype>(begin), static_cast<qsizetype>(m_starts.at(at + 1) - 1 - begin));
}

} // namespace views
