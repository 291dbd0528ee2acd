// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QLabel>

namespace kit {

/// One line of plain text that gives way: what does not fit ends in an ellipsis and is in the
/// tooltip. text() is always the whole text.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QString oneLine() const;
};

} // namespace kit
