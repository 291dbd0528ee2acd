// SPDX-License-Identifier: MIT
#include "kit/SegmentedControl.h"

#include "kit/Theme.h"

#include <QtGui/QIcon>
#include <QtGui/QPainter>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QToolButton>

namespace kit {

namespace {

constexpr int kFrame = 3;
constexpr QSize kSegmentSize(34, 26);
constexpr QSize kIconSize(16, 16);
constexpr int kSegmentRadius = 6;
constexpr qreal kRing = 2.0;

class Segment : public QToolButton
{
public:
    explicit Segment(QWidget *parent) : QToolButton(parent)
    {
        setCheckable(true);
        setFixedSize(kSegmentSize);
        setIconSize(kIconSize);
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        const Theme theme(this);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        QColor fill = theme.text;
        fill.setAlphaF(isChecked() ? 0.2F : 0.08F);
        if (isChecked() || underMouse()) {
            painter.setBrush(fill);
            painter.drawRoundedRect(rect(), kSegmentRadius, kSegmentRadius);
        }
        if (hasFocus()) {
            painter.setPen(QPen(theme.focus, kRing));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kSegmentRadius, kSegmentRadius);
        }
        QRect place(QPoint(), iconSize());
        place.moveCenter(rect().center());
        icon().paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    }
};

} // namespace

SegmentedControl::SegmentedControl(QWidget *parent) : QWidget(parent), m_segments(new QButtonGroup(this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(kFrame, kFrame, kFrame, kFrame);
    row->setSpacing(0);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_segments, &QButtonGroup::idClicked, this, [this] { Q_EMIT segmentChosen(); });
}

int SegmentedControl::segmentCount() const
{
    return static_cast<int>(m_segments->buttons().size());
}

void SegmentedControl::setSegmentCount(int count)
{
    qDeleteAll(m_segments->buttons());
    for (int number = 0; number < count; ++number) {
        auto *segment = new Segment(this);
        m_segments->addButton(segment, number);
        layout()->addWidget(segment);
    }
    setSelectedSegment(0);
}

int SegmentedControl::selectedSegment() const
{
    return m_segments->checkedId();
}

void SegmentedControl::setSelectedSegment(int number)
{
    // An exclusive group does not let the last one go.
    m_segments->setExclusive(false);
    for (auto *button : m_segments->buttons())
        button->setChecked(m_segments->id(button) == number);
    m_segments->setExclusive(true);
}

void SegmentedControl::setImage_forSegment(const QIcon &image, int number)
{
    if (auto *button = segment(number))
        button->setIcon(image);
}

void SegmentedControl::setLabel_forSegment(const QString &label, int number)
{
    if (auto *button = segment(number)) {
        button->setToolTip(label);
        button->setAccessibleName(label);
    }
}

QAbstractButton *SegmentedControl::segment(int number) const
{
    return m_segments->button(number);
}

void SegmentedControl::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme(this).chip);
    painter.drawRoundedRect(rect(), kRadius, kRadius);
}

} // namespace kit
