// SPDX-License-Identifier: MIT
#include "editor/KeyListDialog.h"

#include "editor/CommandTitles.h"
#include "kit/Theme.h"
#include "resources/Localized.h"
#include "resources/TQLrcUtils.h"

#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace editor {

namespace {

enum Column { kTitle, kKeys, kColumns };
// What the search looks through: the texts, and the keys as the toolkit names them.
constexpr int kSearched = Qt::UserRole;
constexpr int kRowsShown = 22;
constexpr int kRowSpacing = kit::kSpacingTiny + 2;

class RoomyRows : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(kit::kSpacingSmall, kRowSpacing);
    }
};

QTreeWidgetItem *groupItem(QTreeWidget &tree, CommandGroup group)
{
    const QString title = groupTitle(group);
    for (int index = 0; index < tree.topLevelItemCount(); ++index) {
        if (tree.topLevelItem(index)->text(kTitle) == title) {
            return tree.topLevelItem(index);
        }
    }
    auto *item = new QTreeWidgetItem(&tree, {title});
    item->setFlags(Qt::ItemIsEnabled);
    item->setFirstColumnSpanned(true);
    item->setExpanded(true);
    return item;
}

// Enter of the keypad beside the other one need not be told.
bool isSecondEnter(const QKeySequence &key, const QList<QKeySequence> &keys)
{
    return key[0].key() == Qt::Key_Enter
        && keys.contains(QKeySequence(key[0].keyboardModifiers() | Qt::Key_Return));
}

void addCommand(QTreeWidgetItem &group, EditorCommand command, const QList<QKeySequence> &keys)
{
    QStringList shown;
    QStringList named;
    for (const QKeySequence &key : keys) {
        if (!isSecondEnter(key, keys)) {
            shown.append(keyText(key));
        }
        named.append(key.toString(QKeySequence::NativeText));
    }
    const QString title = commandTitle(command);
    auto *item = new QTreeWidgetItem(&group, {title, shown.join(QStringLiteral(",  "))});
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren);
    if (shown.isEmpty()) {
        item->setText(kKeys, QStringLiteral("–"));
        item->setData(kKeys, Qt::AccessibleTextRole, localized(QStringLiteral("no key")));
    }
    item->setData(
        kTitle, kSearched, (QStringList{group.text(kTitle), title} + shown + named).join(QLatin1Char(' ')));
}

bool matches(const QTreeWidgetItem &item, const QStringList &words)
{
    const QString searched = item.data(kTitle, kSearched).toString();
    return std::all_of(words.begin(), words.end(),
        [&searched](const QString &word) { return searched.contains(word, Qt::CaseInsensitive); });
}

QTreeWidgetItem *firstShownCommand(QTreeWidget &tree)
{
    for (QTreeWidgetItemIterator item(&tree, QTreeWidgetItemIterator::NotHidden); *item != nullptr; ++item) {
        if ((*item)->parent() != nullptr) {
            return *item;
        }
    }
    return nullptr;
}

} // namespace

void KeyListDialog::run(const EditorKeys &keys, QWidget *parent)
{
    QWidget *const window = parent != nullptr ? parent->window() : nullptr;
    auto *dialog = window != nullptr
        ? window->findChild<KeyListDialog *>(QString(), Qt::FindDirectChildrenOnly)
        : nullptr;
    if (dialog != nullptr) {
        dialog->setKeys(keys);
    } else {
        dialog = new KeyListDialog(keys, window);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    dialog->show();
    dialog->activateWindow();
}

KeyListDialog::KeyListDialog(const EditorKeys &keys, QWidget *parent)
    : QDialog(parent), m_search(new QLineEdit(this)), m_tree(new QTreeWidget(this)),
      m_nothing(new QLabel(localized(QStringLiteral("No command is called that.")), this))
{
    setWindowTitle(localized(QStringLiteral("Keys of the editor")));
    buildSearch();
    buildTree();
    m_nothing->setAlignment(Qt::AlignCenter);
    m_nothing->hide();
    auto *buttons = new QDialogButtonBox(this);
    auto *close = buttons->addButton(localized(QStringLiteral("Close")), QDialogButtonBox::RejectRole);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(
        kit::kSpacingLarge, kit::kSpacingLarge, kit::kSpacingLarge, kit::kSpacingLarge);
    column->setSpacing(kit::kSpacing);
    column->addWidget(m_search);
    column->addWidget(m_tree, 1);
    column->addWidget(m_nothing, 1);
    column->addWidget(buttons);
    setKeys(keys);
    applyTheme();
    resize(fittingSize());
    m_search->setFocus();
}

void KeyListDialog::buildSearch()
{
    m_search->setPlaceholderText(localized(QStringLiteral("Search for a command or a key")));
    m_search->setAccessibleName(localized(QStringLiteral("Search commands and keys")));
    m_search->setClearButtonEnabled(true);
    m_search->addAction(TQLrcUtils::iconNamed(QStringLiteral("lyric_search")), QLineEdit::LeadingPosition);
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, &KeyListDialog::filter);
}

void KeyListDialog::buildTree()
{
    m_tree->setColumnCount(kColumns);
    m_tree->setHeaderLabels({localized(QStringLiteral("Command")), localized(QStringLiteral("Keys"))});
    m_tree->setAccessibleName(localized(QStringLiteral("Commands and their keys")));
    m_tree->setRootIsDecorated(false);
    m_tree->setItemsExpandable(false);
    m_tree->setExpandsOnDoubleClick(false);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tree->setIndentation(kit::kSpacing);
    m_tree->setTextElideMode(Qt::ElideNone);
    m_tree->header()->setSectionsMovable(false);
    m_tree->setItemDelegate(new RoomyRows(m_tree));
    m_tree->header()->setSectionResizeMode(QHeaderView::Interactive);
    m_tree->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
}

void KeyListDialog::setKeys(const EditorKeys &keys)
{
    m_tree->clear();
    for (int group = 0; group <= static_cast<int>(CommandGroup::Lyric); ++group) {
        groupItem(*m_tree, static_cast<CommandGroup>(group));
    }
    for (const EditorCommand command : EditorKeys::allCommands()) {
        addCommand(*groupItem(*m_tree, commandGroup(command)), command, keys.keys(command));
    }
    applyTheme();
    fitColumns();
    filter(m_search->text());
}

// Where both columns do not fit there is a scroll bar: no word is cut.
void KeyListDialog::fitColumns()
{
    m_tree->header()->setMinimumSectionSize(0);
    m_tree->header()->setStretchLastSection(false);
    m_tree->resizeColumnToContents(kTitle);
    m_tree->resizeColumnToContents(kKeys);
    m_tree->header()->setMinimumSectionSize(m_tree->columnWidth(kKeys));
    m_tree->header()->setStretchLastSection(true);
}

void KeyListDialog::filter(const QString &words)
{
    const QStringList wanted = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    bool isAnything = false;
    for (int index = 0; index < m_tree->topLevelItemCount(); ++index) {
        QTreeWidgetItem *group = m_tree->topLevelItem(index);
        bool isAnyHere = false;
        for (int child = 0; child < group->childCount(); ++child) {
            const bool isShown = matches(*group->child(child), wanted);
            group->child(child)->setHidden(!isShown);
            isAnyHere = isAnyHere || isShown;
        }
        group->setHidden(!isAnyHere);
        isAnything = isAnything || isAnyHere;
    }
    m_tree->setVisible(isAnything);
    m_nothing->setVisible(!isAnything);
}

// From the field the arrow keys lead into the list, as they do in every field with one below it.
bool KeyListDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_search && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if ((key == Qt::Key_Down || key == Qt::Key_PageDown) && m_tree->isVisible()) {
            if (m_tree->currentItem() == nullptr || m_tree->currentItem()->isHidden()) {
                m_tree->setCurrentItem(firstShownCommand(*m_tree));
            }
            m_tree->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void KeyListDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        applyTheme();
    } else if (event->type() == QEvent::FontChange) {
        applyTheme();
        fitColumns();
    }
}

void KeyListDialog::applyTheme()
{
    const kit::Theme theme(this);
    const QFont heading = kit::textFont(font(), kit::TextSize::Small, QFont::DemiBold);
    for (int index = 0; index < m_tree->topLevelItemCount(); ++index) {
        QTreeWidgetItem *group = m_tree->topLevelItem(index);
        group->setFont(kTitle, heading);
        group->setForeground(kTitle, theme.accentText);
        for (int child = 0; child < group->childCount(); ++child) {
            group->child(child)->setForeground(kKeys, theme.quietText);
        }
    }
    QPalette quiet;
    quiet.setColor(QPalette::WindowText, theme.quietText);
    m_nothing->setPalette(quiet);
}

// As wide as the longest texts of the user's language, as far as the screen allows.
QSize KeyListDialog::fittingSize() const
{
    const int texts = m_tree->columnWidth(kTitle) + m_tree->header()->minimumSectionSize();
    const int frame
        = 2 * m_tree->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, m_tree);
    const int rows = (fontMetrics().height() + kRowSpacing) * kRowsShown;
    const QSize around = minimumSizeHint() - m_tree->minimumSizeHint();
    const QSize wanted(texts + frame + 2 * kit::kSpacingLarge + kit::kSpacingHuge, rows + around.height());
    return wanted.boundedTo(screen()->availableSize() * 0.9);
}

} // namespace editor
