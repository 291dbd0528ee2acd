// SPDX-License-Identifier: MIT
#include "editor/SourceView.h"

#include "editor/AccentCaret.h"
#include "editor/SourceHighlighter.h"
#include "editor/SourceMargin.h"
#include "kit/Theme.h"
#include "resources/Localized.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtWidgets/QScrollBar>

#include <algorithm>

namespace {

constexpr double kLineHeightPercent = 130.0;

} // namespace

SourceView::SourceView(QWidget *parent)
    : TQLRCTextView(parent), m_caret(new editor::AccentCaret(this)),
      m_highlighter(new editor::SourceHighlighter(document())), m_margin(new editor::SourceMargin(this))
{
    setUpText();
    wireSignals();
    applyTheme();
    fitMargin();
}

SourceView::~SourceView() = default;

void SourceView::setUpText()
{
    setAccessibleName(localized(QStringLiteral("LRC source")));
    setFrameShape(QFrame::NoFrame);
    setAcceptRichText(false);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setLineWrapMode(QTextEdit::WidgetWidth);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setFont(kit::textFont(font(), kit::TextSize::Body));
    document()->setDocumentMargin(kit::kSpacingSmall);
    // Every further line takes it over from the one that it is typed or put in at.
    QTextBlockFormat format;
    format.setLineHeight(kLineHeightPercent, QTextBlockFormat::ProportionalHeight);
    QTextCursor(document()).setBlockFormat(format);
}

void SourceView::wireSignals()
{
    connect(document(), &QTextDocument::contentsChange, this, &SourceView::noteChange);
    connect(document(), &QTextDocument::blockCountChanged, this, &SourceView::fitMargin);
    connect(this, &QTextEdit::cursorPositionChanged, this, &SourceView::noteCaretLine);
    connect(this, &QTextEdit::textChanged, this, &SourceView::scheduleLook);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &SourceView::scheduleLook);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &SourceView::scheduleLook);
}

void SourceView::applyTheme()
{
    const kit::Theme theme(this);
    QPalette colours; // these two alone: the others are inherited
    colours.setColor(QPalette::Highlight, theme.selection);
    colours.setColor(QPalette::HighlightedText, theme.text);
    const QPalette now = palette();
    if (now.color(QPalette::Highlight) != theme.selection
        || now.color(QPalette::HighlightedText) != theme.text) {
        setPalette(colours);
    }
    m_highlighter->setLook(theme, font());
    m_marked.clear();
    scheduleLook();
}

void SourceView::Typed::add(int at, int gone, int come)
{
    if (isNone) {
        *this = {false, at, gone, come};
        return;
    }
    // What both touch, in the text as it was before this report.
    const int begin = std::min(position, at);
    const int end = std::max(position + added, at + gone);
    removed += (position - begin) + (end - position - added);
    added = end - begin - gone + come;
    position = begin;
}

void SourceView::noteChange(int position, int removed, int added)
{
    if (m_isShowing) {
        return;
    }
    m_typed.add(position, removed, added);
    schedule();
}

void SourceView::schedule()
{
    if (m_isScheduled) {
        return;
    }
    m_isScheduled = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isScheduled = false;
            // What is being composed comes with what it will be; its end schedules again.
            if (!isComposing()) {
                flushEdits();
            }
        },
        Qt::QueuedConnection);
}

void SourceView::flushEdits()
{
    takeTyped();
    m_untold.clear();
    if (m_told != m_source.stored()) {
        m_told = m_source.stored();
        Q_EMIT sourceEdited();
    }
}

QByteArray SourceView::sourceText()
{
    takeTyped();
    return m_source.stored();
}

/// What was typed, as an edit of the text that `m_source` shows.
editor::SourceEdit SourceView::typedEdit() const
{
    // The toolkit counts the end of the document too where all of it changed.
    const int size = document()->characterCount() - 1;
    const int end = std::min(m_typed.position + m_typed.added, size);
    QTextCursor cursor(document());
    cursor.setPosition(std::min(m_typed.position, size));
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    const qsizetype removed = std::min<qsizetype>(m_typed.removed, m_source.shownSize() - m_typed.position);
    return {m_typed.position, removed,
        cursor.selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'))};
}

/// Takes over into the bytes what was typed. After each event, so that two edits far from each other do not
/// make one of all that lies between them.
void SourceView::takeTyped()
{
    if (m_typed.isNone) {
        return;
    }
    const editor::SourceEdit edit = typedEdit();
    m_typed = {};
    const editor::SourceText::Outcome outcome = m_source.edit(edit.position, edit.removed, edit.added);
    if (outcome.isChanged) {
        m_untold.push_back(edit);
    }
    if (!outcome.isShownAsTyped) {
        showLines({0, document()->blockCount(), m_source.lineCount()});
    }
}

int SourceView::caretLine() const
{
    return textCursor().blockNumber();
}

void SourceView::moveCaretToLine(int line)
{
    const int target = std::clamp(line, 0, document()->blockCount() - 1);
    if (target != caretLine()) {
        setTextCursor(QTextCursor(document()->findBlockByNumber(target)));
    }
    ensureCursorVisible();
}

void SourceView::noteCaretLine()
{
    const int line = caretLine();
    if (line == m_caretLine) {
        return;
    }
    m_caretLine = line;
    setAccessibleDescription(problemOf(line));
    m_margin->update();
    Q_EMIT caretLineChanged(line);
}

void SourceView::fitMargin()
{
    const int width = m_margin->widthFor(document()->blockCount());
    if (viewportMargins().left() != width) {
        setViewportMargins(width, 0, 0, 0);
    }
    const QRect area = contentsRect();
    m_margin->setGeometry(area.left(), area.top(), width, viewport()->height());
    m_margin->update();
}

void SourceView::paintEvent(QPaintEvent *event)
{
    TQLRCTextView::paintEvent(event);
    QPainter painter(viewport());
    m_caret->paint(painter);
}

void SourceView::resizeEvent(QResizeEvent *event)
{
    TQLRCTextView::resizeEvent(event);
    fitMargin();
    scheduleLook();
}

void SourceView::changeEvent(QEvent *event)
{
    TQLRCTextView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        applyTheme();
    }
}
