// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QLoggingCategory>

namespace kit {

/// What the kit has to say: a form that cannot be loaded, an outlet that is missing.
Q_DECLARE_LOGGING_CATEGORY(lcKit)

} // namespace kit
