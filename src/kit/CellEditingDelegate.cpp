// SPDX-License-Identifier: MIT
#include "kit/CellEditingDelegate.h"

#include "kit/DataSourceTableModel.h"
#include "kit/TextKeys.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextDocument>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolTip>

#include <limits>
#include <utility>

namespace kit {

namespace {

// What every style leaves free around the text of a cell.
constexpr int kStyleMargin = 3;
// What a line edit leaves free within its text margins.
constexpr int kFieldMargin = 2;
constexpr int kFocusMarkWidth = 3;
// Room for the caret between the chip and the text.
constexpr int kEditorMargin = 5;

// What is typed as text, or moves in it, belongs to the editor and not to a shortcut.
bool isTyping(const QKeyEvent &event)
{
    const auto commands = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    // Held together they are the third level of some keyboards, and only then a character is typed.
    const bool thirdLevel = commands == (Qt::ControlModifier | Qt::AltModifier);
    return commands == Qt::NoModifier || (thirdLevel && !event.text().isEmpty() && event.text()[0].isPrint())
        || isTextKey(event);
}

// Of the first character that has one, as text layout goes by; numbers have none.
std::optional<Qt::LayoutDirection> directionOf(const QString &text)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isPair
            = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        const char32_t character
            = isPair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : char32_t(text[at].unicode());
        at += isPair ? 1 : 0;
        switch (QChar::direction(character)) {
        case QChar::DirL:
            return Qt::LeftToRight;
        case QChar::DirR:
        case QChar::DirAL:
            return Qt::RightToLeft;
        default:
            break;
        }
    }
    return std::nullopt;
}

const DataSourceTableModel &modelOf(const QModelIndex &index)
{
    return *static_cast<const DataSourceTableModel *>(index.model());
}

} // namespace

QWidget *CellEditingDelegate::createEditor(
    QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    m_textEditor = nullptr;
    m_givenText.reset();
    const bool isText = modelOf(index).columns()[static_cast<std::size_t>(index.column())].usesTextEditor;
    QWidget *editor = isText ? createTextEditor(parent, index) : nullptr;
    if (!editor) {
        editor = createField(parent, option, index);
    }
    if (editor) {
        editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
        // Selected text stands out from its row, which has the table's selection colour already.
        const Theme &theme = inkOf(option).theme;
        QPalette selection;
        selection.setColor(QPalette::Highlight, theme.accent);
        selection.setColor(QPalette::HighlightedText, theme.accentInk);
        editor->setPalette(selection);
    }
    m_editor = editor;
    m_cell = index;
    return editor;
}

QWidget *CellEditingDelegate::createField(
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
    }
    return editor;
}

QWidget *CellEditingDelegate::createTextEditor(QWidget *parent, const QModelIndex &index) const
{
    m_textEditor = m_textEditorFactory ? m_textEditorFactory(parent) : nullptr;
    if (!m_textEditor) {
        return nullptr;
    }
    QWidget *editor = m_textEditor->widget();
    editor->setAccessibleDescription(modelOf(index).lookOf(index).chip);
    return editor;
}

void CellEditingDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (editor != m_editor || !m_textEditor) {
        QStyledItemDelegate::setEditorData(editor, index);
        return;
    }
    // The view asks whenever anything in the table changed; what is being typed stays then.
    const QString text = index.data(Qt::EditRole).toString();
    const bool isOpening = !m_givenText;
    if (isOpening || text != *m_givenText) {
        m_textEditor->setCellText(text);
        m_givenText = text;
    }
    if (isOpening) {
        m_textEditor->selectWholeText();
    }
}

void CellEditingDelegate::setModelData(
    QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    if (editor != m_editor || !m_textEditor) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    model->setData(index, m_textEditor->cellText(), Qt::EditRole);
}

void CellEditingDelegate::updateEditorGeometry(
    QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (editor == m_editor && m_textEditor) {
        placeTextEditor(option, index);
    } else {
        editor->setGeometry(option.rect.adjusted(0, 0, 0, -1));
    }
}

void CellEditingDelegate::placeTextEditor(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem cell = option;
    const CellLook look = modelOf(index).lookOf(index);
    QStyledItemDelegate::initStyleOption(&cell, index);
    dress(&cell, look);
    const QRect text = partsOfCell(cell, look, inkOf(cell)).text;
    // The line between two rows and the marks stay in sight.
    QRect place = option.rect.adjusted(0, 0, 0, -1);
    if (text.left() > place.left() + kCellMargin) {
        place.setLeft(text.left() - kEditorMargin);
    }
    if (text.right() < place.right() - kCellMargin) {
        place.setRight(text.right() + kEditorMargin);
    }
    m_textEditor->setTextPlace(
        text.left() - place.left(), place.right() - text.right(), option.rect.height());
    m_editor->setGeometry(place);
}

void CellEditingDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    // The widget itself lives until the event loop comes round; for us it is gone now.
    if (m_editor == editor) {
        m_editor.clear();
        m_textEditor = nullptr;
        m_givenText.reset();
    }
    QStyledItemDelegate::destroyEditor(editor, index);
}

bool CellEditingDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isTyping(*static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress && m_textEditor && watched == m_editor
        && leaveTextEditor(m_editor, static_cast<QKeyEvent *>(event)->key())) {
        return true;
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

// The toolkit takes a text view for one of many lines and leaves it these keys.
bool CellEditingDelegate::leaveTextEditor(QWidget *editor, int key)
{
    EndEditHint hint = NoHint;
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        hint = SubmitModelCache;
        break;
    case Qt::Key_Tab:
        hint = EditNextItem;
        break;
    case Qt::Key_Backtab:
        hint = EditPreviousItem;
        break;
    default:
        return false;
    }
    // The host hears of the edit in here, and may let go of the table.
    const QPointer<CellEditingDelegate> alive(this);
    const QPointer<QWidget> open(editor);
    Q_EMIT commitData(editor);
    if (alive && open && open == m_editor) {
        Q_EMIT closeEditor(open, hint);
    }
    return true;
}

const CellInk &CellEditingDelegate::inkOf(const QStyleOptionViewItem &option) const
{
    // All cells of a table share a palette and a font.
    const auto *view = qobject_cast<const QWidget *>(option.widget);
    const QPalette palette = view ? view->palette() : option.palette;
    const QFont font = view ? view->font() : option.font;
    if (!m_ink || m_inkPalette != palette.cacheKey() || m_inkFont != font) {
        m_ink.emplace(palette, font);
        m_inkPalette = palette.cacheKey();
        m_inkFont = font;
    }
    return *m_ink;
}

void CellEditingDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    dress(option, modelOf(index).lookOf(index));
}

void CellEditingDelegate::dress(QStyleOptionViewItem *option, const CellLook &look) const
{
    // The row is what is selected; the style's frame round one cell of it would say otherwise.
    option->state &= ~QStyle::State_HasFocus;
    option->textElideMode = Qt::ElideRight;
    if (look.quiet || look.current) {
        const CellInk &ink = inkOf(*option);
        const QColor colour = look.current ? ink.theme.accentText : ink.theme.quietText;
        option->palette.setColor(QPalette::Text, colour);
        option->palette.setColor(QPalette::HighlightedText, colour);
        if (look.current) {
            option->font = ink.currentFont;
            option->fontMetrics = QFontMetrics(ink.currentFont);
        }
    }
    // A line of Hebrew begins at its own side in an English window, and the other way round.
    option->direction = directionOf(option->text).value_or(option->direction);
}

void CellEditingDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem cell = option;
    // Asked once for each: the value by the base, the look here.
    const CellLook look = modelOf(index).lookOf(index);
    QStyledItemDelegate::initStyleOption(&cell, index);
    dress(&cell, look);
    const CellInk &ink = inkOf(option);
    const CellParts parts = partsOfCell(cell, look, ink);
    // The ground goes from edge to edge, the text keeps a distance from them.
    if (option.state & QStyle::State_Selected) {
        painter->fillRect(option.rect, option.palette.highlight());
    }
    cell.rect = parts.text.adjusted(-kStyleMargin, 0, kStyleMargin, 0);
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, option.widget);
    cell.rect = option.rect;
    paintMarks(painter, cell, parts, look, ink);
    painter->save();
    const auto *view = qobject_cast<const QAbstractItemView *>(option.widget);
    if (index.column() == 0 && (option.state & QStyle::State_Selected) && view && view->hasFocus()) {
        // Where the keys go: seen without telling one colour from another.
        painter->fillRect(
            QRect(option.rect.topLeft(), QSize(kFocusMarkWidth, option.rect.height() - 1)), ink.theme.focus);
    }
    painter->fillRect(QRect(option.rect.bottomLeft(), QSize(option.rect.width(), 1)), ink.theme.line);
    if (index.column() > 0 && view && view->hasFocus() && index == view->currentIndex()) {
        // Which cell the key for editing opens.
        painter->setPen(ink.theme.focus);
        painter->setBrush(Qt::NoBrush);
        painter->setRenderHint(QPainter::Antialiasing);
        painter->drawRoundedRect(
            QRectF(option.rect).adjusted(2.5, 2.5, -2.5, -3.5), kSpacingTiny, kSpacingTiny);
    }
    painter->restore();
}

bool CellEditingDelegate::helpEvent(
    QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (!event || event->type() != QEvent::ToolTip || !index.isValid()
        || !index.data(Qt::ToolTipRole).toString().isEmpty()) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    // What has no room in its cell is read here.
    const QString text = index.data(Qt::DisplayRole).toString();
    const bool isCut = option.fontMetrics.horizontalAdvance(text) > option.rect.width() - 2 * kCellMargin;
    QToolTip::showText(event->globalPos(), isCut ? Qt::convertFromPlainText(text) : QString(), view,
        view->visualRect(index));
    return true;
}

} // namespace kit
