// SPDX-License-Identifier: MIT
#include "kit/AfterDelay.h"
#include "support/QtWarnings.h"

#include <QtCore/QThread>
#include <QtTest/QTest>

#include <memory>
#include <thread>

using namespace std::chrono_literals;

class tst_AfterDelay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void runsOnceAndNotBeforeItReturns();
    void holdsWhatTheCallableHoldsUntilThen();
    void runsOnTheGuiThreadFromAnyThread();
    void emptyCallableIsIgnored();
    void keepsTheOrderOfDelays();
};

void tst_AfterDelay::runsOnceAndNotBeforeItReturns()
{
    int runs = 0;
    bool later = false;
    kit::afterDelay(0ms, [&runs] { ++runs; });
    QCOMPARE(runs, 0);
    QTRY_COMPARE(runs, 1);
    kit::afterDelay(5ms, [&later] { later = true; });
    QTRY_VERIFY(later);
    QCOMPARE(runs, 1);
}

void tst_AfterDelay::holdsWhatTheCallableHoldsUntilThen()
{
    auto held = std::make_shared<int>(7);
    const std::weak_ptr<int> watched = held;
    int seen = 0;
    kit::afterDelay(1ms, [held, &seen] { seen = *held; });
    held.reset();
    QVERIFY(!watched.expired());
    QTRY_COMPARE(seen, 7);
    QTRY_VERIFY(watched.expired());
}

void tst_AfterDelay::runsOnTheGuiThreadFromAnyThread()
{
    QThread *ranOn = nullptr;
    std::thread([&ranOn] { kit::afterDelay(1ms, [&ranOn] { ranOn = QThread::currentThread(); }); }).join();
    QTRY_COMPARE(ranOn, QThread::currentThread());
}

void tst_AfterDelay::emptyCallableIsIgnored()
{
    bool ran = false;
    kit::afterDelay(0ms, {});
    kit::afterDelay(0ms, [&ran] { ran = true; });
    QTRY_VERIFY(ran);
}

void tst_AfterDelay::keepsTheOrderOfDelays()
{
    QStringList order;
    kit::afterDelay(60ms, [&order] { order << "later"; });
    kit::afterDelay(0ms, [&order] { order << "sooner"; });
    QTRY_COMPARE(order, QStringList({"sooner", "later"}));
}

QTEST_MAIN(tst_AfterDelay)
#include "tst_after_delay.moc"
