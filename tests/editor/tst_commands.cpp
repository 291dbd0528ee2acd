// SPDX-License-Identifier: MIT
#include "EditorOnScreen.h"
#include "editor/LeadingNumber.h"
#include "support/ModalDialogs.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLineEdit>

using support::buttonTitled;
using support::textsOf;
using support::whenDialogOpens;

namespace {

const QString kOffsetMessage
    = QStringLiteral("Set offset of all time labels:(positive forward，negtive backward)");

void answerOffsetDialog(const QString &typed, const QString &button, QStringList *texts = nullptr)
{
    whenDialogOpens([typed, button, texts](QWidget &dialog) {
        if (texts) {
            *texts = textsOf(dialog);
        }
        auto *field = dialog.findChild<QLineEdit *>();
        field->selectAll();
        QTest::keyClicks(field, typed);
        QTest::mouseClick(buttonTitled(dialog, button), Qt::LeftButton);
    });
}

} // namespace

class Commands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void titleTagDropsTheTimesAndKeepsTheText()
    {
        EditorOnScreen screen;
        screen.load("[00:10.00][00:20.00]The Star\n");
        screen.editor->insertTitleTag();
        const auto &line = screen.editor->song().aryLines().at(0);
        QVERIFY(line.isProperty());
        QCOMPARE(line.propertyStr(), std::string_view("ti"));
        QCOMPARE(screen.times(0), QList<std::int64_t>());
        QCOMPARE(screen.text(0), "The Star");
        QCOMPARE(screen.editor->songLinesNum(), 2);
        QCOMPARE(screen.table()->selectedRow(), 1);
        QCOMPARE(screen.columnIdentifiers(), QStringList({QStringLiteral("number"), QStringLiteral("text")}));
    }

    void everyTagButtonSetsItsKey()
    {
        EditorOnScreen screen;
        screen.load("t\na\nl\ne\n");
        const int before = screen.host->changes;
        for (const char *name : {"btnInsertTitle", "btnInsertArtist", "btnInsertAlbum", "btnInsertEditBy"}) {
            QTest::mouseClick(screen.view->findChild<QAbstractButton *>(QLatin1String(name)), Qt::LeftButton);
        }
        QCOMPARE(screen.editor->songText(), QByteArray("[ti:t]\n[ar:a]\n[al:l]\n[by:e]\n\n"));
        QVERIFY(screen.host->changes >= before + 4);
    }

    void twoTitlesAreAllowed()
    {
        EditorOnScreen screen;
        screen.load("a\nb\n");
        screen.editor->insertTitleTag();
        screen.editor->insertTitleTag();
        QCOMPARE(screen.editor->songText(), QByteArray("[ti:a]\n[ti:b]\n\n"));
    }

    void withoutASelectionATagCommandDoesNothing()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        screen.table()->clearSelection();
        const int before = screen.host->changes;
        screen.editor->insertTitleTag();
        QCOMPARE(screen.host->changes, before);
        QCOMPARE(screen.editor->songText(), QByteArray("a\n"));
    }

    void untagTakesTagsAndAllTimesOffTheSelectedLines()
    {
        EditorOnScreen screen;
        screen.load("[ar:Taylor]\n[00:01.00][00:02.00][00:03.00]a\n[00:04.00]b\n");
        screen.selectRows(0, 1);
        screen.table()->setFocus();
        QTest::keyClick(screen.table(), Qt::Key_Delete);
        QCOMPARE(screen.editor->songText(), QByteArray("Taylor\na\n[00:04.00]b\n"));
        QVERIFY(!screen.editor->song().aryLines().at(0).isProperty());
        screen.table()->selectSingleRow(2);
        QTest::keyClick(screen.table(), Qt::Key_Backspace);
        QCOMPARE(screen.editor->songText(), QByteArray("Taylor\na\nb\n"));
    }

    void untagWithoutASelectionStillTellsTheHost()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]a\n");
        screen.table()->clearSelection();
        const int before = screen.host->changes;
        screen.editor->deleteLineTag();
        QCOMPARE(screen.host->changes, before + 1);
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]a\n"));
    }

    void untagAllKeepsLinesTextsAndOtherTags()
    {
        EditorOnScreen screen;
        screen.load("[ti:x]\n[offset:+500]\n[00:01.00]a\n\n");
        screen.editor->deleteAllTags();
        QCOMPARE(screen.editor->songText(), QByteArray("x\n[offset:+500]\na\n\n"));
    }

    void restoreGoesBackToTheBytesThatWereLoaded()
    {
        EditorOnScreen screen;
        const QByteArray odd("[0:01.5] a\r\n[ti:x][ar:y]\n\nend");
        screen.load(odd);
        screen.editor->deleteAllTags();
        QVERIFY(screen.editor->isLrcChanged());
        screen.editor->restoreAllClick();
        QCOMPARE(screen.editor->songText(), odd);
        QVERIFY(!screen.editor->isLrcChanged());
    }

    void offsetDialogShiftsEveryTimedLine()
    {
        EditorOnScreen screen;
        screen.load("[ti:x]\n[00:10.00][00:20.00][00:30.00]a\n[00:01.00]b\n");
        QStringList texts;
        answerOffsetDialog(QStringLiteral("-1.5"), QStringLiteral("Apply"), &texts);
        const int before = screen.host->changes;
        screen.editor->offsetClick();
        QVERIFY(texts.contains(kOffsetMessage));
        QCOMPARE(screen.times(1), QList<std::int64_t>({8500, 18500, 28500}));
        QCOMPARE(screen.times(2), QList<std::int64_t>({0}));
        QCOMPARE(screen.cell("text", 0), QStringLiteral("x"));
        QCOMPARE(screen.host->changes, before + 1);
    }

    void cancelledOffsetKeepsTheDocumentAndTheTypedText()
    {
        EditorOnScreen screen;
        screen.load("[00:10.00]a\n");
        answerOffsetDialog(QStringLiteral("5"), QStringLiteral("Cancel"));
        screen.editor->offsetClick();
        QCOMPARE(screen.times(0), QList<std::int64_t>({10000}));
        QCOMPARE(screen.editor->lblOffsetTime()->text(), QStringLiteral("5"));
    }

    void offsetsAreTruncatedAndSmallOnesAreNone_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<std::int64_t>("shifted");
        QTest::newRow("0.005") << 0.005 << std::int64_t(10000);
        QTest::newRow("0") << 0.0 << std::int64_t(10000);
        QTest::newRow("0.01") << 0.01 << std::int64_t(10010);
        QTest::newRow("2.0009") << 2.0009 << std::int64_t(12000);
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << std::int64_t(10000);
    }

    void offsetsAreTruncatedAndSmallOnesAreNone()
    {
        QFETCH(double, seconds);
        QFETCH(std::int64_t, shifted);
        EditorOnScreen screen;
        screen.load("[00:10.00]a\n");
        const int before = screen.host->changes;
        screen.editor->adjustTimeTag(seconds);
        QCOMPARE(screen.times(0), QList<std::int64_t>({shifted}));
        QCOMPARE(screen.host->changes, before + (shifted == 10000 ? 0 : 1));
    }

    void leadingNumbers_data()
    {
        QTest::addColumn<double>("value");
        QTest::newRow("1.5") << 1.5;
        QTest::newRow("-2") << -2.0;
        QTest::newRow("+2") << 2.0;
        QTest::newRow("0.25s") << 0.25;
        QTest::newRow("  3") << 3.0;
        QTest::newRow("soon") << 0.0;
        QTest::newRow("") << 0.0;
        QTest::newRow(".5") << 0.5;
    }

    void leadingNumbers()
    {
        QFETCH(double, value);
        QCOMPARE(editor::leadingNumber(QString::fromLatin1(QTest::currentDataTag())), value);
    }

    void everyControlIsReachable()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        for (auto *button : screen.view->findChildren<QAbstractButton *>()) {
            if (!button->isVisible()) {
                continue;
            }
            QVERIFY2(!button->accessibleName().isEmpty() || !button->text().isEmpty(),
                qPrintable(button->objectName()));
            QVERIFY2(button->focusPolicy() & Qt::TabFocus, qPrintable(button->objectName()));
            QVERIFY2(!button->toolTip().isEmpty(), qPrintable(button->objectName()));
        }
        QVERIFY(!screen.table()->accessibleName().isEmpty());
    }
};

QTEST_MAIN(Commands)
#include "tst_commands.moc"
