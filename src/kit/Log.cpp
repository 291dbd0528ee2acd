// SPDX-License-Identifier: MIT
#include "kit/Log.h"

namespace kit {

Q_LOGGING_CATEGORY(lcKit, "tqlrceditor.kit")

} // namespace kit
