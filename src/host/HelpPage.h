// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

namespace desk {

/// The help page that stands beside the program, for a browser; empty when it is not there.
[[nodiscard]] QUrl helpPage();

/// The page at `english` (".../help.html") in the first of `languages` ("de-AT", "de") that there is one for
/// (".../help_de.html"); empty when there is none at all.
[[nodiscard]] QString helpPageFor(const QString &english, const QStringList &languages);

} // namespace desk
