// SPDX-License-Identifier: MIT
#pragma once

#include "views/LineHeights.h"
#include "views/LyricText.h"

#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QTextLayout>

#include <map>
#include <memory>
#include <vector>

class QPainter;
class QPoint;

namespace views {

/// A range of characters in UTF-16 units, from 0.
struct TextRange
{
    int location = 0;
    int length = 0;

    friend bool operator==(const TextRange &, const TextRange &) = default;
};

/// A text of many lines, of which only those are laid out that somebody looks at.
///
/// A line whose height nobody asked for yet is taken to be one row high. Every row is 1.2 times as high as
/// its text. Wrapped at the width; each line begins at its own side, as its first letters say.
class LyricLayout
{
public:
    /// `text` is not null. Cost: linear in its lines, a few steps for each; none is made.
    void setText(std::shared_ptr<const LyricText> text);
    [[nodiscard]] const LyricText &text() const { return *m_text; }
    /// How long it is, in UTF-16 units.
    [[nodiscard]] int length() const { return static_cast<int>(starts().back()) - 1; }
    /// What stands in `range`, which lies within the text. Makes no other lines.
    [[nodiscard]] QString textOf(TextRange range) const;
    /// The text as lines break at `width` logical pixels. What was laid out is forgotten when one of the
    /// three changes.
    void setLook(const QFont &font, int width, Qt::Alignment alignment);

    /// At least 1: the empty text is one empty line.
    [[nodiscard]] int lineCount() const { return m_heights.count(); }
    [[nodiscard]] int lineOf(int position) const;
    [[nodiscard]] TextRange rangeOfLine(int line) const;

    [[nodiscard]] int height() const { return m_heights.total(); }
    [[nodiscard]] int lineAt(int y) const { return m_heights.lineAt(y); }
    /// Where the line begins and how high it is, as far as is known.
    [[nodiscard]] int top(int line) const { return m_heights.top(line); }
    [[nodiscard]] int heightOf(int line) const { return m_heights.height(line); }

    /// Lays out the lines `first` to `last`. True when one of them is not as high as was taken.
    bool layOut(int first, int last);
    /// Lets go what is laid out of all other lines; their heights stay known.
    void keepOnly(int first, int last);
    /// How many lines are laid out now.
    [[nodiscard]] std::size_t laidOutLines() const { return m_layouts.size(); }

    /// Draws the line with its upper left corner at `corner`, what lies in `marked` in `markColor`.
    void draw(QPainter &painter, int line, const QPoint &corner, TextRange marked, const QColor &markColor);

private:
    void forgetLayouts();
    const QTextLayout &layoutOf(int line);
    int breakIntoRows(QTextLayout &layout) const;

    [[nodiscard]] const std::vector<std::size_t> &starts() const { return m_text->lineStarts(); }

    std::shared_ptr<const LyricText> m_text = std::make_shared<PlainLyricText>(QString());
    LineHeights m_heights;
    std::map<int, std::unique_ptr<QTextLayout>> m_layouts;
    QFont m_font;
    int m_width = 0;
    int m_rowHeight = 1;
    Qt::Alignment m_alignment = Qt::AlignHCenter;
};

} // namespace views
