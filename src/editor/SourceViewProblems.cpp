// SPDX-License-Identifier: MIT
#include "editor/ShownTags.h"
#include "editor/SourceMargin.h"
#include "editor/SourceView.h"
#include "kit/Theme.h"

#include <QtGui/QAbstractTextDocumentLayout>
#include <QtGui/QHelpEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtGui/QTextLayout>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolTip>

#include <utility>

namespace {

using Range = std::pair<int, int>;

/// The times of a line, which a problem is most often about; all of a line without any.
std::vector<Range> rangesToMark(const QTextBlock &block)
{
    std::vector<Range> ranges;
    for (const editor::ShownTag &tag : editor::shownTags(block.text(), true).tags) {
        if (tag.kind == lyrics::TagKind::Time) {
            const int begin = block.position() + tag.position;
            ranges.emplace_back(begin, begin + tag.length);
        }
    }
    if (ranges.empty() && block.length() > 1) {
        ranges.emplace_back(block.position(), block.position() + block.length() - 1);
    }
    return ranges;
}

} // namespace

void SourceView::setProblemFinder(ProblemFinder finder)
{
    m_findProblem = std::move(finder);
    refreshProblems();
}

void SourceView::refreshProblems()
{
    setAccessibleDescription(problemOf(caretLine()));
    scheduleLook();
}

QString SourceView::problemOf(int line) const
{
    return m_findProblem ? m_findProblem(line) : QString();
}

std::vector<SourceView::VisibleLine> SourceView::visibleLines() const
{
    std::vector<VisibleLine> lines;
    const int scrolled = verticalScrollBar()->value();
    QTextBlock block = cursorForPosition(QPoint(0, 0)).block();
    for (; block.isValid(); block = block.next()) {
        const QRectF place = document()->documentLayout()->blockBoundingRect(block);
        const int top = qRound(place.top()) - scrolled;
        if (top > viewport()->height()) {
            break;
        }
        const QTextLayout *const layout = block.layout();
        const qreal height = layout->lineCount() > 0 ? layout->lineAt(0).height() : place.height();
        const int line = block.blockNumber();
        lines.push_back({line, top, qRound(height), !problemOf(line).isEmpty()});
    }
    return lines;
}

/// Looks at the lines in sight anew, once for all that happened in this turn of the event loop.
void SourceView::scheduleLook()
{
    if (std::exchange(m_isLookScheduled, true)) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isLookScheduled = false;
            markProblems();
        },
        Qt::QueuedConnection);
}

void SourceView::markProblems()
{
    m_margin->update();
    std::vector<Range> ranges;
    for (const VisibleLine &line : visibleLines()) {
        if (line.hasProblem) {
            const auto marked = rangesToMark(document()->findBlockByNumber(line.line));
            ranges.insert(ranges.end(), marked.begin(), marked.end());
        }
    }
    if (ranges == m_marked) {
        return;
    }
    QTextCharFormat wave;
    wave.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    wave.setUnderlineColor(kit::Theme(this).warning);
    QList<ExtraSelection> selections;
    for (const auto &[begin, end] : ranges) {
        QTextCursor cursor(document());
        cursor.setPosition(begin);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        selections.append({cursor, wave});
    }
    setExtraSelections(selections);
    m_marked = std::move(ranges);
}

void SourceView::showProblemAt(int y, const QPoint &globalPosition)
{
    const QTextBlock block = cursorForPosition(QPoint(0, y)).block();
    const QRectF place = document()->documentLayout()->blockBoundingRect(block);
    const bool isInBlock = place.translated(0, -verticalScrollBar()->value()).contains(place.left(), y);
    const QString problem = isInBlock ? problemOf(block.blockNumber()) : QString();
    // An empty text hides the one that is shown.
    QToolTip::showText(globalPosition, problem, this);
}

bool SourceView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        showProblemAt(help->pos().y(), help->globalPos());
        return true;
    }
    const bool isHandled = TQLRCTextView::viewportEvent(event);
    takeTyped();
    return isHandled;
}
