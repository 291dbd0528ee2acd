// SPDX-License-Identifier: MIT
//
// What the whole component does for one stamp, one tick and one opening, counted: as much for a lyric of any
// length.
#include "shell/World.h"
#include "support/CountedMalloc.h"
#include "support/QtWarnings.h"

#include <QtGui/QPaintEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <set>

namespace {

constexpr int kSong = 60;
constexpr int kHuge = 100'000;

QByteArray lyricOf(int lines)
{
    QByteArray text;
    for (int line = 0; line < lines; ++line) {
        text += QStringLiteral("[%1:%2.00]line\n")
                    .arg(line / 60, 2, 10, QLatin1Char('0'))
                    .arg(line % 60, 2, 10, QLatin1Char('0'))
                    .toLatin1();
    }
    return text;
}

void settle()
{
    for (int i = 0; i < 3; ++i) {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
}

/// What is painted of a widget and of all that is in it.
class Paints : public QObject
{
public:
    explicit Paints(QWidget *widget)
    {
        widget->installEventFilter(this);
        for (QWidget *child : widget->findChildren<QWidget *>()) {
            child->installEventFilter(this);
        }
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            painted[watched] += static_cast<QPaintEvent *>(event)->region();
            ++counts[watched];
            ++count;
        }
        return false;
    }

    QHash<QObject *, QRegion> painted;
    QHash<QObject *, int> counts;
    int count = 0;
};

/// Stands between a table and its editor and writes down what is asked for.
class Questions : public kit::TableDataSource
{
public:
    explicit Questions(std::shared_ptr<TQLRCEditorViewCtl> editor) : m_editor(std::move(editor)) { }

    int numberOfRowsInTableView(MyTableView *table) override
    {
        return m_editor->numberOfRowsInTableView(table);
    }
    QString tableView_objectValueForTableColumn_row(
        MyTableView *table, const QString &identifier, int row) override
    {
        ++values;
        rows.insert(row);
        return m_editor->tableView_objectValueForTableColumn_row(table, identifier, row);
    }
    void tableView_setObjectValue_forTableColumn_row(
        MyTableView *table, const QString &value, const QString &identifier, int row) override
    {
        m_editor->tableView_setObjectValue_forTableColumn_row(table, value, identifier, row);
    }
    void tableViewSelectionDidChange(MyTableView *table) override
    {
        m_editor->tableViewSelectionDidChange(table);
    }
    kit::CellLook tableView_lookOfCell(MyTableView *table, const QString &identifier, int row) override
    {
        ++looks;
        return m_editor->tableView_lookOfCell(table, identifier, row);
    }

    int values = 0;
    int looks = 0;
    std::set<int> rows;

private:
    std::shared_ptr<TQLRCEditorViewCtl> m_editor;
};

struct StampCost
{
    int values = 0;
    int looks = 0;
    int rows = 0;
    int paintsOfTable = 0;
    int cellsInSight = 0;
};

/// By the key, and with the player's next report, as while a song plays.
void stamp(const World &world)
{
    QTest::keyClick(world.editor()->tableView(), Qt::Key_Return);
    world.container->updatePlayerProgress(4.5);
    settle();
}

StampCost costOfAStamp(int lines)
{
    const World world(lyricOf(lines));
    MyTableView *const table = world.editor()->tableView();
    if (!QTest::qWaitForWindowActive(world.window.get())) {
        return {};
    }
    const auto questions = std::make_shared<Questions>(world.editor());
    table->setDataSource(questions);
    table->selectSingleRow(30);
    world.container->updatePlayerProgress(4.5);
    settle();
    // The first one makes a column for second times.
    stamp(world);
    stamp(world);
    const Paints paints(table->viewport());
    questions->values = questions->looks = 0;
    questions->rows.clear();
    QTest::keyClick(table, Qt::Key_Return);
    qInfo() << "--- key done";
    QApplication::sendPostedEvents();
    qInfo() << "--- posted";
    QApplication::processEvents();
    qInfo() << "--- 1";
    for (int i = 0; i < 3; ++i) {
        QApplication::sendPostedEvents();
        qInfo() << "posted" << i;
        QApplication::processEvents();
        qInfo() << "proc" << i;
    }
    settle();
    table->setDataSource(world.editor());
    const int rowsInSight = table->viewport()->height() / table->rowHeight(0) + 1;
    return {questions->values, questions->looks, int(questions->rows.size()),
        paints.counts.value(table->viewport()), rowsInSight * table->numberOfColumns()};
}

} // namespace

class Costs : public QObject
{
    Q_OBJECT

private:
    static void tickWithNothingNew(const World &world, const Paints &paints)
    {
        const long long before = support::mallocs();
        for (int i = 0; i < 100; ++i) {
            world.container->updatePlayerProgress(12.5);
        }
        QCOMPARE(support::mallocs() - before, 0);
        settle();
        QCOMPARE(paints.count, 0);
    }

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void aStampAsksForWhatIsInSightAndPaintsItOnce()
    {
        const StampCost song = costOfAStamp(kSong);
        const StampCost huge = costOfAStamp(kHuge);
        QCOMPARE(song.paintsOfTable, 1);
        QVERIFY(song.rows > 5);
        QVERIFY2(song.values <= song.cellsInSight, qPrintable(QString::number(song.values)));
        QVERIFY2(song.looks <= song.cellsInSight, qPrintable(QString::number(song.looks)));
        QCOMPARE(huge.paintsOfTable, song.paintsOfTable);
        QCOMPARE(huge.rows, song.rows);
        QCOMPARE(huge.values, song.values);
        QCOMPARE(huge.looks, song.looks);
    }

    void aStampTouchesOneLine()
    {
        const World world(lyricOf(kHuge));
        QVERIFY(QTest::qWaitForWindowActive(world.window.get()));
        world.editor()->tableView()->selectSingleRow(30);
        stamp(world);
        const auto &now = std::as_const(*world.editor()).song().aryLines();
        const auto &before = std::as_const(*world.editor()).originSong().aryLines();
        QCOMPARE(now.size(), before.size());
        int touched = 0;
        for (std::size_t line = 0; line < now.size(); ++line) {
            touched += now[line] == before[line] ? 0 : 1;
        }
        QCOMPARE(touched, 1);
    }

    void aTickWithNothingNewCostsNothing()
    {
        for (const int lines : {kSong, kHuge}) {
            const World world(lyricOf(lines));
            world.container->updatePlayerProgress(12.5);
            settle();
            const Paints paints(world.window.get());
            tickWithNothingNew(world, paints);
            const long long quiet = support::mallocs();
            world.container->updatePlayerProgress(40.5);
            settle();
            // The counting counts.
            QVERIFY(paints.count > 0);
            QVERIFY(support::mallocs() > quiet || !support::countsMallocs());
        }
    }

    void aTickOfThePreviewWithNothingNewCostsNothing()
    {
        for (const int lines : {kSong, kHuge}) {
            const World world(lyricOf(lines));
            QTest::mouseClick(world.editor()->btnPreview(), Qt::LeftButton);
            world.container->updatePlayerProgress(12.5);
            QTRY_VERIFY(!world.container->view()->findChild<QWidget *>(QStringLiteral("crossFade")));
            QTRY_VERIFY(!world.preview()->textView()->isGliding());
            settle();
            tickWithNothingNew(world, Paints(world.window.get()));
        }
    }

    void anotherSungLineRepaintsTwoRows()
    {
        for (const int lines : {kSong, kHuge}) {
            const World world(lyricOf(lines));
            MyTableView *const table = world.editor()->tableView();
            world.container->updatePlayerProgress(3.5);
            settle();
            const Paints paints(world.window.get());
            world.container->updatePlayerProgress(5.5);
            settle();
            const auto rowRect = [table](int row) {
                return QRect(
                    0, table->rowViewportPosition(row), table->viewport()->width(), table->rowHeight(row));
            };
            QCOMPARE(paints.painted.value(table->viewport()), QRegion(rowRect(3)) + rowRect(5));
            QCOMPARE(paints.counts.value(table->viewport()), 1);
        }
    }

    void aPreviewLaysOutWhatIsInSight()
    {
        std::vector<std::size_t> laidOut;
        for (const int lines : {kSong, kHuge}) {
            const World world(lyricOf(lines));
            QTest::mouseClick(world.editor()->btnPreview(), Qt::LeftButton);
            laidOut.push_back(world.preview()->textView()->laidOutLines());
        }
        QVERIFY(laidOut.front() > 5);
        QVERIFY(laidOut.front() < kSong);
        QCOMPARE(laidOut.front(), laidOut.back());
    }
};

QTEST_MAIN(Costs)
#include "tst_costs.moc"
