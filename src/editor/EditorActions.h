// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/EditorKeys.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtGui/QAction>
#include <QtWidgets/QMenu>

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace editor {

/// The commands as actions: one for each, with its keys, for the line editor's view, its context menu and the
/// host's menus.
///
/// While the view was taken from the screen no command can act, but for the help. The keys work while the
/// view is on screen in the active window and the keyboard is in it, in its neighbours within the component,
/// or nowhere; never while it is elsewhere in the host's window. What is typed into a text belongs to the
/// text.
class EditorActions : public QObject
{
    Q_OBJECT

public:
    using Perform = std::function<void(EditorCommand)>;
    using CanPerform = std::function<bool(EditorCommand)>;

    EditorActions(Perform perform, CanPerform canPerform);

    /// Whoever performs is gone: from now on the actions do nothing. They may be in use further up the stack.
    void letGo() { m_isLetGo = true; }
    /// From now on the keys work in `view`'s window.
    void attachTo(QWidget *view);
    void setKeys(const EditorKeys &keys);
    [[nodiscard]] QAction *action(EditorCommand command) const { return m_actions.at(command); }
    /// Nothing for an action that is none of these.
    [[nodiscard]] std::optional<EditorCommand> commandOf(const QAction *action) const;
    /// Asks again which commands can act. Cheap where nothing changed.
    void refresh();
    /// What the menu says behind "Undo" and "Redo"; empty for nothing.
    void setStepNames(const QString &undo, const QString &redo);
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// A menu of all commands in groups. `validate` is asked for each whenever it opens.
    [[nodiscard]] std::unique_ptr<QMenu> buildMenu(std::function<bool(const QAction *)> validate);

private:
    void add(EditorCommand command);
    void addTo(QMenu &menu, std::initializer_list<EditorCommand> commands) const;
    void validateWhenShown(QMenu &menu, const std::function<bool(const QAction *)> &validate);
    [[nodiscard]] bool hasKeyboard() const;
    [[nodiscard]] bool isKeyOfFocus(EditorCommand command) const;

    Perform m_perform;
    CanPerform m_canPerform;
    std::map<EditorCommand, QAction *> m_actions;
    QPointer<QWidget> m_view;
    bool m_hadKeyboard = true;
    bool m_isLetGo = false;
    // Another view has the place of ours: what nobody sees is not to be changed.
    bool m_isAway = false;
};

} // namespace editor
