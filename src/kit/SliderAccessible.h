// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QAccessible>

namespace kit {

/// Tells screen readers of every ProgressSliderView: a slider with a value in seconds that they
/// may set. Installed once per process; further calls do nothing.
void installSliderAccessible();

} // namespace kit
