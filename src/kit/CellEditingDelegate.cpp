// SPDX-License-Identifier: MIT
#include "kit/CellEditingDelegate.h"

#include "kit/DataSourceTableModel.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QLineEdit>

#include <limits>

namespace kit {

namespace {

// What every style leaves free around the text of a cell.
constexpr int kStyleMargin = 3;
// What a line edit leaves free within its text margins.
constexpr int kFieldMargin = 2;
constexpr int kFocusMarkWidth = 3;

// What is typed as text, or moves in it, belongs to the editor and not to a shortcut.
bool isTyping(const QKeyEvent &event)
{
    const auto commands = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    // Held together they are the third level of some keyboards, and only then a character is typed.
    const bool thirdLevel = commands == (Qt::ControlModifier | Qt::AltModifier);
    return commands == Qt::NoModifier || (thirdLevel && !event.text().isEmpty() && event.text()[0].isPrint());
}

} // namespace

QWidget *CellEditingDelegate::createEditor(
    QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto *field = qobject_cast<QLineEdit *>(editor)) {
        field->setFrame(false);
        // Where the text of the cell stands, the editor's has to stand too.
        field->setTextMargins(kCellMargin - kFieldMargin, 0, kCellMargin - kFieldMargin, 0);
        // The toolkit's own limit would cut a long line that was only looked at.
        field->setMaxLength(std::numeric_limits<int>::max());
        field->setAlignment(static_cast<Qt::Alignment>(index.data(Qt::TextAlignmentRole).toInt()));
        field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    }
    m_editor = editor;
    m_cell = index;
    return editor;
}

void CellEditingDelegate::updateEditorGeometry(
    QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    Q_UNUSED(index)
    editor->setGeometry(option.rect.adjusted(0, 0, 0, -1));
}

void CellEditingDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    // The widget itself lives until the event loop comes round; for us it is gone now.
    if (m_editor == editor) {
        m_editor.clear();
    }
    QStyledItemDelegate::destroyEditor(editor, index);
}

bool CellEditingDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isTyping(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

const Theme &CellEditingDelegate::themeOf(const QPalette &palette) const
{
    // Mixing the colours is dear for one cell, and all cells of a table share a palette.
    if (!m_theme || m_themeKey != palette.cacheKey()) {
        m_theme.emplace(palette);
        m_themeKey = palette.cacheKey();
    }
    return *m_theme;
}

void CellEditingDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // The row is what is selected; a frame round one cell of it would say otherwise.
    option->state &= ~QStyle::State_HasFocus;
    option->textElideMode = Qt::ElideRight;
    if (index.data(kQuietRole).toBool()) {
        const QColor quiet = themeOf(option->palette).quietText;
        option->palette.setColor(QPalette::Text, quiet);
        option->palette.setColor(QPalette::HighlightedText, quiet);
    }
    // A line of Hebrew or Arabic reads from its own side, also in a window of another direction.
    if (option->text.isRightToLeft() && option->direction == Qt::LeftToRight) {
        option->direction = Qt::RightToLeft;
        option->displayAlignment |= Qt::AlignAbsolute;
    }
}

void CellEditingDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    // The ground goes from edge to edge, the text keeps a distance from them.
    if (option.state & QStyle::State_Selected) {
        painter->fillRect(option.rect, option.palette.highlight());
    }
    QStyleOptionViewItem inner = option;
    inner.rect.adjust(kCellMargin - kStyleMargin, 0, kStyleMargin - kCellMargin, 0);
    QStyledItemDelegate::paint(painter, inner, index);
    painter->save();
    const auto *view = qobject_cast<const QAbstractItemView *>(option.widget);
    if (index.column() == 0 && (option.state & QStyle::State_Selected) && view && view->hasFocus()) {
        // Where the keys go: seen without telling one colour from another.
        painter->fillRect(QRect(option.rect.topLeft(), QSize(kFocusMarkWidth, option.rect.height() - 1)),
            themeOf(option.palette).focus);
    }
    painter->setPen(QPen(themeOf(option.palette).line, 0));
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->restore();
}

} // namespace kit
