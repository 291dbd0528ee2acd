// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QHeaderView>

namespace kit {

/// A horizontal header of quiet words over a quiet line, on the ground of the rows below it.
class QuietHeader : public QHeaderView
{
    Q_OBJECT

public:
    explicit QuietHeader(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const override;
};

} // namespace kit
