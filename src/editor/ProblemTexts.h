// SPDX-License-Identifier: MIT
#pragma once

#include "editor/LineProblems.h"

#include <QtCore/QString>

namespace editor {

/// One short sentence on what is wrong and by how much, in the user's language: "3.2 s earlier than
/// the line above".
[[nodiscard]] QString problemText(const LineProblem &problem);

} // namespace editor
