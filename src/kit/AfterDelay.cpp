// SPDX-License-Identifier: MIT
#include "kit/AfterDelay.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>

#include <utility>

namespace kit {

void afterDelay(std::chrono::milliseconds delay, std::function<void()> callable)
{
    if (QCoreApplication::instance() == nullptr || QCoreApplication::closingDown() || !callable)
        return;
    QTimer::singleShot(delay, QCoreApplication::instance(), [run = std::move(callable)] {
        if (!QCoreApplication::closingDown())
            run();
    });
}

} // namespace kit
