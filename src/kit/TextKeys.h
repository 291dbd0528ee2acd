// SPDX-License-Identifier: MIT
#pragma once

class QKeyEvent;

namespace kit {

/// Whether a key types into a text, moves in it, selects, or takes out: what belongs to a text view that has
/// the keyboard, and not to a shortcut of its window.
[[nodiscard]] bool isTextKey(const QKeyEvent &key);

/// Whether a key asks for undo or redo, by the desktop's keys, Ctrl+Shift+Z or Ctrl+Y.
[[nodiscard]] bool isHistoryKey(const QKeyEvent &key);

} // namespace kit
