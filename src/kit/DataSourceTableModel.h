// SPDX-License-Identifier: MIT
#pragma once

#include "kit/TableDataSource.h"

#include <QtCore/QAbstractTableModel>

#include <memory>
#include <vector>

namespace kit {

/// The model under a `MyTableView`: forwards every question to the data source.
///
/// Holds nothing of the rows but their number as of the last `reload()`, so that the source may
/// change between two reloads without the view noticing half of it.
class DataSourceTableModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit DataSourceTableModel(MyTableView *tableView);

    void setDataSource(const std::weak_ptr<TableDataSource> &dataSource);
    [[nodiscard]] std::shared_ptr<TableDataSource> dataSource() const { return m_dataSource.lock(); }

    /// Replaces all columns from `first` on. One removal and one insertion, whatever their number.
    void replaceColumnsFrom(int first, std::vector<TableColumn> columns);
    [[nodiscard]] const std::vector<TableColumn> &columns() const { return m_columns; }
    void setColumnTitle(int column, const QString &title);

    /// How the cell looks; asks the source. An empty look for a cell that does not exist.
    [[nodiscard]] CellLook lookOf(const QModelIndex &index) const;

    /// Takes over the source's number of rows: rows come and go at the end, and every cell is
    /// asked for again when it is next painted. The cost does not depend on the rows that stay.
    void reload();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    [[nodiscard]] QString shownText(const QModelIndex &index) const;
    [[nodiscard]] QString spokenText(const QModelIndex &index) const;

    MyTableView *m_tableView;
    std::weak_ptr<TableDataSource> m_dataSource;
    std::vector<TableColumn> m_columns;
    int m_rows = 0;
};

} // namespace kit
