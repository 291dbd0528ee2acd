// SPDX-License-Identifier: MIT
#pragma once

class RBMenuDisabledTextView;

namespace views {

/// Tells screen readers of every RBMenuDisabledTextView: a document whose value is the line that is
/// sung. Installed once per process; further calls do nothing.
void installLyricAccessible();

/// Says that another line is sung now, if anybody listens.
void tellOfCurrentLine(RBMenuDisabledTextView *view);

} // namespace views
