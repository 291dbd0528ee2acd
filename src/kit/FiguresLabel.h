// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QAnyStringView>
#include <QtWidgets/QLabel>

#include <vector>

namespace kit {

/// A time or another number that changes often: figures of equal width, so that nothing jumps,
/// and, set by setFigures(), a size of its own that changes only when the text gets longer.
/// The alignment is the label's, within its contents; one line.
class FiguresLabel : public QLabel
{
    Q_OBJECT

public:
    explicit FiguresLabel(QWidget *parent = nullptr);

    /// setText() that does nothing when the text is the same.
    void setFigures(QAnyStringView text);
    /// The same, for those who know it as a label.
    void setText(const QString &text) { setFigures(text); }

    /// Room for the widest figures, not for these ones.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// Width of the place of each character.
    [[nodiscard]] std::vector<qreal> advances() const;
    [[nodiscard]] qreal textLeft(qreal textWidth) const;
    void fitSize();

    qsizetype m_fittedLength = -1;
};

} // namespace kit
