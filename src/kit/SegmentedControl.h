// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QWidget>

class QAbstractButton;
class QButtonGroup;
class QIcon;

namespace kit {

/// A row of buttons of which one is chosen, drawn as one control. Arrow keys choose, too.
class SegmentedControl : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int segmentCount READ segmentCount WRITE setSegmentCount)

public:
    explicit SegmentedControl(QWidget *parent = nullptr);

    [[nodiscard]] int segmentCount() const;
    /// Replaces all segments by `count` empty ones, the first of them chosen.
    void setSegmentCount(int count);
    /// From 0; −1 when there is none, or none of them is chosen.
    [[nodiscard]] int selectedSegment() const;
    /// Chooses without saying so. A number that is no segment's leaves none chosen.
    void setSelectedSegment(int segment);
    void setImage_forSegment(const QIcon &image, int segment);
    /// Tooltip of the segment, and its name for those who cannot see it.
    void setLabel_forSegment(const QString &label, int segment);
    /// Null for what is no segment.
    [[nodiscard]] QAbstractButton *segment(int segment) const;

Q_SIGNALS:
    /// The user chose another segment.
    void segmentChosen();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QButtonGroup *m_segments;
};

} // namespace kit
