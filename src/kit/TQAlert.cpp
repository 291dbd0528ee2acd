// SPDX-License-Identifier: MIT
#include "kit/TQAlert.h"

#include "kit/Alert.h"
#include "kit/FormLoader.h"

void TQAlert::OK_info(const QString &message, const QString &info)
{
    kit::Alert alert;
    alert.setMessageText(message);
    alert.setInformativeText(info);
    alert.addButtonWithTitle(kit::FormLoader::translated(QStringLiteral("OK")));
    alert.runModal();
}
