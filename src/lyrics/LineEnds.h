// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace lyrics {

/// The line ends of a text, by kind. CRLF is one line end.
struct LineEndCount
{
    std::size_t lf = 0;
    std::size_t crlf = 0;
    std::size_t cr = 0;

    /// The kind that most lines have, LF before CRLF before CR on ties; empty when there is none.
    [[nodiscard]] std::string_view prevailing() const;
    /// \param lineEnd  as `lineEndOf` answers it; an empty one does not count.
    void count(std::string_view lineEnd)
    {
        if (lineEnd.size() == 2)
            ++crlf;
        else if (!lineEnd.empty())
            ++(lineEnd.front() == '\n' ? lf : cr);
    }
};

/// The line end that `spelling` closes with: LF, CRLF, CR, or empty when it has none.
[[nodiscard]] inline std::string_view lineEndOf(std::string_view spelling)
{
    const std::size_t size = spelling.size();
    if (size == 0 || (spelling[size - 1] != '\n' && spelling[size - 1] != '\r'))
        return {};
    const bool isPair = size >= 2 && spelling[size - 1] == '\n' && spelling[size - 2] == '\r';
    return spelling.substr(size - (isPair ? 2 : 1));
}

/// How many bytes of `text` may begin or make up a line end: no text has more line ends than that.
[[nodiscard]] std::size_t countLineEndBytes(std::string_view text);

/// `text` with one blank for each line break.
[[nodiscard]] std::string withoutLineBreaks(std::string_view text);

/// Goes from line end to line end. Looks at each byte once for either kind, whatever kinds there are.
class LineEndFinder
{
public:
    LineEndFinder(const char *begin, const char *end)
        : m_end(end), m_lf(find(begin, '\n')), m_cr(find(begin, '\r'))
    { }

    /// The end of the text of the line that begins at `p`.
    [[nodiscard]] const char *textEnd(const char *p)
    {
        if (m_lf < p)
            m_lf = find(p, '\n');
        if (m_cr < p)
            m_cr = find(p, '\r');
        return m_lf < m_cr ? m_lf : m_cr;
    }
    /// Behind the line end that begins at `p`; `p` itself at the end of the text.
    [[nodiscard]] const char *lineEnd(const char *p) const
    {
        if (p == m_end)
            return p;
        return *p == '\r' && p + 1 < m_end && p[1] == '\n' ? p + 2 : p + 1;
    }

private:
    [[nodiscard]] const char *find(const char *p, char c) const
    {
        if (p == m_end)
            return m_end;
        const void *found = std::memchr(p, c, static_cast<std::size_t>(m_end - p));
        return found ? static_cast<const char *>(found) : m_end;
    }

    const char *m_end;
    const char *m_lf;
    const char *m_cr;
};

} // namespace lyrics
