// SPDX-License-Identifier: MIT
//
// The program with a whole song and the preview on screen: at each report of the real player, which plays in
// real time, the line that is shown as sung is the one that the list of times says. Nothing here depends on
// how busy the machine is, only how long it takes.
#include "editor/TQLRCEditorViewCtl.h"
#include "host/DeskWindow.h"
#include "host/Songs.h"
#include "media/player/Player.h"
#include "preview/RBPreviewViewController.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "shell/contracts/TQAudioPlayerObserver.h"
#include "support/QtWarnings.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace {

struct Line
{
    double seconds = 0;
    QString text;
};

// The table beside the demonstration song, which was made with it: row, seconds, text.
std::vector<Line> linesOfTheSong()
{
    std::vector<Line> lines;
    QFile table(QStringLiteral(TQLRC_DEMO_ONSETS));
    if (table.open(QIODevice::ReadOnly)) {
        table.readLine();
        while (!table.atEnd()) {
            const QList<QByteArray> fields = table.readLine().chopped(1).split('\t');
            // Texts are numbered: the song repeats them.
            lines.push_back({std::floor(fields.at(1).toDouble() * 100) / 100,
                QStringLiteral("%1 %2").arg(lines.size() + 1).arg(QString::fromUtf8(fields.at(2)))});
        }
    }
    return lines;
}

QByteArray lyricOf(const std::vector<Line> &lines)
{
    QByteArray lyric = "[ti:The Star]\n";
    for (const Line &line : lines) {
        const auto hundredths = static_cast<int>(std::lround(line.seconds * 100));
        lyric += QStringLiteral("[%1:%2.%3]%4\n")
                     .arg(hundredths / 6000, 2, 10, QLatin1Char('0'))
                     .arg(hundredths / 100 % 60, 2, 10, QLatin1Char('0'))
                     .arg(hundredths % 100, 2, 10, QLatin1Char('0'))
                     .arg(line.text)
                     .toUtf8();
    }
    return lyric;
}

/// What is shown as sung when the preview has heard of a report, which it does before this.
struct Watcher : TQAudioPlayerObserver
{
    void audioPlayer_updateProgress(TQAudioPlayerProtocol *player, double seconds) override
    {
        Q_UNUSED(player)
        reports.push_back({seconds, shown()});
    }
    void audioPlayerPlayFinished(TQAudioPlayerProtocol *player) override
    {
        Q_UNUSED(player)
        isFinished = true;
    }
    std::function<QString()> shown;
    std::vector<Line> reports;
    bool isFinished = false;
};

} // namespace

class WholeSong : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void eachLineBecomesCurrentWithItsReport()
    {
        const std::vector<Line> lines = linesOfTheSong();
        QVERIFY(lines.size() > 10);
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("song.mp3"));
        QVERIFY(songs::make(path, lyricOf(lines)));
        const auto player = media::Player::create();
        desk::DeskWindow window(player);
        window.show();
        QVERIFY(window.open(path));
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const auto component = window.component();
        component->editorViewCtl()->tableView()->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_P, Qt::ControlModifier);
        QVERIFY(component->previewingCtl()->view()->isVisible());

        const auto watcher = std::make_shared<Watcher>();
        watcher->shown = [&] { return component->previewingCtl()->textView()->selectedText(); };
        player->registObserver(watcher);
        QTRY_VERIFY_WITH_TIMEOUT(watcher->isFinished, 100'000);

        QVERIFY(watcher->reports.size() > 100);
        QVERIFY(watcher->reports.front().seconds < lines.front().seconds);
        auto line = lines.begin();
        QString expected;
        double latest = 0;
        for (const Line &report : watcher->reports) {
            for (; line != lines.end() && line->seconds <= report.seconds; ++line) {
                expected = line->text;
                latest = std::max(latest, report.seconds - line->seconds);
            }
            QVERIFY2(report.text == expected,
                qPrintable(QStringLiteral("at %1 s “%2”").arg(report.seconds).arg(report.text)));
        }
        QVERIFY(line == lines.end());
        qInfo("%zu reports, %zu lines, each shown with the first report from its time on; the latest %.1f ms "
              "after it",
            watcher->reports.size(), lines.size(), latest * 1000);
    }
};

QTEST_MAIN(WholeSong)
#include "tst_whole_song.moc"
