// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QStringView>

namespace editor {

/// The decimal number that `text` begins with, leading blanks skipped: "0.25s" gives 0.25, a text
/// that begins with none gives 0. The point is a point in every locale.
[[nodiscard]] double leadingNumber(QStringView text);

} // namespace editor
