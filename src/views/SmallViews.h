// SPDX-License-Identifier: MIT
#pragma once

namespace views {

/// Makes the text views known to forms by their class names. Further calls do nothing.
void registerSmallViews();

} // namespace views
