// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QLabel>

namespace kit {

/// A time or another number that changes often: figures of equal width, so that nothing jumps,
/// and a size of its own that the layout has to ask for only when the text gets longer.
class FiguresLabel : public QLabel
{
    Q_OBJECT

public:
    explicit FiguresLabel(QWidget *parent = nullptr);

    /// setText() that does nothing when the text is the same.
    void setFigures(const QString &text);

    /// Room for the widest figures, not for these ones.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    [[nodiscard]] int advanceOf(QChar character) const;
    void fitSize();

    qsizetype m_fittedLength = -1;
};

} // namespace kit
