// SPDX-License-Identifier: MIT
#include "editor/ProblemTexts.h"
#include "support/QtWarnings.h"

#include <QtCore/QLocale>
#include <QtTest/QTest>

using editor::LineProblem;
using Kind = LineProblem::Kind;

Q_DECLARE_METATYPE(editor::LineProblem)

class tst_ProblemTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void sentences_data();
    void sentences();
    void digitsAsManyAsAreNeeded_data();
    void digitsAsManyAsAreNeeded();
};

void tst_ProblemTexts::init()
{
    support::failOnUnexpectedWarnings();
    QLocale::setDefault(QLocale(QLocale::English));
}

void tst_ProblemTexts::sentences_data()
{
    QTest::addColumn<LineProblem>("problem");
    QTest::addColumn<QString>("german");
    const auto row = [](const char *english, Kind kind, std::int64_t millis, const char *german) {
        QTest::newRow(english) << LineProblem{kind, 0, millis} << QString::fromUtf8(german);
    };
    row("3.2 s earlier than the line above", Kind::EarlierThanAbove, 3200,
        "3,2 s früher als die Zeile darüber");
    row("59 s later than the line below", Kind::LaterThanBelow, 59'000, "59 s später als die Zeile darunter");
    row("The same text at the same time as the line above", Kind::SameAsAbove, 0,
        "Derselbe Text zur selben Zeit wie in der Zeile darüber");
    row("This time stands on the line twice", Kind::TwiceOnLine, 0, "Diese Zeit steht zweimal in der Zeile");
    row("More than three lines at the same time", Kind::ManyAtOnce, 0,
        "Mehr als drei Zeilen zur selben Zeit");
    row("Nothing comes for 14 s after this line", Kind::GapAfter, 14'300,
        "Nach dieser Zeile kommt 14 s lang nichts");
    row("Past the end of the song (03:58.20)", Kind::PastEnd, 238'200,
        "Hinter dem Ende des Liedes (03:58.20)");
    row("Empty, like the line above", Kind::EmptyAfterEmpty, 2000, "Leer wie die Zeile darüber");
    row("Empty 0.2 s after the line above", Kind::EmptyAtOnce, 200,
        "Leer schon 0,2 s nach der Zeile darüber");
    row("Empty only 1.9 s before the next line", Kind::EmptyBeforeNext, 1900,
        "Leer erst 1,9 s vor der nächsten Zeile");
}

void tst_ProblemTexts::sentences()
{
    QFETCH(LineProblem, problem);
    QFETCH(QString, german);
    QCOMPARE(editor::problemText(problem), QString::fromUtf8(QTest::currentDataTag()));
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(editor::problemText(problem), german);
}

void tst_ProblemTexts::digitsAsManyAsAreNeeded_data()
{
    QTest::addColumn<qlonglong>("millis");
    QTest::addColumn<QString>("seconds");
    QTest::newRow("a hundredth") << 10LL << "0.01";
    QTest::newRow("three thousandths") << 3LL << "0.003";
    QTest::newRow("no whole hundredth") << 1234LL << "1.23";
    QTest::newRow("a quarter") << 250LL << "0.25";
    QTest::newRow("a second") << 1000LL << "1.0";
    QTest::newRow("below ten") << 9900LL << "9.9";
    QTest::newRow("ten and more are whole") << 10'900LL << "10";
    QTest::newRow("minutes") << 1'234'567LL << "1,234";
}

void tst_ProblemTexts::digitsAsManyAsAreNeeded()
{
    QFETCH(qlonglong, millis);
    QFETCH(QString, seconds);
    QCOMPARE(editor::problemText({Kind::EarlierThanAbove, 0, millis}),
        QString(seconds + " s earlier than the line above"));
}

QTEST_MAIN(tst_ProblemTexts)
#include "tst_problem_texts.moc"
