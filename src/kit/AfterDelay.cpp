// SPDX-License-Identifier: MIT
#include "kit/AfterDelay.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>
#include <QtCore/QTimer>

#include <utility>

namespace kit {

void afterDelay(std::chrono::milliseconds delay, std::function<void()> callable)
{
    if (QCoreApplication::instance() == nullptr || QCoreApplication::closingDown() || !callable)
        return;
    QCoreApplication *const application = QCoreApplication::instance();
    const auto start = [delay, application, run = std::move(callable)] {
        QTimer::singleShot(delay, application, [run] {
            if (!QCoreApplication::closingDown())
                run();
        });
    };
    // A thread that is not Qt's own cannot start a timer.
    if (QThread::currentThread() == application->thread())
        start();
    else
        QMetaObject::invokeMethod(application, start, Qt::QueuedConnection);
}

} // namespace kit
