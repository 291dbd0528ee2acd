// SPDX-License-Identifier: MIT
#include "kit/DataSourceTableModel.h"

#include "kit/FormLoader.h"
#include "kit/MyTableView.h"

#include <QtGui/QTextDocument>

#include <algorithm>
#include <iterator>
#include <utility>

namespace kit {

namespace {

// A line of a million characters would be laid out at every paint; nobody sees more than this.
constexpr qsizetype kLongestShownText = 2000;

QString capped(QString text)
{
    if (text.size() > kLongestShownText) {
        text.truncate(kLongestShownText);
        text.append(QChar(u'…'));
    }
    return text;
}

// A tooltip takes what looks like markup for markup.
QString asPlainTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

QString description(const CellLook &look)
{
    const QString current
        = look.current ? FormLoader::translated(QStringLiteral("The line that is heard now")) : QString();
    return look.problem.isEmpty() || current.isEmpty() ? look.problem + current
                                                       : look.problem + QLatin1String(". ") + current;
}

} // namespace

DataSourceTableModel::DataSourceTableModel(MyTableView *tableView)
    : QAbstractTableModel(tableView), m_tableView(tableView)
{ }

void DataSourceTableModel::setDataSource(const std::weak_ptr<TableDataSource> &dataSource)
{
    m_dataSource = dataSource;
}

void DataSourceTableModel::replaceColumnsFrom(int first, std::vector<TableColumn> columns)
{
    const int count = static_cast<int>(m_columns.size());
    first = std::clamp(first, 0, count);
    if (first < count) {
        beginRemoveColumns({}, first, count - 1);
        m_columns.erase(m_columns.begin() + first, m_columns.end());
        endRemoveColumns();
    }
    if (!columns.empty()) {
        beginInsertColumns({}, first, first + static_cast<int>(columns.size()) - 1);
        std::move(columns.begin(), columns.end(), std::back_inserter(m_columns));
        endInsertColumns();
    }
}

void DataSourceTableModel::setColumnTitle(int column, const QString &title)
{
    TableColumn &changed = m_columns.at(static_cast<std::size_t>(column));
    if (changed.title == title) {
        return;
    }
    changed.title = title;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

void DataSourceTableModel::reload()
{
    const auto source = dataSource();
    const int rows = source ? std::max(0, source->numberOfRowsInTableView(m_tableView)) : 0;
    if (rows > m_rows) {
        beginInsertRows({}, m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    } else if (rows < m_rows) {
        beginRemoveRows({}, rows, m_rows - 1);
        m_rows = rows;
        endRemoveRows();
    }
    if (m_rows > 0 && !m_columns.empty()) {
        Q_EMIT dataChanged(index(0, 0), index(m_rows - 1, columnCount() - 1));
    }
}

int DataSourceTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int DataSourceTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QString DataSourceTableModel::shownText(const QModelIndex &index) const
{
    const auto source = dataSource();
    const auto &column = m_columns[static_cast<std::size_t>(index.column())];
    return source
        ? source->tableView_objectValueForTableColumn_row(m_tableView, column.identifier, index.row())
        : QString();
}

CellLook DataSourceTableModel::lookOf(const QModelIndex &index) const
{
    const auto source = dataSource();
    if (!source || !checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto &column = m_columns[static_cast<std::size_t>(index.column())];
    return source->tableView_lookOfCell(m_tableView, column.identifier, index.row());
}

// Empty where the text that is shown says all.
QString DataSourceTableModel::spokenText(const QModelIndex &index) const
{
    const QString chip = lookOf(index).chip;
    return chip.isEmpty() ? QString() : chip + QLatin1String(": ") + capped(shownText(index));
}

QVariant DataSourceTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return capped(shownText(index));
    case Qt::EditRole:
        return shownText(index);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(m_columns[static_cast<std::size_t>(index.column())].alignment);
    case Qt::ToolTipRole:
        return asPlainTip(lookOf(index).problem);
    case Qt::AccessibleTextRole:
        return spokenText(index);
    case Qt::AccessibleDescriptionRole:
        return description(lookOf(index));
    default:
        return {};
    }
}

bool DataSourceTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const auto source = dataSource();
    if (role != Qt::EditRole || !source || !checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return false;
    }
    const QString identifier = m_columns[static_cast<std::size_t>(index.column())].identifier;
    const QPersistentModelIndex cell(index);
    source->tableView_setObjectValue_forTableColumn_row(
        m_tableView, value.toString(), identifier, index.row());
    // The source may have shown a message, and anything may have happened behind it.
    if (cell.isValid()) {
        Q_EMIT dataChanged(this->index(0, 0), this->index(m_rows - 1, columnCount() - 1));
    }
    return true;
}

QVariant DataSourceTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    const auto &column = m_columns[static_cast<std::size_t>(section)];
    switch (role) {
    case Qt::DisplayRole:
        return column.title;
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(column.alignment);
    default:
        return {};
    }
}

Qt::ItemFlags DataSourceTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && m_columns[static_cast<std::size_t>(index.column())].editable) {
        flags |= Qt::ItemIsEditable;
    }
    return flags;
}

} // namespace kit
