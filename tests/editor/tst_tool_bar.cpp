// SPDX-License-Identifier: MIT
//
// The toolbar at every width, and the sign of a stamp.
#include "EditorOnScreen.h"
#include "kit/AccentButton.h"
#include "support/QtWarnings.h"

#include <QtCore/QScopeGuard>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolButton>

namespace {

struct Bar
{
    explicit Bar(int width)
    {
        screen.load("one\ntwo\n");
        screen.view->resize(width, 400);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QToolButton *more() const
    {
        return screen.view->findChild<QToolButton *>(QStringLiteral("btnMore"));
    }
    [[nodiscard]] QList<QToolButton *> tools() const
    {
        QList<QToolButton *> tools;
        for (QAbstractButton *button :
            {screen.editor->btnInsertTitle(), screen.editor->btnInsertArtist(),
                screen.editor->btnInsertAlbum(), screen.editor->btnInsertEditBy(), screen.editor->btnDelCur(),
                screen.editor->btnDelAll(), screen.editor->btnOffset(), screen.editor->btnRestoreAll(),
                screen.view->findChild<QAbstractButton *>(QStringLiteral("btnSource")),
                screen.view->findChild<QAbstractButton *>(QStringLiteral("btnSearch"))}) {
            tools.append(qobject_cast<QToolButton *>(button));
        }
        return tools;
    }
    [[nodiscard]] bool hasWords() const
    {
        return tools().first()->toolButtonStyle() == Qt::ToolButtonTextUnderIcon;
    }
    [[nodiscard]] bool isFolded() const { return more()->isVisible(); }

    EditorOnScreen screen;
};

} // namespace

class ToolBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void everyWidthInEveryLanguage_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<int>("width");
        for (const char *language : {"en", "de"}) {
            for (const int width : {1040, 860, 760, 759, 640, 560, 559, 480, 420}) {
                QTest::addRow("%s %d", language, width) << QString::fromLatin1(language) << width;
            }
        }
    }

    void everyWidthInEveryLanguage()
    {
        QFETCH(QString, language);
        QFETCH(int, width);
        const QLocale before;
        const auto restore = qScopeGuard([&before] { QLocale::setDefault(before); });
        QLocale::setDefault(QLocale(language));
        const Bar bar(width);
        QCOMPARE(bar.screen.view->width(), width);
        QVERIFY(width >= 760 || !bar.hasWords());
        QVERIFY(width >= 560 || bar.isFolded());
        const QRect whole = bar.screen.view->rect();
        QList<QAbstractButton *> shown({bar.screen.editor->btnInsertTime()});
        if (bar.isFolded()) {
            shown.append(bar.more());
        }
        for (QToolButton *tool : bar.tools()) {
            QCOMPARE(tool->isVisible(), !bar.isFolded());
            if (!bar.isFolded()) {
                shown.append(tool);
            }
        }
        shown.append(bar.screen.editor->btnPreview());
        int right = -1;
        for (QAbstractButton *button : shown) {
            const QRect place(button->mapTo(bar.screen.view, QPoint(0, 0)), button->size());
            QVERIFY(button->isVisible());
            QVERIFY2(whole.contains(place), qPrintable(button->objectName()));
            QVERIFY2(place.left() > right, qPrintable(button->objectName()));
            // No word is cut.
            QVERIFY2(button->width() >= button->sizeHint().width(), qPrintable(button->objectName()));
            right = place.right();
        }
    }

    void wordsStayAtTheWidthsThatHaveRoom()
    {
        QVERIFY(Bar(1040).hasWords());
        QVERIFY(!Bar(640).isFolded());
    }

    void theWindowCanBeNarrowedStepByStep()
    {
        const Bar bar(1040);
        QVERIFY(bar.screen.view->minimumSizeHint().width() <= 420);
        QVERIFY(!bar.isFolded());
        for (const int width : {900, 600, 420}) {
            bar.screen.view->resize(width, 400);
            QCoreApplication::processEvents();
            QCOMPARE(bar.screen.view->width(), width);
        }
        QVERIFY(bar.isFolded());
        bar.screen.view->resize(1040, 400);
        QCoreApplication::processEvents();
        QVERIFY(!bar.isFolded() && bar.hasWords());
    }

    void theMenuHasTheFoldedCommandsWithTheirPictures()
    {
        const Bar bar(480);
        QVERIFY(!bar.more()->accessibleName().isEmpty());
        QVERIFY(!bar.more()->toolTip().isEmpty());
        QVERIFY(!bar.more()->icon().isNull());
        QStringList wanted;
        for (const QToolButton *tool : bar.tools()) {
            wanted.append(tool->text());
        }
        QStringList found;
        for (const QAction *action : bar.more()->menu()->actions()) {
            if (!action->isSeparator()) {
                found.append(action->text());
                QVERIFY(!action->icon().isNull() && action->isIconVisibleInMenu());
            }
        }
        QCOMPARE(found, wanted);
    }

    void theMenuWorksByKeyboard()
    {
        const Bar bar(480);
        QVERIFY(QTest::qWaitForWindowActive(bar.screen.view));
        bar.screen.table()->setFocus();
        QVERIFY(bar.more()->focusPolicy() & Qt::TabFocus);
        bar.more()->setFocus();
        bool chosen = false;
        // The menu has an event loop of its own while it is open.
        QTimer poll;
        connect(&poll, &QTimer::timeout, this, [&] {
            if (QWidget *menu = QApplication::activePopupWidget(); menu && !chosen) {
                chosen = true;
                QTest::keyClick(menu, Qt::Key_Down);
                QTest::keyClick(menu, Qt::Key_Down);
                QTest::keyClick(menu, Qt::Key_Return);
            }
        });
        poll.start(0);
        QTest::keyClick(bar.more(), Qt::Key_Space);
        QTRY_VERIFY(chosen);
        QTRY_COMPARE(bar.screen.editor->songText(), QByteArray("[ar:one]\ntwo\n"));
    }

    void aFoldedCommandCommitsWhatIsBeingTyped()
    {
        const Bar bar(480);
        bar.screen.table()->editColumn_row_select(1, 0, true);
        QTest::keyClicks(bar.screen.field(), QStringLiteral("typed"));
        bar.more()->menu()->actions().at(1)->trigger();
        QCOMPARE(bar.screen.editor->songText(), QByteArray("[ti:typed]\ntwo\n"));
    }

    void aStampShowsASign()
    {
        const Bar bar(900);
        QAbstractButton *button = bar.screen.editor->btnInsertTime();
        const QImage calm = button->grab().toImage();
        bar.screen.editor->insertTimeTag();
        const bool isAnimated
            = button->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, button) > 0;
        QCOMPARE(button->grab().toImage() != calm, isAnimated);
        QTRY_COMPARE(button->grab().toImage(), calm);
        // Nothing was stamped, and nothing is shown.
        bar.screen.table()->clearSelection();
        bar.screen.editor->insertTimeTag();
        QCOMPARE(button->grab().toImage(), calm);
    }
};

QTEST_MAIN(ToolBar)
#include "tst_tool_bar.moc"
