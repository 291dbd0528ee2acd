// SPDX-License-Identifier: MIT
#include "kit/AfterDelay.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QThread>
#include <QtCore/QTimer>

#include <utility>

namespace kit {

namespace {

QPointer<QObject> g_waiting;

/// Owns the timers of the calls that wait. It goes while the application still is whole: what they hold may
/// be the last of a view, and no view can go after the application.
QObject *waiting()
{
    if (!g_waiting) {
        g_waiting = new QObject;
        qAddPostRoutine([] { delete g_waiting; });
    }
    return g_waiting;
}

void start(std::chrono::milliseconds delay, std::function<void()> callable)
{
    auto *timer = new QTimer(waiting());
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    timer->callOnTimeout([timer, callable = std::move(callable)]() mutable {
        timer->deleteLater();
        // What it holds is let go when it has run, not when the timer is.
        const auto run = std::exchange(callable, {});
        if (!QCoreApplication::closingDown())
            run();
    });
    timer->start(delay);
}

} // namespace

void afterDelay(std::chrono::milliseconds delay, std::function<void()> callable)
{
    QCoreApplication *const application = QCoreApplication::instance();
    if (application == nullptr || QCoreApplication::closingDown() || !callable)
        return;
    // A thread that is not Qt's own cannot start a timer.
    if (QThread::currentThread() == application->thread())
        start(delay, std::move(callable));
    else
        QMetaObject::invokeMethod(
            application, [delay, run = std::move(callable)] { start(delay, run); }, Qt::QueuedConnection);
}

} // namespace kit
