// SPDX-License-Identifier: MIT
#include "preview/CoverShadow.h"

#include "kit/CoverView.h"
#include "kit/Theme.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <vector>

namespace preview {

namespace {

constexpr int kSpread = 48;
constexpr int kDrop = 16;
constexpr int kDarkest = 0x90;
// A shadow has no details: it is computed small and drawn large.
constexpr int kScale = 4;
// Three passes of a box are as good as round.
constexpr int kPasses = 3;

// The average of each value with `radius` neighbours on either side, along one line of values.
void blurLine(uchar *values, int count, int step, int radius, std::vector<uchar> &copy)
{
    copy.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        copy[static_cast<std::size_t>(i)] = values[i * step];
    const auto valueAt
        = [&](int i) { return i < 0 || i >= count ? 0 : int(copy[static_cast<std::size_t>(i)]); };
    int sum = 0;
    for (int i = -radius; i < radius; ++i)
        sum += valueAt(i);
    for (int i = 0; i < count; ++i) {
        sum += valueAt(i + radius);
        values[i * step] = static_cast<uchar>(sum / (2 * radius + 1));
        sum -= valueAt(i - radius);
    }
}

void blur(QImage &alpha, int radius)
{
    std::vector<uchar> copy;
    const auto bytesPerLine = static_cast<int>(alpha.bytesPerLine());
    for (int pass = 0; pass < kPasses; ++pass) {
        for (int y = 0; y < alpha.height(); ++y)
            blurLine(alpha.scanLine(y), alpha.width(), 1, radius, copy);
        for (int x = 0; x < alpha.width(); ++x)
            blurLine(alpha.bits() + x, alpha.height(), bytesPerLine, radius, copy);
    }
}

// Black, as dense as the shadow is; a quarter of the size of `whole`.
QPixmap shadowOf(const QSize &whole)
{
    QImage alpha((whole + QSize(kScale - 1, kScale - 1)) / kScale, QImage::Format_Alpha8);
    alpha.fill(0);
    {
        QPainter painter(&alpha);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(1.0 / kScale, 1.0 / kScale);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, kDarkest));
        painter.drawRoundedRect(
            QRect({}, whole).adjusted(kSpread, kSpread, -kSpread, -kSpread), kit::kRadius, kit::kRadius);
    }
    blur(alpha, kSpread / kScale / kPasses);
    QImage shadow(alpha.size(), QImage::Format_ARGB32_Premultiplied);
    shadow.fill(Qt::black);
    shadow.setAlphaChannel(alpha);
    return QPixmap::fromImage(shadow);
}

} // namespace

CoverShadow::CoverShadow(kit::CoverView *cover, QWidget *ground) : QWidget(ground), m_cover(cover)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    lower();
    // It moves with what it stands in, too.
    for (QWidget *moving = cover; moving != nullptr && moving != ground; moving = moving->parentWidget())
        moving->installEventFilter(this);
    follow();
}

bool CoverShadow::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
        follow();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void CoverShadow::follow()
{
    const int side = std::min(m_cover->width(), m_cover->height());
    const QPoint corner = m_cover->mapTo(parentWidget(), QPoint());
    const QRect square(corner.x(), corner.y() + kDrop, side, side);
    setGeometry(square.adjusted(-kSpread, -kSpread, kSpread, kSpread));
    update();
}

void CoverShadow::paintEvent(QPaintEvent * /*event*/)
{
    if (m_picture.size() != (size() + QSize(kScale - 1, kScale - 1)) / kScale)
        m_picture = shadowOf(size());
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), m_picture);
}

} // namespace preview
