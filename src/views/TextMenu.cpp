// SPDX-License-Identifier: MIT
#include "views/TextMenu.h"

#include "resources/Localized.h"

#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QMenu>
#include <QtWidgets/QTextEdit>

namespace views {

void showTextMenu(QTextEdit &view, const QContextMenuEvent &event)
{
    // Without a loop of its own: the view may go while it is open.
    auto *menu = new QMenu(&view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&view, menu](const QString &text, bool isEnabled, auto operation) {
        QAction *action = menu->addAction(text, &view, operation);
        action->setEnabled(isEnabled);
        return action;
    };
    const bool hasSelection = view.textCursor().hasSelection();
    add(localized(QStringLiteral("Cut")), hasSelection, &QTextEdit::cut);
    add(localized(QStringLiteral("Copy")), hasSelection, &QTextEdit::copy);
    add(localized(QStringLiteral("Paste")), view.canPaste(), &QTextEdit::paste);
    menu->addSeparator();
    add(localized(QStringLiteral("Select all")), !view.document()->isEmpty(), &QTextEdit::selectAll)
        ->setObjectName(QStringLiteral("select-all"));
    if (!view.actions().isEmpty()) {
        menu->addSeparator();
        menu->addActions(view.actions());
    }
    const bool isByKey = event.reason() == QContextMenuEvent::Keyboard;
    menu->popup(isByKey ? view.viewport()->mapToGlobal(view.cursorRect().bottomLeft()) : event.globalPos());
}

} // namespace views
