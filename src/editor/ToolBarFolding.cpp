// SPDX-License-Identifier: MIT
#include "editor/ToolBarFolding.h"

#include "kit/Separator.h"
#include "kit/Theme.h"
#include "resources/TQLrcUtils.h"

#include <QtGui/QAction>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolButton>

#include <algorithm>

namespace editor {

namespace {

// Below these widths, in logical pixels, the words go, and the groups fold into the menu, whatever
// would still have room.
constexpr int kWidthForWords = 760;
constexpr int kWidthForGroups = 560;
constexpr int kRoomyToolWidth = 64;
constexpr int kPictureWidth = 30;
// Between the tools; pictures without words stand closer.
constexpr int kSpacing = 4;
constexpr int kPictureSpacing = 2;

} // namespace

ToolBarFolding::ToolBarFolding(QWidget *toolBar) : QObject(toolBar), m_toolBar(toolBar)
{
    find();
    buildMenu();
}

void ToolBarFolding::find()
{
    m_stamp = m_toolBar->findChild<QWidget *>(QStringLiteral("btnInsertTime"));
    m_stampKey = m_toolBar->findChild<QLabel *>(QStringLiteral("lblStampKey"));
    m_more = m_toolBar->findChild<QToolButton *>(QStringLiteral("btnMore"));
    m_preview = m_toolBar->findChild<QToolButton *>(QStringLiteral("btnPreview"));
    const QLayout *layout = m_toolBar->layout();
    for (int index = 0; index < layout->count(); ++index) {
        QWidget *widget = layout->itemAt(index)->widget();
        if (auto *separator = qobject_cast<kit::Separator *>(widget)) {
            m_separators.emplace_back(separator);
        } else if (auto *tool = qobject_cast<QToolButton *>(widget);
                   tool && tool != m_more && tool != m_preview) {
            m_tools.emplace_back(tool);
        }
    }
}

void ToolBarFolding::buildMenu()
{
    if (!m_more) {
        return;
    }
    m_more->setIcon(TQLrcUtils::iconNamed(QStringLiteral("toolbar_more")));
    m_menu = new QMenu(m_more);
    m_menu->setToolTipsVisible(true);
    const QLayout *layout = m_toolBar->layout();
    for (int index = 0; index < layout->count(); ++index) {
        QWidget *widget = layout->itemAt(index)->widget();
        auto *tool = qobject_cast<QToolButton *>(widget);
        if (qobject_cast<kit::Separator *>(widget)) {
            m_menu->addSeparator();
        } else if (std::find(m_tools.begin(), m_tools.end(), tool) != m_tools.end()) {
            QAction *action = m_menu->addAction(tool->text());
            action->setIconVisibleInMenu(true);
            // The button's own click: whatever it does, it does from here too.
            connect(action, &QAction::triggered, tool, &QAbstractButton::click);
        }
    }
    connect(m_menu, &QMenu::aboutToShow, this, &ToolBarFolding::updateMenu);
    updateMenu();
    m_more->setMenu(m_menu);
}

void ToolBarFolding::updateMenu()
{
    auto tool = m_tools.begin();
    for (QAction *action : m_menu->actions()) {
        if (action->isSeparator() || tool == m_tools.end()) {
            continue;
        }
        if (const QToolButton *button = *tool++) {
            action->setText(button->text());
            action->setIcon(button->icon());
            action->setToolTip(button->toolTip());
            action->setEnabled(button->isEnabled());
        }
    }
}

void ToolBarFolding::fit(int width)
{
    if (QString now = whatWasMeasured(); now != m_measured) {
        m_measured = std::move(now);
        measure();
    }
    apply(levelFor(width));
}

// What the needs depend on.
QString ToolBarFolding::whatWasMeasured() const
{
    QString all = m_toolBar->style()->objectName() + m_toolBar->font().toString();
    for (const auto &tool : m_tools) {
        all += tool ? tool->text() + tool->font().toString() : QString();
    }
    for (const auto *label : m_stamp ? m_stamp->findChildren<QLabel *>() : QList<QLabel *>()) {
        all += QString::number(label->sizeHint().width()) + QLatin1Char(' ');
    }
    return all + (m_preview && !m_preview->isHidden() ? m_preview->text() : QString());
}

void ToolBarFolding::measure()
{
    m_needs.clear();
    for (int level = 0; level <= static_cast<int>(Level::MenuWithoutKey); ++level) {
        apply(static_cast<Level>(level));
        m_needs.push_back(m_toolBar->layout()->totalMinimumSize().width());
    }
    m_toolBar->setMinimumWidth(m_needs.back());
}

ToolBarFolding::Level ToolBarFolding::levelFor(int width) const
{
    auto level = Level::Roomy;
    if (width < kWidthForGroups) {
        level = Level::Menu;
    } else if (width < kWidthForWords) {
        level = Level::Pictures;
    }
    while (level != Level::MenuWithoutKey && m_needs[static_cast<std::size_t>(level)] > width) {
        level = static_cast<Level>(static_cast<int>(level) + 1);
    }
    return level;
}

// A minimum of its own would let a word be cut.
int ToolBarFolding::minimumToolWidth(const QToolButton &tool, Level level)
{
    if (level == Level::Roomy) {
        return std::max(kRoomyToolWidth, tool.sizeHint().width());
    }
    return level <= Level::WordsWithoutKey ? 0 : kPictureWidth;
}

void ToolBarFolding::apply(Level level)
{
    const bool words = level <= Level::WordsWithoutKey;
    const bool folded = level >= Level::Menu;
    const bool key
        = level == Level::Roomy || level == Level::Words || level == Level::Pictures || level == Level::Menu;
    m_toolBar->layout()->setSpacing(words ? kSpacing : kPictureSpacing);
    for (const auto &tool : m_tools) {
        if (tool) {
            tool->setToolButtonStyle(words ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
            tool->setMinimumWidth(minimumToolWidth(*tool, level));
            tool->setVisible(!folded);
        }
    }
    for (const auto &separator : m_separators) {
        if (separator) {
            separator->setVisible(!folded);
        }
    }
    if (m_more) {
        m_more->setVisible(folded);
    }
    if (m_stampKey) {
        m_stampKey->setVisible(key);
    }
    if (m_stamp) {
        // Its size is that of its labels, and only events would tell the toolbar in time.
        m_stamp->updateGeometry();
    }
    applyToPreview(words);
}

void ToolBarFolding::applyToPreview(bool words)
{
    if (!m_preview) {
        return;
    }
    if (m_preview->icon().isNull()) {
        m_preview->setToolButtonStyle(Qt::ToolButtonTextOnly);
    } else {
        m_preview->setToolButtonStyle(words ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    }
}

} // namespace editor
