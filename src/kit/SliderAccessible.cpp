// SPDX-License-Identifier: MIT
#include "kit/SliderAccessible.h"

#include "kit/ProgressSliderView.h"

#include <QtWidgets/QAccessibleWidget>

namespace kit {

namespace {

class SliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit SliderAccessible(ProgressSliderView *slider) : QAccessibleWidget(slider, QAccessible::Slider) { }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? slider()->timeText(slider()->dCurValue())
                                          : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QVariant currentValue() const override { return slider()->dCurValue(); }
    void setCurrentValue(const QVariant &value) override { slider()->moveTo(value.toDouble()); }
    [[nodiscard]] QVariant minimumValue() const override { return 0.0; }
    [[nodiscard]] QVariant maximumValue() const override { return slider()->dLength(); }
    [[nodiscard]] QVariant minimumStepSize() const override { return ProgressSliderView::kKeyStepSeconds; }

private:
    [[nodiscard]] ProgressSliderView *slider() const { return static_cast<ProgressSliderView *>(widget()); }
};

QAccessibleInterface *makeAccessible(const QString & /*className*/, QObject *object)
{
    auto *const slider = qobject_cast<ProgressSliderView *>(object);
    return slider != nullptr ? new SliderAccessible(slider) : nullptr;
}

} // namespace

void installSliderAccessible()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeAccessible);
        return true;
    }();
    static_cast<void>(installed);
}

} // namespace kit
