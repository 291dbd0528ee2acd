// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/EditorKeys.h"

#include <QtCore/QString>

namespace editor {

/// What commands belong together, in the order in which a list shows them.
enum class CommandGroup { Stamping, Playing, Lines, Tags, Editing, Lyric };

/// The command as a menu and a list show it, in the user's language; an ellipsis at the end where
/// it asks for more.
[[nodiscard]] QString commandTitle(EditorCommand command);
[[nodiscard]] CommandGroup commandGroup(EditorCommand command);
/// In the user's language.
[[nodiscard]] QString groupTitle(CommandGroup group);

/// `key` as it is printed on a keyboard of the user's language ("Strg+Entf"): the component's words,
/// not those of the toolkit, which speaks the user's language only where the host taught it to.
/// On a Mac the signs of that platform.
[[nodiscard]] QString keyText(const QKeySequence &key);
/// `text` with the first key of `command` in brackets behind it, "Stamp (Enter)"; alone when no key
/// runs the command.
[[nodiscard]] QString toolTipWithKey(const QString &text, const EditorKeys &keys, EditorCommand command);

} // namespace editor
