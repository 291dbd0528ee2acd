// SPDX-License-Identifier: MIT
#pragma once

#include "editor/TQLRCEditorViewCtl.h"
#include "resources/Resources.h"
#include "support/StandIns.h"
#include "views/CellTextView.h"

#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>

/// A line editor in a window, with a host and a container that a test can ask.
struct EditorOnScreen
{
    EditorOnScreen()
    {
        resources::ensureLoaded();
        editor = TQLRCEditorViewCtl::init();
        editor->setDelegate(host);
        editor->setParentVC(container);
        view = editor->view();
        view->resize(900, 500);
        view->show();
    }

    void load(const QByteArray &text)
    {
        editor->flushWithOriginalSongText(text);
        editor->flushWithAudioItem(item);
    }
    [[nodiscard]] MyTableView *table() const { return editor->tableView(); }
    [[nodiscard]] QString cell(const char *identifier, int row) const
    {
        return editor->tableView_objectValueForTableColumn_row(table(), QString::fromLatin1(identifier), row);
    }
    void edit(const char *identifier, int row, const QString &value) const
    {
        editor->tableView_setObjectValue_forTableColumn_row(
            table(), value, QString::fromLatin1(identifier), row);
    }
    [[nodiscard]] QStringList columnIdentifiers() const
    {
        QStringList identifiers;
        for (const auto &column : table()->tableColumns()) {
            identifiers.append(column.identifier);
        }
        return identifiers;
    }
    [[nodiscard]] QStringList columnTitles() const
    {
        QStringList titles;
        for (const auto &column : table()->tableColumns()) {
            titles.append(column.title);
        }
        return titles;
    }
    /// The editor of the text cell that is open; null when none is.
    [[nodiscard]] views::CellTextView *textField() const
    {
        return visibleChild<views::CellTextView>(table()->viewport());
    }
    /// The editor of the time cell that is open; null when none is.
    [[nodiscard]] QLineEdit *timeField() const { return visibleChild<QLineEdit>(table()->viewport()); }
    /// Whichever it is.
    [[nodiscard]] QWidget *field() const
    {
        QWidget *text = textField();
        return text ? text : timeField();
    }
    void selectRows(int first, int last) const
    {
        table()->selectSingleRow(first);
        for (int row = first + 1; row <= last; ++row) {
            table()->selectionModel()->select(
                table()->model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
    }
    void addRow(int row) const
    {
        table()->selectionModel()->select(
            table()->model()->index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    [[nodiscard]] QList<std::int64_t> times(int row) const
    {
        QList<std::int64_t> all;
        for (const auto time :
            std::as_const(editor->song()).aryLines().at(static_cast<std::size_t>(row)).aryTimes()) {
            all.append(time);
        }
        return all;
    }
    [[nodiscard]] std::string text(int row) const
    {
        const auto &line = std::as_const(editor->song()).aryLines().at(static_cast<std::size_t>(row));
        return std::string(line.isProperty() ? line.displayText() : line.lineText());
    }

    template <class T>
    static T *visibleChild(const QWidget *parent)
    {
        for (T *child : parent->findChildren<T *>()) {
            if (child->isVisible()) {
                return child;
            }
        }
        return nullptr;
    }

    std::shared_ptr<standin::Host> host = std::make_shared<standin::Host>();
    std::shared_ptr<standin::Container> container = std::make_shared<standin::Container>();
    std::shared_ptr<standin::Item> item = std::make_shared<standin::Item>();
    std::shared_ptr<TQLRCEditorViewCtl> editor;
    QWidget *view = nullptr;
};
