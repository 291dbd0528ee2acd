// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace support {

/// For a test's init(): every warning fails it, but for what the offscreen platform says at
/// each show of a window or menu.
inline void failOnUnexpectedWarnings()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(
        "^(?!This plugin does not support (propagateSizeHints|raise|grabbing))")));
}

} // namespace support
