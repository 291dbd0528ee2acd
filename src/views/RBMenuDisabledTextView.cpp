// SPDX-License-Identifier: MIT
#include "views/RBMenuDisabledTextView.h"

#include "kit/Theme.h"
#include "views/LyricAccessible.h"

#include <QtCore/QEvent>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QFontDatabase>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int kFontPixels = 16;
// Laid out lines beyond the visible ones that are kept: scrolled back to, they are there.
constexpr int kKeptLines = 40;
// What is further away, in heights of the view, is gone to at once.
constexpr int kFarthestGlide = 3;
constexpr double kFarthestGlideBehind = 0.25;

} // namespace

RBMenuDisabledTextView::RBMenuDisabledTextView(QWidget *parent) : QAbstractScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setFocusPolicy(Qt::NoFocus);
    viewport()->setBackgroundRole(QPalette::Base);
    setContextMenuPolicy(Qt::PreventContextMenu);
    viewport()->setCursor(Qt::ArrowCursor);
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(kFontPixels);
    setFont(font);
    applySelectionColor();
    views::installLyricAccessible();
    m_glide.setStartValue(0.0);
    m_glide.setEndValue(1.0);
    m_glide.setDuration(kit::kSlowMillis);
    m_glide.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_glide, &QVariantAnimation::valueChanged, this,
        [this](const QVariant &share) { glideOn(share.toDouble()); });
    relayOut();
}

void RBMenuDisabledTextView::setPlainText(const QString &text)
{
    setText(std::make_shared<views::PlainLyricText>(text));
}

void RBMenuDisabledTextView::setText(std::shared_ptr<const views::LyricText> text)
{
    m_glide.stop();
    m_selected = {};
    m_layout.setText(std::move(text));
    scrollTo(0);
    showNewText();
}

void RBMenuDisabledTextView::continueWith(std::shared_ptr<const views::LyricText> text)
{
    m_layout.setText(std::move(text));
    showNewText();
}

void RBMenuDisabledTextView::showNewText()
{
    updateScrollRange();
    layOutVisible();
    viewport()->update();
}

void RBMenuDisabledTextView::setTextAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    relayOut();
}

QString RBMenuDisabledTextView::selectedText() const
{
    return m_layout.textOf(m_selected);
}

void RBMenuDisabledTextView::setSelectedRange(views::TextRange range)
{
    const int size = m_layout.length();
    range.location = std::clamp(range.location, 0, size);
    range.length = std::clamp(range.length, 0, size - range.location);
    if (range == m_selected)
        return;
    updateLines(m_selected);
    m_selected = range;
    updateLines(m_selected);
    views::tellOfCurrentLine(this);
}

void RBMenuDisabledTextView::updateLines(views::TextRange range)
{
    const int first = m_layout.lineOf(range.location);
    const int last = m_layout.lineOf(range.location + range.length);
    const int top = padding() + m_layout.top(first) - verticalScrollBar()->value();
    const int height = m_layout.top(last + 1) - m_layout.top(first);
    viewport()->update(0, top, viewport()->width(), height);
}

// As many pixels above the first and below the last line.
int RBMenuDisabledTextView::padding() const
{
    return viewport()->height() / 3;
}

int RBMenuDisabledTextView::lineInMiddle() const
{
    return m_layout.lineAt(verticalScrollBar()->value() - padding() + viewport()->height() / 2);
}

void RBMenuDisabledTextView::updateScrollRange()
{
    const int height = viewport()->height();
    verticalScrollBar()->setPageStep(height);
    verticalScrollBar()->setSingleStep(std::max(1, m_layout.heightOf(0)));
    verticalScrollBar()->setRange(0, std::max(0, m_layout.height() + 2 * padding() - height));
}

// When the lines break elsewhere the text moves, but for the line in the middle.
void RBMenuDisabledTextView::relayOut()
{
    const int value = verticalScrollBar()->value();
    const int middle = value + m_height / 2 - m_height / 3;
    const int line = std::max(0, m_layout.lineAt(middle));
    const int offset = middle - m_layout.top(line);
    m_height = viewport()->height();
    m_layout.setLook(font(), std::max(1, viewport()->width()), m_alignment);
    updateScrollRange();
    scrollTo(value == 0 ? 0 : m_layout.top(line) + offset - m_height / 2 + padding());
    layOutVisible();
    viewport()->update();
}

// Heights that were taken turn out to be others: what is in the middle of the view stays where it is.
void RBMenuDisabledTextView::layOutVisible()
{
    if (m_isLayingOut)
        return;
    const QScopedValueRollback guard(m_isLayingOut, true);
    for (bool isSettled = false; !isSettled;) {
        const int top = verticalScrollBar()->value() - padding();
        const int first = m_layout.lineAt(top);
        const int last = m_layout.lineAt(top + viewport()->height());
        // But at its beginning the text stays there.
        const int middle = verticalScrollBar()->value() == 0 ? 0 : lineInMiddle();
        const int before = m_layout.top(middle);
        isSettled = !m_layout.layOut(first, last);
        m_layout.keepOnly(first - kKeptLines, last + kKeptLines);
        if (!isSettled) {
            const int moved = m_layout.top(middle) - before;
            updateScrollRange();
            m_glideStart += moved;
            scrollTo(verticalScrollBar()->value() + moved);
            viewport()->update();
        }
    }
}

void RBMenuDisabledTextView::scrollTo(int value)
{
    verticalScrollBar()->setValue(value);
}

void RBMenuDisabledTextView::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    layOutVisible();
    viewport()->update();
}

bool RBMenuDisabledTextView::isMotionWanted() const
{
    return isVisible() && style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
}

int RBMenuDisabledTextView::valueForSelection() const
{
    const int line = m_layout.lineOf(m_selected.location);
    const int height = viewport()->height();
    // A line that is higher than the view is read from its beginning.
    const int above = std::max(0, (height - m_layout.heightOf(line)) / 2);
    return std::clamp(padding() + m_layout.top(line) - above, 0, verticalScrollBar()->maximum());
}

void RBMenuDisabledTextView::scrollSelectionIntoView()
{
    const bool isBehind = isGliding();
    m_glide.stop();
    const int line = m_layout.lineOf(m_selected.location);
    if (m_layout.layOut(line, line))
        updateScrollRange();
    m_glideStart = verticalScrollBar()->value();
    const int target = valueForSelection();
    // A glide that the next line always overtakes never arrives: what is behind already glides a short way
    // only.
    const double farthest = isBehind ? kFarthestGlideBehind : kFarthestGlide;
    const bool isNear = std::abs(target - m_glideStart) <= farthest * viewport()->height();
    if (target != m_glideStart && isNear && isMotionWanted())
        m_glide.start();
    else
        glideOn(1.0);
}

// The goal is asked for at each step: lines that come into sight on the way may move it.
void RBMenuDisabledTextView::glideOn(double share)
{
    const int way = valueForSelection() - m_glideStart;
    scrollTo(m_glideStart + static_cast<int>(std::lround(way * share)));
    if (share >= 1.0)
        scrollTo(valueForSelection());
}

QRect RBMenuDisabledTextView::selectedLineRect() const
{
    const int line = m_layout.lineOf(m_selected.location);
    const int value = isGliding() ? valueForSelection() : verticalScrollBar()->value();
    return {0, padding() + m_layout.top(line) - value, viewport()->width(), m_layout.heightOf(line)};
}

void RBMenuDisabledTextView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    relayOut();
}

void RBMenuDisabledTextView::wheelEvent(QWheelEvent *event)
{
    m_glide.stop();
    QAbstractScrollArea::wheelEvent(event);
    // Also at the ends: nothing beneath is to scroll on.
    event->accept();
}

void RBMenuDisabledTextView::applySelectionColor()
{
    QPalette colors; // these two alone: the others are inherited
    colors.setColor(QPalette::Highlight, Qt::transparent);
    colors.setColor(QPalette::HighlightedText, kit::currentLineColor());
    setPalette(colors);
}

// Clicks end here: none selects, none moves the focus, none reaches what lies beneath.
void RBMenuDisabledTextView::mousePressEvent(QMouseEvent *event)
{
    event->accept();
}

void RBMenuDisabledTextView::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
}

void RBMenuDisabledTextView::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
}

void RBMenuDisabledTextView::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
}

void RBMenuDisabledTextView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
}

void RBMenuDisabledTextView::focusInEvent(QFocusEvent * /*event*/)
{
    // Refused: whoever had the focus has lost it, and nobody has it now.
    clearFocus();
}

void RBMenuDisabledTextView::changeEvent(QEvent *event)
{
    QAbstractScrollArea::changeEvent(event);
    const bool lost = palette().color(QPalette::HighlightedText) != kit::currentLineColor();
    if (event->type() == QEvent::PaletteChange && lost)
        applySelectionColor();
    if (event->type() == QEvent::FontChange)
        relayOut();
}
