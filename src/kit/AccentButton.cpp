// SPDX-License-Identifier: MIT
#include "kit/AccentButton.h"

#include "kit/Theme.h"

#include <QtCore/QEvent>
#include <QtCore/QVariantAnimation>
#include <QtGui/QPainter>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QStyle>

namespace {

constexpr double kFlashRing = 0.55;
constexpr double kFlashLight = 0.3;

} // namespace

AccentButton::AccentButton(QWidget *parent) : QPushButton(parent), m_flashing(new QVariantAnimation(this))
{
    setAttribute(Qt::WA_Hover);
    m_flashing->setStartValue(1.0);
    m_flashing->setEndValue(0.0);
    m_flashing->setDuration(kit::kSlowMillis);
    connect(m_flashing, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_flash = value.toDouble();
        update();
    });
}

QSize AccentButton::sizeHint() const
{
    // Its labels make it as large as it is; a button knows nothing of a layout by itself.
    if (layout()) {
        return layout()->sizeHint().expandedTo(minimumSize());
    }
    return {
        fontMetrics().horizontalAdvance(text()) + 2 * kit::kSpacingHuge, kit::kRowHeight + kit::kSpacingTiny};
}

QSize AccentButton::minimumSizeHint() const
{
    return sizeHint();
}

void AccentButton::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    const kit::Theme theme(this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    QColor fill = theme.accent;
    if (isDown()) {
        fill = fill.darker(120);
    } else if (underMouse()) {
        fill = fill.darker(107);
    }
    const QRectF frame = QRectF(rect()).adjusted(2, 2, -2, -2);
    if (hasFocus()) {
        painter.setPen(QPen(theme.focus, 2));
        painter.drawRoundedRect(frame.adjusted(-1, -1, 1, 1), kit::kRadiusLarge, kit::kRadiusLarge);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    const QRectF body = hasFocus() ? frame.adjusted(2, 2, -2, -2) : frame;
    painter.drawRoundedRect(body, kit::kRadius, kit::kRadius);

    paintFlash(&painter, frame);

    if (!icon().isNull()) {
        const QRect iconRect = QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter,
            iconSize(), rect().adjusted(kit::kSpacingLarge, 0, -kit::kSpacingLarge, 0));
        icon().paint(&painter, iconRect, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    }
    if (!text().isEmpty()) {
        painter.setPen(theme.accentInk);
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
    }
}

void AccentButton::flash()
{
    if (!isVisible() || style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) <= 0) {
        return;
    }
    m_flashing->stop();
    // The animation tells of changes only, and its first value may be no change for it.
    m_flash = 1.0;
    update();
    m_flashing->start();
}

// A ring that fades round the button, and a light on it.
void AccentButton::paintFlash(QPainter *painter, const QRectF &frame) const
{
    if (m_flash <= 0.0) {
        return;
    }
    const kit::Theme theme(this);
    painter->save();
    painter->setOpacity(m_flash * kFlashLight);
    painter->setBrush(theme.accentInk);
    painter->drawRoundedRect(frame, kit::kRadius, kit::kRadius);
    painter->setOpacity(m_flash * kFlashRing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(theme.focus, 2));
    painter->drawRoundedRect(frame.adjusted(-1, -1, 1, 1), kit::kRadiusLarge, kit::kRadiusLarge);
    painter->restore();
}

void AccentButton::childEvent(QChildEvent *event)
{
    QPushButton::childEvent(event);
    if (auto *label = qobject_cast<QLabel *>(event->child()); label && event->polished()) {
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
}
