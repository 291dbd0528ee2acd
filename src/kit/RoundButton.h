// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QPushButton>

namespace kit {

/// A round button with an icon alone: filled with the text colour, or quiet, a faint circle.
/// The circle leaves 4 pixels at each side, for the ring that shows the keyboard.
class RoundButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(bool quiet READ isQuiet WRITE setQuiet)

public:
    explicit RoundButton(QWidget *parent = nullptr);

    [[nodiscard]] bool isQuiet() const { return m_quiet; }
    void setQuiet(bool quiet);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QColor fill() const;

    bool m_quiet = false;
};

} // namespace kit
