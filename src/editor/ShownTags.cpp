// SPDX-License-Identifier: MIT
#include "editor/ShownTags.h"

namespace editor {

namespace {

/// Goes along a valid UTF-8 text and counts the UTF-16 units of what it went past.
class UnitCounter
{
public:
    explicit UnitCounter(std::string_view text) : m_text(text) { }

    int upTo(std::size_t byte)
    {
        for (; m_at < byte; ++m_at) {
            const auto value = static_cast<unsigned char>(m_text[m_at]);
            m_units += (value & 0xC0U) == 0x80U ? 0 : 1;
            m_units += value >= 0xF0U ? 1 : 0;
        }
        return m_units;
    }

private:
    std::string_view m_text;
    std::size_t m_at = 0;
    int m_units = 0;
};

} // namespace

ShownTags shownTags(const QString &line, bool lyricSeen)
{
    const std::string bytes = line.toStdString();
    const lyrics::TagSpans found = lyrics::tagSpans(bytes, lyricSeen);
    ShownTags shown{{}, found.lyricSeen};
    UnitCounter counter(bytes);
    for (const lyrics::TagSpan &span : found.spans) {
        const int position = counter.upTo(span.begin);
        shown.tags.push_back({position, counter.upTo(span.end) - position, span.kind});
    }
    return shown;
}

} // namespace editor
