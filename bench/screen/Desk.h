// SPDX-License-Identifier: MIT
#pragma once

#include "editor/TQLRCEditorViewCtl.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "shell/contracts/EditorKeys.h"
#include "support/StandIns.h"

#include <QtWidgets/QWidget>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

/// The whole component in a window, with a player and a host that do nothing.
struct Desk
{
    Desk();
    ~Desk();
    Desk(const Desk &) = delete;
    Desk &operator=(const Desk &) = delete;

    /// Shows `text`, and waits until it is painted.
    void load(const QByteArray &text);
    [[nodiscard]] MyTableView *table() const { return component->editorViewCtl()->tableView(); }
    /// The position that is heard now.
    void tick(double seconds) { player->tick(seconds); }

    std::shared_ptr<standin::Player> player = std::make_shared<standin::Player>();
    std::shared_ptr<standin::Host> host = std::make_shared<standin::Host>();
    std::shared_ptr<standin::Item> item = std::make_shared<standin::Item>();
    std::shared_ptr<TQWLRCEditorViewCtl> component;
    QWidget *window = nullptr;
};

/// Whatever waits to be done is done: events, layouts, paints.
void settle();

/// Nanoseconds that this thread works for `work`: everything here is done on it, and what else the machine
/// does meanwhile is not counted.
[[nodiscard]] double taken(const std::function<void()> &work);

/// The value below which `share` of `samples` lie, 0 to 1.
[[nodiscard]] double quantile(std::vector<double> samples, double share);

/// Paints of a widget and of what is in it.
class Paints final : public QObject
{
public:
    explicit Paints(QWidget &widget);

    [[nodiscard]] int count() const { return m_count; }
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int m_count = 0;
};
