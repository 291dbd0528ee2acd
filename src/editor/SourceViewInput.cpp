// SPDX-License-Identifier: MIT
#include "editor/SourceView.h"
#include "kit/DroppedFiles.h"
#include "kit/TextKeys.h"
#include "resources/Localized.h"
#include "views/TextMenu.h"

#include <QtCore/QMimeData>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtGui/QKeyEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <QtWidgets/QMenu>

#include <memory>

bool SourceView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        // The base class would claim undo and redo too.
        event->setAccepted(!kit::isHistoryKey(key) && kit::isTextKey(key));
        return true;
    }
    const bool isHandled = TQLRCTextView::event(event);
    takeTyped();
    return isHandled;
}

void SourceView::keyPressEvent(QKeyEvent *event)
{
    if (kit::isHistoryKey(*event)) {
        event->ignore();
        return;
    }
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isPlain = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
    if (isReturn && isPlain) {
        // The base class types none where a text is empty, and with Shift a break within a line, which LRC
        // does not have.
        textCursor().insertBlock();
        ensureCursorVisible();
        return;
    }
    TQLRCTextView::keyPressEvent(event);
}

bool SourceView::isComposing() const
{
    const QTextLayout *const layout = textCursor().block().layout();
    return layout != nullptr && !layout->preeditAreaText().isEmpty();
}

void SourceView::inputMethodEvent(QInputMethodEvent *event)
{
    TQLRCTextView::inputMethodEvent(event);
    if (!isComposing()) {
        schedule();
    }
}

void SourceView::focusOutEvent(QFocusEvent *event)
{
    TQLRCTextView::focusOutEvent(event);
    schedule();
}

/// Makes text of what an input method is composing.
void SourceView::commitComposing()
{
    QGuiApplication::inputMethod()->commit();
    if (!isComposing()) {
        return;
    }
    // An input method that does not answer must not cost the user a word.
    QInputMethodEvent commit;
    commit.setCommitString(textCursor().block().layout()->preeditAreaText());
    inputMethodEvent(&commit);
    QGuiApplication::inputMethod()->reset();
}

void SourceView::contextMenuEvent(QContextMenuEvent *event)
{
    views::showTextMenu(*this, *event);
}

QMimeData *SourceView::createMimeDataFromSelection() const
{
    // The base class makes rich text of it, and blanks of no-break spaces.
    auto copied = std::make_unique<QMimeData>();
    copied->setText(textCursor().selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n')));
    return copied.release();
}

bool SourceView::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasText() && kit::droppedFiles(source).isEmpty();
}

void SourceView::insertFromMimeData(const QMimeData *source)
{
    if (!canInsertFromMimeData(source)) {
        return;
    }
    textCursor().insertText(editor::pasteForm(source->text()));
    ensureCursorVisible();
}
