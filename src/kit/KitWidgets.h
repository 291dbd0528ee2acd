// SPDX-License-Identifier: MIT
#pragma once

namespace kit {

/// Makes the kit's own widgets known to forms, by their class names. FormLoader calls it.
void registerKitWidgets();

} // namespace kit
