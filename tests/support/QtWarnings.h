// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace support {

/// For a test's init(): every warning fails it, but for what the offscreen platform says when a
/// window, a menu or a tooltip opens.
inline void failOnUnexpectedWarnings()
{
    QTest::failOnWarning(QRegularExpression(
        QStringLiteral("^(?!This plugin does not support (propagateSizeHints|raise|grabbing))")));
}

} // namespace support
