// SPDX-License-Identifier: MIT
#include "shell/contracts/TQLRCNotifications.h"

const QString TQLRCEditorAdjustTimeFinishNotification
    = QStringLiteral("TQLRCEditorAdjustTimeFinishNotification");
