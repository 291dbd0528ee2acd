// SPDX-License-Identifier: MIT
#include "resources/Localized.h"

#include "catalogue/Texts.h"
#include "resources/Resources.h"

QString localized(const QString &englishKey)
{
    resources::ensureLoaded();
    static catalogue::Texts texts(QStringLiteral("Localized"));
    return texts.text(englishKey);
}
