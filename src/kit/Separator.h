// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QWidget>

namespace kit {

/// A quiet line between groups of controls: one logical pixel, with room at its ends when it
/// stands upright.
class Separator : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation)

public:
    explicit Separator(QWidget *parent = nullptr);

    [[nodiscard]] Qt::Orientation orientation() const { return m_orientation; }
    void setOrientation(Qt::Orientation orientation);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Qt::Orientation m_orientation = Qt::Horizontal;
};

} // namespace kit
