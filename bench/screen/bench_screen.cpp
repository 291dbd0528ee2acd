// SPDX-License-Identifier: MIT
//
// How long what the user does takes until it is on the screen, from the key event to the end of the paint,
// with the whole component in a window: table, columns, position, ticks, selection, host told. The yardstick
// is a bare repaint of that window, in the same run.

#include "Table.h"
#include "lyrics/Corpus.h"
#include "screen/Desk.h"

#include <QtCore/QLoggingCategory>
#include <QtGui/QAction>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

constexpr double kFrame = 1e9 / 60; ///< nanoseconds
constexpr int kTicks = 2'000;
constexpr std::size_t kSmall = 60;
constexpr std::size_t kLarge = 100'000;

QByteArray corpusText(std::size_t lines)
{
    return QByteArray::fromStdString(corpus::song(lines, corpus::Times::Usual));
}

/// Words without times, as they are when a song is stamped for the first time.
QByteArray untimedText(std::size_t lines)
{
    QByteArray text;
    for (std::size_t i = 0; i < lines; ++i)
        text += "line number " + QByteArray::number(qulonglong(i)) + '\n';
    return text;
}

double bareRepaint(const Desk &desk)
{
    std::vector<double> samples;
    for (int i = 0; i < 100; ++i)
        samples.push_back(taken([&desk] { desk.window->repaint(); }));
    return quantile(samples, 0.5);
}

/// Times of stamps, and of bare repaints of the same view taken between them: what else the machine does
/// falls on both alike.
struct Stamps
{
    std::vector<double> stamps;
    std::vector<double> bare;
};

constexpr int kStampsARepaint = 5;

/// `count` stamps by the key, each at another position: key event to painted.
void addStamps(Desk &desk, int count, Stamps &out)
{
    for (int i = 0; i < count; ++i) {
        desk.tick(1 + i * 0.37);
        settle();
        out.stamps.push_back(taken([&desk] {
            QTest::keyClick(desk.table(), Qt::Key_Return);
            settle();
        }));
        if (i % kStampsARepaint == 0)
            out.bare.push_back(taken([&desk] { desk.window->repaint(); }));
    }
}

/// The median of a hundred of `samples` from `at` on, `part` of which were taken.
double medianFrom(const std::vector<double> &samples, std::size_t at, int part)
{
    const auto first = samples.begin() + std::ptrdiff_t(at / std::size_t(part));
    return quantile(std::vector<double>(first, first + 100 / part), 0.5);
}

void measureStamps()
{
    Desk desk;
    Stamps small;
    Stamps large;
    for (int round = 0; round < 20; ++round) {
        desk.load(untimedText(kSmall));
        addStamps(desk, 50, small);
        desk.load(untimedText(kLarge));
        addStamps(desk, 50, large);
    }
    const double ofSmall = quantile(small.stamps, 0.5);
    const double ofLarge = quantile(large.stamps, 0.5);
    table::row("stamp, key to painted", kSmall, ofSmall, "bare repaint", quantile(small.bare, 0.5), 2);
    table::row("stamp, key to painted", kLarge, ofLarge, "bare repaint", quantile(large.bare, 0.5), 2);
    table::row("stamp, growth", kLarge, ofLarge, "stamp at 60 lines", ofSmall, 1.3);
    Stamps many;
    desk.load(untimedText(kLarge));
    addStamps(desk, 10'000, many);
    constexpr std::size_t kLast = 9'900;
    // As fast as the machine is by the end: a repaint tells.
    const double first = medianFrom(many.stamps, 0, 1) * medianFrom(many.bare, kLast, kStampsARepaint)
        / medianFrom(many.bare, 0, kStampsARepaint);
    table::row("10,000 stamps, the last hundred", kLarge, medianFrom(many.stamps, kLast, 1),
        "the first, by repaints", first, 1.1);
    table::row("10,000 stamps, 99 of 100", kLarge, quantile(many.stamps, 0.99), "a frame", kFrame, 1);
}

/// One command, its undo and its redo, each until it is painted.
void measureCommand(Desk &desk, const char *name, EditorCommand command, double target)
{
    desk.load(corpusText(kLarge));
    desk.table()->selectSingleRow(int(kLarge / 2));
    settle();
    const auto trigger = [&desk](EditorCommand what) {
        QAction *action = desk.component->action(what);
        if (!action || !action->isEnabled())
            std::printf("!! a command could not be run\n");
        else
            action->trigger();
        settle();
    };
    std::vector<double> done, undone, redone;
    for (int i = 0; i < 9; ++i) {
        done.push_back(taken([&] { trigger(command); }));
        undone.push_back(taken([&] { trigger(EditorCommand::Undo); }));
        redone.push_back(taken([&] { trigger(EditorCommand::Redo); }));
        trigger(EditorCommand::Undo);
    }
    const std::string label(name);
    table::row((label).c_str(), kLarge, quantile(done, 0.5), "a frame", kFrame, target);
    table::row((label + ", undone").c_str(), kLarge, quantile(undone, 0.5), "a frame", kFrame, target);
    table::row((label + ", redone").c_str(), kLarge, quantile(redone, 0.5), "a frame", kFrame, target);
}

void measureCommands()
{
    using enum EditorCommand;
    Desk desk;
    const struct
    {
        const char *name;
        EditorCommand command;
        double target; ///< frames; what changes every line has no target of a frame
    } commands[] = {{"insert a line", InsertLineBefore, 1}, {"duplicate a line", DuplicateLine, 1},
        {"delete a line", DeleteLines, 1}, {"move a line up", MoveUp, 1},
        {"merge two lines", MergeWithNext, 1}, {"untag a line", Untag, 1},
        {"nudge a line", NudgeForward10, 1}, {"make a title", MakeTitle, 1}, {"stamp", Stamp, 1},
        {"untag every line", UntagAll, 30}, {"delete every line", DeleteAllLines, 30}};
    for (const auto &[name, command, target] : commands)
        measureCommand(desk, name, command, target);
}

void measureTicks()
{
    Desk desk;
    for (const std::size_t lines : {kSmall, kLarge}) {
        desk.load(corpusText(lines));
        desk.tick(2.5);
        settle();
        const double bare = bareRepaint(desk);
        Paints paints(*desk.window);
        std::vector<double> same, changed;
        for (int i = 0; i < kTicks; ++i) {
            same.push_back(taken([&desk] {
                desk.tick(2.5);
                settle();
            }));
        }
        const int paintsOfSame = paints.count();
        for (int i = 0; i < kTicks; ++i) {
            changed.push_back(taken([&desk, i] {
                desk.tick(3 + i * 1.7);
                settle();
            }));
        }
        table::row("tick, nothing new", lines, quantile(same, 0.5), "bare repaint", bare, 0.05);
        table::row("tick, another line", lines, quantile(changed, 0.5), "bare repaint", bare, 1);
        std::printf("    %d paints in %d ticks with nothing new\n", paintsOfSame, kTicks);
    }
}

/// What waits to be painted is painted, and no time passes in which anything could be done ahead.
void paintNow(const Desk &desk)
{
    QApplication::sendPostedEvents();
    desk.window->repaint();
}

void measureOpening()
{
    double small = 0;
    for (const std::size_t lines : {kSmall, kLarge}) {
        const QByteArray text = corpusText(lines);
        std::vector<double> opened, read, previewed, followed;
        for (int i = 0; i < 9; ++i) {
            Desk desk;
            desk.tick(0);
            opened.push_back(taken([&] { desk.load(text); }));
            read.push_back(taken([&] {
                RBEditSong song;
                song.buildWithLrcText({text.constData(), std::size_t(text.size())});
            }));
            QAction *preview = desk.component->action(EditorCommand::Preview);
            previewed.push_back(taken([&] {
                preview->trigger();
                paintNow(desk);
            }));
            followed.push_back(taken([&] {
                desk.tick(70);
                paintNow(desk);
            }));
        }
        const double beyond = quantile(opened, 0.5) - quantile(read, 0.5);
        if (lines == kSmall)
            small = beyond;
        table::row("lyric opened, beyond reading it", lines, beyond, "the same at 60 lines", small, 1.3);
        table::row("preview opened, first picture", lines, quantile(previewed, 0.5), "a frame", kFrame, 1);
        table::row("preview, the first line followed", lines, quantile(followed, 0.5), "a frame", kFrame, 1);
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(QStringLiteral("*.info=false\nqt.qpa.*=false"));
    QApplication application(argc, argv);
    table::head("on the screen (ns)");
    // Names choose among the parts.
    const QStringList chosen = QApplication::arguments().mid(1);
    const std::pair<const char *, void (*)()> parts[] = {{"stamps", measureStamps},
        {"commands", measureCommands}, {"ticks", measureTicks}, {"opening", measureOpening}};
    for (const auto &[name, measure] : parts) {
        if (chosen.isEmpty() || chosen.contains(QLatin1String(name)))
            measure();
    }
    return 0;
}
