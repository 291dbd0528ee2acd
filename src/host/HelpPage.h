// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QUrl>

namespace desk {

/// The help page that stands beside the program, for a browser; empty when it is not there.
[[nodiscard]] QUrl helpPage();

} // namespace desk
