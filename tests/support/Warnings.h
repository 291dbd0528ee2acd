// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace testing_support {

/// For a test class's init(): any warning fails the test, but for the one that the offscreen
/// platform gives at every show.
inline void failOnAnyWarning()
{
    QTest::failOnWarning(
        QRegularExpression(QStringLiteral("^(?!This plugin does not support propagateSizeHints)")));
}

} // namespace testing_support
