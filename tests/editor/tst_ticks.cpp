// SPDX-License-Identifier: MIT
//
// What the line editor tells its container of the times of the document.
#include "editor/EditorOnScreen.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>

#include <algorithm>

namespace {

using Times = std::vector<double>;

Times sorted(Times times)
{
    std::sort(times.begin(), times.end());
    return times;
}

} // namespace

class Ticks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void allTimesAndThoseOfTheSelectedLines()
    {
        EditorOnScreen on;
        on.load("[ti:Star]\n[00:03.00][00:01.50]a\nb\n[00:02.00]c\n");
        on.selectRows(1, 1);
        QCoreApplication::processEvents();
        QCOMPARE(sorted(on.container->ticks), Times({1.5, 2.0, 3.0}));
        const int rowOfA = on.times(1).isEmpty() ? 2 : 1;
        on.selectRows(rowOfA, on.editor->songLinesNum() - 1);
        QCoreApplication::processEvents();
        QCOMPARE(sorted(on.container->selectedTicks), Times({1.5, 2.0, 3.0}));
        on.selectRows(on.editor->songLinesNum() - 1, on.editor->songLinesNum() - 1);
        QCoreApplication::processEvents();
        QCOMPARE(on.container->selectedTicks, Times({2.0}));
    }

    void theTimesOfATagLineAreNoTimesOfTheSong()
    {
        EditorOnScreen on;
        on.load("a\nb\n");
        auto &lines = on.editor->song().aryLines();
        lines.at(0).setIsProperty(true);
        lines.at(0).aryTimes().push_back(1000);
        lines.at(1).aryTimes().push_back(2000);
        on.editor->reloadDataWithLrcChanged();
        QCoreApplication::processEvents();
        QCOMPARE(on.container->ticks, Times({2.0}));
    }

    void aStampComesOnceAndAfterIt()
    {
        EditorOnScreen on;
        on.load("a\nb\n");
        on.selectRows(0, 0);
        QCoreApplication::processEvents();
        on.editor->updatePlayerProgress(1.25);
        const int before = on.container->tickShows;
        QTest::keyClick(on.table(), Qt::Key_Return);
        QCOMPARE(on.times(0), QList<std::int64_t>({1250}));
        QCOMPARE(on.container->tickShows, before);
        QCoreApplication::processEvents();
        // The stamp changed a line and the selection: told once.
        QCOMPARE(on.container->tickShows, before + 1);
        QCOMPARE(on.container->ticks, Times({1.25}));
        QCOMPARE(on.container->selectedTicks, Times());
    }

    void undoAndAnotherTextTellAnew()
    {
        EditorOnScreen on;
        on.load("[00:01.00]a\n");
        on.selectRows(0, 0);
        QTest::keyClick(on.table(), Qt::Key_Backspace);
        on.editor->deleteLineTag();
        QCoreApplication::processEvents();
        QCOMPARE(on.container->ticks, Times());
        while (on.container->ticks.empty() && on.editor->action(EditorCommand::Undo)->isEnabled()) {
            on.editor->undo();
            QCoreApplication::processEvents();
        }
        QCOMPARE(on.container->ticks, Times({1.0}));
        on.load("[00:05.00]x\n");
        QCoreApplication::processEvents();
        QCOMPARE(on.container->ticks, Times({5.0}));
        on.load({});
        QCoreApplication::processEvents();
        QCOMPARE(on.container->ticks, Times());
    }

    void aReportOfThePlayerTellsNothing()
    {
        EditorOnScreen on;
        on.load("[00:01.00]a\n");
        QCoreApplication::processEvents();
        const int before = on.container->tickShows;
        for (int tick = 0; tick < 100; ++tick) {
            on.editor->updatePlayerProgress(tick * 0.01);
            QCoreApplication::processEvents();
        }
        QCOMPARE(on.container->tickShows, before);
    }

    void editorAndContainerMayGoBefore()
    {
        {
            EditorOnScreen on;
            on.load("[00:01.00]a\n");
            on.container.reset();
            QCoreApplication::processEvents();
            on.editor->reloadDataWithLrcChanged();
            on.editor.reset();
            QCoreApplication::processEvents();
        }
        const auto container = std::make_shared<standin::Container>();
        const auto withoutView = TQLRCEditorViewCtl::init();
        withoutView->setParentVC(container);
        withoutView->flushWithOriginalSongText("[00:07.00]a\n");
        QCoreApplication::processEvents();
        QCOMPARE(container->ticks, Times({7.0}));
        QCOMPARE(container->selectedTicks, Times());
    }

    void hundredThousandLines()
    {
        EditorOnScreen on;
        QByteArray text;
        for (int i = 0; i < 100000; ++i) {
            text += QStringLiteral("[%1:%2.00]a\n")
                        .arg(i / 60, 2, 10, QLatin1Char('0'))
                        .arg(i % 60, 2, 10, QLatin1Char('0'))
                        .toLatin1();
        }
        on.load(text);
        on.editor->selectAll();
        QElapsedTimer clock;
        clock.start();
        QCoreApplication::processEvents();
        qInfo("a hundred thousand lines, all selected: %lld ms with painting", clock.elapsed());
        QCOMPARE(on.container->ticks.size(), std::size_t(100000));
        QCOMPARE(on.container->selectedTicks.size(), std::size_t(100000));
    }
};

QTEST_MAIN(Ticks)
#include "tst_ticks.moc"
