// SPDX-License-Identifier: MIT
#include "kit/ElidedLabel.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolTip>

namespace kit {

namespace {

constexpr int kFewestCharacters = 4;

} // namespace

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QString ElidedLabel::oneLine() const
{
    return text().simplified();
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * kFewestCharacters, fontMetrics().height()};
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip
        && fontMetrics().horizontalAdvance(oneLine()) > contentsRect().width()) {
        // Plain text that is not taken for markup.
        const QString markup = QStringLiteral("<p>%1</p>").arg(text().toHtmlEscaped());
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), markup, this);
        return true;
    }
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QRect area = contentsRect();
    const QString shown = fontMetrics().elidedText(oneLine(), Qt::ElideRight, area.width());
    style()->drawItemText(
        &painter, area, Qt::AlignVCenter | Qt::AlignLeft, palette(), isEnabled(), shown, foregroundRole());
}

} // namespace kit
