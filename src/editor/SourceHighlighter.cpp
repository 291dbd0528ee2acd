// SPDX-License-Identifier: MIT
#include "editor/SourceHighlighter.h"

#include "editor/ShownTags.h"
#include "kit/Theme.h"

#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetricsF>

namespace editor {

namespace {

// What the lines up to a block's end were.
constexpr int kBeforeLyric = 0;
constexpr int kLyricSeen = 1;

bool haveFiguresOneWidth(const QFont &font)
{
    const QFontMetricsF metrics(font);
    const qreal width = metrics.horizontalAdvance(QLatin1Char('0'));
    for (char digit = '1'; digit <= '9'; ++digit) {
        if (!qFuzzyCompare(metrics.horizontalAdvance(QLatin1Char(digit)), width)) {
            return false;
        }
    }
    return true;
}

} // namespace

SourceHighlighter::SourceHighlighter(QTextDocument *document) : QSyntaxHighlighter(document)
{ }

void SourceHighlighter::setLook(const kit::Theme &theme, const QFont &font)
{
    QTextCharFormat time;
    time.setForeground(theme.accentText);
    if (!haveFiguresOneWidth(font)) {
        time.setFontFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
    }
    QTextCharFormat idTag;
    idTag.setForeground(theme.quietText);
    if (time == m_time && idTag == m_idTag) {
        return;
    }
    m_time = time;
    m_idTag = idTag;
    rehighlight();
}

void SourceHighlighter::highlightBlock(const QString &text)
{
    const ShownTags shown = shownTags(text, previousBlockState() == kLyricSeen);
    setCurrentBlockState(shown.lyricSeen ? kLyricSeen : kBeforeLyric);
    for (const ShownTag &tag : shown.tags) {
        setFormat(tag.position, tag.length, tag.kind == lyrics::TagKind::Id ? m_idTag : m_time);
    }
}

} // namespace editor
