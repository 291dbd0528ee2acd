// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QPushButton>

class QVariantAnimation;

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

    /// A short sign that what the button is for was done. Painting only; none when the button is
    /// not on screen or the desktop asks for no animations. Another one begins anew.
    void flash();

protected:
    void paintEvent(QPaintEvent *event) override;
    void childEvent(QChildEvent *event) override;

private:
    void paintFlash(QPainter *painter, const QRectF &frame) const;

    QVariantAnimation *m_flashing = nullptr;
    // 1 at the beginning of a sign, 0 when there is none.
    double m_flash = 0.0;
};
