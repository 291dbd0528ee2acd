// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

/// `englishKey` in the user's language, from the catalogue "Localized" of the component itself;
/// the key where the catalogue says nothing.
///
/// The languages are those of the default QLocale; a new default is followed. Nothing is
/// installed on the application.
[[nodiscard]] QString localized(const QString &englishKey);
