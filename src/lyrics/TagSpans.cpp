// SPDX-License-Identifier: MIT
#include "lyrics/TagSpans.h"

#include "lyrics/Blanks.h"
#include "lyrics/IdTag.h"
#include "lyrics/StampText.h"
#include "lyrics/TimeTag.h"

#include <utility>

namespace lyrics {
namespace {

/// Behind the time tag that begins at `p`, a `[`; null when none does.
const char *timeTagEnd(const char *p, const char *end)
{
    // What `a:b:c` means is settled by the whole document; that it is a time is seen here.
    TimeTag tag;
    return readTimeTag(p, end, ColonReading::Fraction, tag) ? tag.end : nullptr;
}

class SpanReader
{
public:
    SpanReader(std::string_view line, bool lyricSeen)
        : m_begin(line.data()), m_end(line.data() + line.size()), m_found{{}, lyricSeen}
    { }

    [[nodiscard]] TagSpans read()
    {
        const char *p = skipBlanks(m_begin, m_end);
        for (const char *next = p; next; next = idTagEnd(p))
            p = skipBlanks(next, m_end);
        const char *text = readTimes(p);
        m_found.lyricSeen = m_found.lyricSeen || text > p || text < m_end;
        readWordStamps(text);
        return std::move(m_found);
    }

private:
    void add(const char *begin, const char *end, TagKind kind)
    {
        m_found.spans.push_back(
            {static_cast<std::size_t>(begin - m_begin), static_cast<std::size_t>(end - m_begin), kind});
    }

    /// Behind the ID tag at `p`; null when there is none.
    const char *idTagEnd(const char *p)
    {
        IdTag tag;
        if (p == m_end || *p != '[' || timeTagEnd(p, m_end) || !readIdTag(p, m_end, tag))
            return nullptr;
        const char *rest = skipBlanks(tag.end, m_end);
        const bool isKey = tag.isKnown || (!m_found.lyricSeen && (rest == m_end || *rest == '['));
        if (!isKey)
            return nullptr;
        add(p, tag.end, TagKind::Id);
        return tag.end;
    }

    /// Where the text begins behind the times from `p` on.
    const char *readTimes(const char *p)
    {
        while (p < m_end && *p == '[') {
            const char *end = timeTagEnd(p, m_end);
            if (!end)
                break;
            add(p, end, TagKind::Time);
            p = skipBlanks(end, m_end);
        }
        return p;
    }

    void readWordStamps(const char *p)
    {
        for (StampSpelling stamp; findStamp(p, m_end, ColonReading::Fraction, stamp); p = stamp.end)
            add(stamp.begin, stamp.end, TagKind::Word);
    }

    const char *m_begin;
    const char *m_end;
    TagSpans m_found;
};

} // namespace

TagSpans tagSpans(std::string_view line, bool lyricSeen)
{
    return SpanReader(line, lyricSeen).read();
}

} // namespace lyrics
