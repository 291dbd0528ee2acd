// SPDX-License-Identifier: MIT
#include "kit/AfterDelay.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

using namespace std::chrono_literals;

/// What waits when the application goes.
class ApplicationQuitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void viewsHeldByWaitingCallsGoBeforeTheApplication()
    {
        for (int round = 0; round < 2; ++round) {
            bool applicationWasThere = false;
            bool ran = false;
            {
                char name[] = "quits";
                char *arguments[] = {name, nullptr};
                int count = 1;
                QApplication application(count, arguments);
                const auto window = std::make_shared<QWidget>();
                auto *inner = new QLabel(window.get());
                QObject::connect(inner, &QObject::destroyed, inner, [&applicationWasThere] {
                    applicationWasThere = QCoreApplication::instance() && !QCoreApplication::closingDown();
                });
                window->show();
                kit::afterDelay(1h, [window, &ran] { ran = true; });
                QCoreApplication::processEvents();
            }
            QVERIFY(applicationWasThere);
            QVERIFY(!ran);
        }
    }

    void whatACallHoldsIsLetGoWhenItHasRun()
    {
        char name[] = "quits";
        char *arguments[] = {name, nullptr};
        int count = 1;
        QApplication application(count, arguments);
        auto held = std::make_shared<int>(0);
        const std::weak_ptr<int> watched = held;
        bool wasHeld = false;
        kit::afterDelay(0ms, [held = std::move(held), &wasHeld] { wasHeld = held != nullptr; });
        QVERIFY(!watched.expired());
        QTRY_VERIFY(wasHeld);
        QVERIFY(watched.expired());
    }
};

QTEST_APPLESS_MAIN(ApplicationQuitsTest)
#include "tst_application_quits.moc"
