// SPDX-License-Identifier: MIT
//
// How exact a stamp is: the real player plays in real time, a real key event comes at a moment
// that has nothing to do with its reports, and the stamp is compared with the position that the
// player heard at that very moment. The figures are printed; what is asserted does not depend on
// how busy the machine is: a stamp is the last report, to the hundredth.
#include "editor/TQLRCEditorViewCtl.h"
#include "host/DeskWindow.h"
#include "host/Songs.h"
#include "media/player/Player.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "shell/contracts/TQAudioPlayerObserver.h"
#include "support/QtWarnings.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cmath>
#include <random>
#include <vector>

namespace {

constexpr int kStamps = 200;
// Half a hundredth is lost by rounding, and less than a millisecond by truncation.
constexpr double kRoundingMillis = 6.0;

struct LastReport : TQAudioPlayerObserver
{
    void audioPlayer_updateProgress(TQAudioPlayerProtocol *player, double seconds) override
    {
        Q_UNUSED(player)
        last = seconds;
        ++count;
    }
    double last = -1.0;
    int count = 0;
};

double mean(const std::vector<double> &values)
{
    double sum = 0;
    for (const double value : values) {
        sum += value;
    }
    return sum / static_cast<double>(values.size());
}

double deviation(const std::vector<double> &values)
{
    const double middle = mean(values);
    double sum = 0;
    for (const double value : values) {
        sum += (value - middle) * (value - middle);
    }
    return std::sqrt(sum / static_cast<double>(values.size()));
}

} // namespace

class StampAccuracy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void aStampIsTheLastReport()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("song.mp3"));
        QVERIFY(songs::make(path, "line\n"));
        const auto player = media::Player::create();
        const auto report = std::make_shared<LastReport>();
        player->registObserver(report);
        desk::DeskWindow window(player);
        window.show();
        QVERIFY(window.open(path));
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const auto editor = window.component()->editorViewCtl();
        editor->tableView()->setFocus();
        QTRY_VERIFY_WITH_TIMEOUT(player->position() > 0.1, 20000);

        std::mt19937 random(20);
        std::uniform_int_distribution<int> pause(17, 83);
        std::vector<double> errors;
        std::vector<double> heard;
        bool everyStampIsTheLastReport = true;
        QEventLoop loop;
        QTimer presses;
        presses.setTimerType(Qt::PreciseTimer);
        presses.setSingleShot(true);
        connect(&presses, &QTimer::timeout, this, [&] {
            const int row = editor->tableView()->selectedRow();
            const double position = player->position();
            const double reported = report->last;
            QTest::keyClick(editor->tableView(), Qt::Key_Return);
            const auto &times
                = std::as_const(editor->song()).aryLines().at(static_cast<std::size_t>(row)).aryTimes();
            const auto stamp = static_cast<double>(times[times.size() - 1]);
            everyStampIsTheLastReport
                = everyStampIsTheLastReport && std::abs(stamp - reported * 1000.0) <= kRoundingMillis;
            errors.push_back(stamp - position * 1000.0);
            heard.push_back(position);
            if (errors.size() < kStamps) {
                presses.start(pause(random));
            } else {
                loop.quit();
            }
        });
        const int reportsBefore = report->count;
        presses.start(pause(random));
        QTimer::singleShot(60000, &loop, &QEventLoop::quit);
        // A loop of events as in the program: the waiting macros look away for 10 ms at a time.
        loop.exec();
        QCOMPARE(errors.size(), std::size_t(kStamps));
        QVERIFY(everyStampIsTheLastReport);

        const double played = heard.back() - heard.front();
        qInfo("%d stamps: mean error %.2f ms, standard deviation %.2f ms; %.0f reports per second played",
            kStamps, mean(errors), deviation(errors), (report->count - reportsBefore) / played);
        QVERIFY(std::is_sorted(heard.begin(), heard.end()));
    }
};

QTEST_MAIN(StampAccuracy)
#include "tst_stamp_accuracy.moc"
