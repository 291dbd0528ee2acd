// SPDX-License-Identifier: MIT
#pragma once

#include "editor/SourceView.h"
#include "resources/Resources.h"

#include <QtGui/QInputMethodEvent>
#include <QtGui/QTextBlock>
#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

namespace source {

inline const QByteArray kSong
    = "\xEF\xBB\xBF[ti:Song]\r\n[00:01.00]one\n[00:02.00]two \xFF\r\n[00:03.00]three";

/// A source view in a window, before a field that the tab key goes to.
struct Screen
{
    explicit Screen(const QByteArray &bytes = kSong)
    {
        resources::ensureLoaded();
        auto *column = new QVBoxLayout(&window);
        view = new SourceView;
        next = new QLineEdit;
        column->addWidget(view);
        column->addWidget(next);
        window.resize(520, 300);
        window.show();
        window.activateWindow();
        view->setFocus();
        view->setSourceText(bytes);
        QCoreApplication::processEvents();
    }
    void caretTo(int line, int column) const
    {
        QTextCursor cursor(view->document()->findBlockByNumber(line));
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column);
        view->setTextCursor(cursor);
    }
    void type(const char *text) const { QTest::keyClicks(view, QString::fromUtf8(text)); }
    void compose(const QString &preedit, const QString &commit = {}) const
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QCoreApplication::sendEvent(view, &event);
    }
    [[nodiscard]] int column() const { return view->textCursor().positionInBlock(); }

    QWidget window;
    SourceView *view;
    QLineEdit *next;
};

} // namespace source
