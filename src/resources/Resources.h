// SPDX-License-Identifier: MIT
#pragma once

namespace resources {

/// Makes forms, images and catalogues reachable under ":/tqlrceditor", and has loaded forms
/// speak the user's language. Before the first use of any of them; further calls do nothing.
void ensureLoaded();

} // namespace resources
