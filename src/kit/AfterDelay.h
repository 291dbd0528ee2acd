// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace kit {

/// Runs `callable` once on the GUI thread, `delay` from now.
///
/// Holds what the callable holds until it has run. Runs nothing when the application is going
/// down, and nothing without an application. May be called from any thread.
void afterDelay(std::chrono::milliseconds delay, std::function<void()> callable);

} // namespace kit
