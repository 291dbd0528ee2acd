// SPDX-License-Identifier: MIT
#include "views/LyricLayout.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtGui/QTextOption>

#include <algorithm>
#include <cmath>
#include <utility>

namespace views {

namespace {

constexpr double kLineHeight = 1.2;

int rowHeight(double textHeight)
{
    return std::max(1, static_cast<int>(std::lround(textHeight * kLineHeight)));
}

} // namespace

void LyricLayout::setText(std::shared_ptr<const LyricText> text)
{
    m_text = std::move(text);
    forgetLayouts();
}

QString LyricLayout::textOf(TextRange range) const
{
    const int first = lineOf(range.location);
    const int last = lineOf(range.location + range.length);
    QStringList lines;
    for (int line = first; line <= last; ++line)
        lines.append(m_text->line(line));
    return lines.join(u'\n').mid(range.location - rangeOfLine(first).location, range.length);
}

void LyricLayout::setLook(const QFont &font, int width, Qt::Alignment alignment)
{
    if (m_heights.count() > 0 && font == m_font && width == m_width && alignment == m_alignment)
        return;
    m_font = font;
    m_width = width;
    m_alignment = alignment;
    m_rowHeight = rowHeight(QFontMetrics(font).height());
    forgetLayouts();
}

void LyricLayout::forgetLayouts()
{
    m_layouts.clear();
    m_heights.reset(static_cast<int>(starts().size()) - 1, m_rowHeight);
}

int LyricLayout::lineOf(int position) const
{
    const auto next = std::upper_bound(
        starts().begin() + 1, starts().end() - 1, static_cast<std::size_t>(std::max(0, position)));
    return static_cast<int>(next - starts().begin()) - 1;
}

TextRange LyricLayout::rangeOfLine(int line) const
{
    const auto at = static_cast<std::size_t>(line);
    const std::size_t begin = starts().at(at);
    return {static_cast<int>(begin), static_cast<int>(starts().at(at + 1) - 1 - begin)};
}

bool LyricLayout::layOut(int first, int last)
{
    bool changed = false;
    for (int line = std::max(0, first); line <= std::min(last, lineCount() - 1); ++line) {
        const int taken = heightOf(line);
        layoutOf(line);
        changed = heightOf(line) != taken || changed;
    }
    return changed;
}

void LyricLayout::keepOnly(int first, int last)
{
    m_layouts.erase(m_layouts.begin(), m_layouts.lower_bound(first));
    m_layouts.erase(m_layouts.upper_bound(last), m_layouts.end());
}

const QTextLayout &LyricLayout::layoutOf(int line)
{
    std::unique_ptr<QTextLayout> &layout = m_layouts[line];
    if (layout == nullptr) {
        layout = std::make_unique<QTextLayout>(m_text->line(line), m_font);
        layout->setCacheEnabled(true);
        m_heights.setHeight(line, breakIntoRows(*layout));
    }
    return *layout;
}

int LyricLayout::breakIntoRows(QTextLayout &layout) const
{
    QTextOption option(m_alignment | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    layout.setTextOption(option);
    int y = 0;
    layout.beginLayout();
    for (QTextLine row = layout.createLine(); row.isValid(); row = layout.createLine()) {
        row.setLineWidth(m_width);
        // Letters of other scripts may be higher than those of the font.
        const int height = std::max(m_rowHeight, rowHeight(row.height()));
        row.setPosition({0.0, y + (height - row.height()) / 2});
        y += height;
    }
    layout.endLayout();
    return y;
}

void LyricLayout::draw(
    QPainter &painter, int line, const QPoint &corner, TextRange marked, const QColor &markColor)
{
    const TextRange range = rangeOfLine(line);
    const int first = std::max(range.location, marked.location);
    const int end = std::min(range.location + range.length, marked.location + marked.length);
    QList<QTextLayout::FormatRange> marks;
    if (first < end) {
        QTextCharFormat format;
        format.setForeground(markColor);
        marks.append({first - range.location, end - first, format});
    }
    layoutOf(line).draw(&painter, corner, marks);
}

} // namespace views
