// SPDX-License-Identifier: MIT
#include "editor/EditorActions.h"

#include "editor/CommandTitles.h"
#include "resources/Localized.h"

#include <QtCore/QEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>

#include <initializer_list>
#include <utility>

namespace editor {

namespace {

// The operation that a command runs; by it a menu item is told which it is.
QString operationName(EditorCommand command)
{
    static const std::map<EditorCommand, const char *> names = {
        {EditorCommand::Stamp, "insertTimeTag"},
        {EditorCommand::StampAndStay, "insertTimeTagAndStay"},
        {EditorCommand::StepBack, "stepBack"},
        {EditorCommand::NudgeBack10, "nudgeBack10"},
        {EditorCommand::NudgeForward10, "nudgeForward10"},
        {EditorCommand::NudgeBack100, "nudgeBack100"},
        {EditorCommand::NudgeForward100, "nudgeForward100"},
        {EditorCommand::NudgeBack1000, "nudgeBack1000"},
        {EditorCommand::NudgeForward1000, "nudgeForward1000"},
        {EditorCommand::PlayFromLine, "playFromLine"},
        {EditorCommand::PlayOrPause, "spaceKeyDown"},
        {EditorCommand::InsertLineBefore, "insertLineBefore"},
        {EditorCommand::InsertLineAfter, "insertLineAfter"},
        {EditorCommand::DuplicateLine, "duplicateLine"},
        {EditorCommand::DeleteLines, "deleteClick"},
        {EditorCommand::DeleteAllLines, "deleteAllClick"},
        {EditorCommand::MoveUp, "moveLinesUp"},
        {EditorCommand::MoveDown, "moveLinesDown"},
        {EditorCommand::MergeWithNext, "mergeLines"},
        {EditorCommand::SplitAtCaret, "splitLine"},
        {EditorCommand::Untag, "deleteLineTag"},
        {EditorCommand::UntagAll, "deleteAllTags"},
        {EditorCommand::MakeTitle, "insertTitleTag"},
        {EditorCommand::MakeArtist, "insertArtistTag"},
        {EditorCommand::MakeAlbum, "insertAlbumTag"},
        {EditorCommand::MakeEditedBy, "insertEditedByTag"},
        {EditorCommand::OffsetAll, "offsetClick"},
        {EditorCommand::OffsetSelection, "offsetSelectionClick"},
        {EditorCommand::RestoreAll, "restoreAllClick"},
        {EditorCommand::Copy, "copyLinesClick"},
        {EditorCommand::Paste, "pasteLinesClick"},
        {EditorCommand::PasteTextAsLines, "pasteTextAsLines"},
        {EditorCommand::SelectAll, "selectAll"},
        {EditorCommand::Undo, "undo"},
        {EditorCommand::Redo, "redo"},
        {EditorCommand::ShowSource, "showSource"},
        {EditorCommand::OpenLyricFile, "openLyricFile"},
        {EditorCommand::SearchLyric, "searchLyricClick"},
        {EditorCommand::Preview, "previewClicked"},
        {EditorCommand::Help, "helpClick"},
        {EditorCommand::ShowKeys, "showKeys"},
    };
    const auto found = names.find(command);
    return found == names.end() ? QString() : QString::fromLatin1(found->second);
}

// Held down, these go on; the others are done once for each press.
bool repeats(EditorCommand command)
{
    switch (command) {
    case EditorCommand::NudgeBack10:
    case EditorCommand::NudgeForward10:
    case EditorCommand::NudgeBack100:
    case EditorCommand::NudgeForward100:
    case EditorCommand::NudgeBack1000:
    case EditorCommand::NudgeForward1000:
    case EditorCommand::MoveUp:
    case EditorCommand::MoveDown:
    case EditorCommand::Undo:
    case EditorCommand::Redo:
        return true;
    default:
        return false;
    }
}

} // namespace

EditorActions::EditorActions(Perform perform, CanPerform canPerform)
    : m_perform(std::move(perform)), m_canPerform(std::move(canPerform))
{
    for (const EditorCommand command : EditorKeys::allCommands()) {
        add(command);
    }
    setStepNames({}, {});
    // The application's, since the keyboard may come from and go to anywhere.
    connect(qApp, &QApplication::focusChanged, this, &EditorActions::refresh);
}

void EditorActions::add(EditorCommand command)
{
    auto *action = new QAction(commandTitle(command), this);
    action->setObjectName(operationName(command));
    action->setShortcutContext(Qt::WindowShortcut);
    action->setShortcutVisibleInContextMenu(true);
    action->setAutoRepeat(repeats(command));
    action->setCheckable(command == EditorCommand::ShowSource);
    connect(action, &QAction::triggered, this, [this, command] {
        if (!m_isLetGo) {
            m_perform(command);
        }
    });
    m_actions.emplace(command, action);
}

void EditorActions::attachTo(QWidget *view)
{
    m_view = view;
    view->installEventFilter(this);
    for (const auto &[command, action] : m_actions) {
        view->addAction(action);
    }
    refresh();
}

void EditorActions::setKeys(const EditorKeys &keys)
{
    for (const auto &[command, action] : m_actions) {
        action->setShortcuts(keys.keys(command));
    }
}

std::optional<EditorCommand> EditorActions::commandOf(const QAction *action) const
{
    for (const auto &[command, known] : m_actions) {
        if (known == action || (action && action->objectName() == known->objectName())) {
            return command;
        }
    }
    return std::nullopt;
}

void EditorActions::refresh()
{
    if (m_isLetGo) {
        return;
    }
    const bool isOurs = hasKeyboard();
    m_hadKeyboard = isOurs;
    for (const auto &[command, action] : m_actions) {
        const bool isHere = !m_isAway || command == EditorCommand::Help;
        action->setEnabled(isOurs && isHere && !isKeyOfFocus(command) && m_canPerform(command));
    }
}

bool EditorActions::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_view && (event->type() == QEvent::Show || event->type() == QEvent::Hide)) {
        m_isAway = event->type() == QEvent::Hide;
        refresh();
    }
    return QObject::eventFilter(watched, event);
}

bool EditorActions::hasKeyboard() const
{
    const QWidget *focus = QApplication::focusWidget();
    if (qobject_cast<const QMenuBar *>(focus) || qobject_cast<const QMenu *>(focus)) {
        // A menu has the keyboard for as long as something is chosen from it, for whoever had it before.
        return m_hadKeyboard;
    }
    if (!m_view || !focus || m_view->isAncestorOf(focus)) {
        return true;
    }
    const QWidget *component = m_view->parentWidget();
    return component && component->isAncestorOf(focus);
}

bool EditorActions::isKeyOfFocus(EditorCommand command) const
{
    // A button is pressed by the space bar.
    return command == EditorCommand::PlayOrPause
        && qobject_cast<const QAbstractButton *>(QApplication::focusWidget());
}

void EditorActions::setStepNames(const QString &undo, const QString &redo)
{
    const auto title = [](EditorCommand command, const QString &with, const QString &name) {
        return name.isEmpty() ? commandTitle(command) : with.arg(name);
    };
    action(EditorCommand::Undo)
        ->setText(title(EditorCommand::Undo, localized(QStringLiteral("Undo %1")), undo));
    action(EditorCommand::Redo)
        ->setText(title(EditorCommand::Redo, localized(QStringLiteral("Redo %1")), redo));
}

void EditorActions::addTo(QMenu &menu, std::initializer_list<EditorCommand> commands) const
{
    for (const EditorCommand command : commands) {
        menu.addAction(action(command));
    }
}

std::unique_ptr<QMenu> EditorActions::buildMenu(std::function<bool(const QAction *)> validate)
{
    using enum EditorCommand;
    auto menu = std::make_unique<QMenu>();
    addTo(*menu, {Undo, Redo});
    menu->addSeparator();
    addTo(*menu, {Copy, Paste, PasteTextAsLines, SelectAll});
    menu->addSeparator();
    addTo(*menu, {Stamp, StampAndStay, StepBack, PlayFromLine, PlayOrPause});
    QMenu *times = menu->addMenu(localized(QStringLiteral("Times")));
    addTo(*times,
        {NudgeBack10, NudgeForward10, NudgeBack100, NudgeForward100, NudgeBack1000, NudgeForward1000});
    times->addSeparator();
    addTo(*times, {OffsetSelection, OffsetAll});
    menu->addSeparator();
    addTo(*menu, {InsertLineBefore, InsertLineAfter, DuplicateLine, MoveUp, MoveDown, MergeWithNext});
    addTo(*menu, {SplitAtCaret});
    menu->addSeparator();
    QMenu *tags = menu->addMenu(localized(QStringLiteral("Tag")));
    addTo(*tags, {MakeTitle, MakeArtist, MakeAlbum, MakeEditedBy});
    addTo(*menu, {Untag, UntagAll});
    menu->addSeparator();
    addTo(*menu, {DeleteLines, DeleteAllLines, RestoreAll});
    menu->addSeparator();
    addTo(*menu, {OpenLyricFile, SearchLyric, ShowSource, Preview});
    menu->addSeparator();
    addTo(*menu, {ShowKeys, Help});
    for (QMenu *part : {menu.get(), times, tags}) {
        validateWhenShown(*part, validate);
    }
    // Keys may do what the menu does not offer: the first stamp makes the first line.
    connect(menu.get(), &QMenu::aboutToHide, this, &EditorActions::refresh);
    return menu;
}

void EditorActions::validateWhenShown(QMenu &menu, const std::function<bool(const QAction *)> &validate)
{
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu, validate] {
        for (QAction *item : menu.actions()) {
            if (commandOf(item) && !m_isLetGo) {
                item->setEnabled(validate(item));
            }
        }
    });
}

} // namespace editor
