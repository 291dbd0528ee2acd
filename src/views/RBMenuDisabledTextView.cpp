// SPDX-License-Identifier: MIT
#include "views/RBMenuDisabledTextView.h"

#include "kit/Theme.h"

#include <QtCore/QEvent>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QFontDatabase>
#include <QtGui/QMouseEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>

#include <algorithm>

namespace {

constexpr double kLineHeightPercent = 120.0;
constexpr int kFontPixels = 16;

} // namespace

RBMenuDisabledTextView::RBMenuDisabledTextView(QWidget *parent) : QTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setAcceptDrops(false);
    setTextInteractionFlags(Qt::NoTextInteraction);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
    viewport()->setCursor(Qt::ArrowCursor);
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(kFontPixels);
    setFont(font);
    applySelectionColor();
    formatChange(0, 0);
    connect(document(), &QTextDocument::contentsChange, this,
        [this](int position, int /*removed*/, int added) { formatChange(position, added); });
}

void RBMenuDisabledTextView::setTextAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    formatChange(0, document()->characterCount());
}

void RBMenuDisabledTextView::formatChange(int position, int added)
{
    if (m_changing)
        return;
    const QScopedValueRollback guard(m_changing, true);
    const int last = document()->characterCount() - 1;
    QTextCursor cursor(document());
    cursor.setPosition(std::min(position, last));
    cursor.setPosition(std::min(position + added, last), QTextCursor::KeepAnchor);
    QTextBlockFormat format;
    format.setLineHeight(kLineHeightPercent, QTextBlockFormat::ProportionalHeight);
    format.setAlignment(m_alignment);
    cursor.mergeBlockFormat(format);
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
    QTextEdit::changeEvent(event);
    const bool lost = palette().color(QPalette::HighlightedText) != kit::currentLineColor();
    if (event->type() == QEvent::PaletteChange && lost)
        applySelectionColor();
}
