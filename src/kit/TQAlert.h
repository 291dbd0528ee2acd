// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

/// A message that has only to be read.
class TQAlert
{
public:
    /// Shows `message`, and `info` in smaller text below it unless it is null or empty, with one
    /// OK button; returns when it was pressed. Both are shown as they are, already localised.
    static void OK_info(const QString &message, const QString &info);
};
