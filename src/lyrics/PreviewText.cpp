// SPDX-License-Identifier: MIT
#include "lyrics/PreviewText.h"

#include "lyrics/DisplayText.h"

namespace lyrics {

void PreviewText::reserve(std::size_t lines)
{
    m_songLines.reserve(lines);
    m_starts.reserve(lines + 1);
}

RBTextRange PreviewText::addLine(std::uint32_t songLine)
{
    if (m_songLines.empty())
        m_starts.resize(1);
    const std::size_t begin = m_starts.back();
    const std::size_t length = displayLength(m_song->aryLines()[songLine].lineText(), kLongestLine);
    m_songLines.push_back(songLine);
    m_starts.push_back(begin + length + 1);
    return {begin, length};
}

std::u16string PreviewText::line(std::size_t index) const
{
    std::u16string text;
    if (index < m_songLines.size())
        appendDisplayText(text, m_song->aryLines()[m_songLines[index]].lineText(), kLongestLine);
    return text;
}

std::u16string PreviewText::whole() const
{
    std::u16string text;
    text.reserve(m_starts.back());
    for (const std::uint32_t songLine : m_songLines) {
        appendDisplayText(text, m_song->aryLines()[songLine].lineText(), kLongestLine);
        text += u'\n';
    }
    if (!text.empty())
        text.pop_back();
    return text;
}

} // namespace lyrics
