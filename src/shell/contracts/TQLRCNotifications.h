// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

/// Posted by the host on the default notification centre when it has retimed the lyric by its
/// own means; the object is the new LRC text, a `QByteArray`. For a preview that
/// is on screen. The component itself never posts it.
extern const QString TQLRCEditorAdjustTimeFinishNotification;
