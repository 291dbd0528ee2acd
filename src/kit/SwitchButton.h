// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QCheckBox>

namespace kit {

/// A check box that is drawn as an on/off switch with its text beside it.
class SwitchButton : public QCheckBox
{
    Q_OBJECT

public:
    explicit SwitchButton(QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] bool hitButton(const QPoint &position) const override;
    void paintEvent(QPaintEvent *event) override;
};

} // namespace kit
