// SPDX-License-Identifier: MIT
#include "views/LyricAccessible.h"

#include "views/RBMenuDisabledTextView.h"

#include <QtWidgets/QAccessibleWidget>

namespace views {

namespace {

class LyricAccessible : public QAccessibleWidget
{
public:
    explicit LyricAccessible(RBMenuDisabledTextView *view)
        : QAccessibleWidget(view, QAccessible::Document) { }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const auto *const view = static_cast<RBMenuDisabledTextView *>(widget());
        switch (kind) {
        case QAccessible::Value:
            return view->selectedText();
        case QAccessible::Description:
            return view->toPlainText();
        default:
            return QAccessibleWidget::text(kind);
        }
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        return state;
    }
};

QAccessibleInterface *makeAccessible(const QString & /*className*/, QObject *object)
{
    auto *const view = qobject_cast<RBMenuDisabledTextView *>(object);
    return view != nullptr ? new LyricAccessible(view) : nullptr;
}

} // namespace

void installLyricAccessible()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeAccessible);
        return true;
    }();
    static_cast<void>(installed);
}

void tellOfCurrentLine(RBMenuDisabledTextView *view)
{
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(view, view->selectedText());
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace views
