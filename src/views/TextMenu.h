// SPDX-License-Identifier: MIT
#pragma once

class QContextMenuEvent;
class QTextEdit;

namespace views {

/// The menu of a text, in the component's language: cut, copy, paste, select all, and the actions that were
/// added to the view.
void showTextMenu(QTextEdit &view, const QContextMenuEvent &event);

} // namespace views
