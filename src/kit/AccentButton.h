// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QPushButton>

/// A button filled with the accent colour, for the one thing that a screen is about.
///
/// Draws its icon at the left and its text in the middle; labels laid over it let the mouse through.
class AccentButton : public QPushButton
{
    Q_OBJECT

public:
    explicit AccentButton(QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void childEvent(QChildEvent *event) override;
};
