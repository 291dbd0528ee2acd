// SPDX-License-Identifier: MIT
#include "resources/IconEngine.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtSvg/QSvgRenderer>

#include <utility>

namespace resources {

namespace {

constexpr float kDisabledAlpha = 0.4F;

} // namespace

QImage drawnImage(const QString &path, const QSize &size, const QColor &color)
{
    QSvgRenderer renderer(path);
    if (!renderer.isValid() || size.isEmpty())
        return {};
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    // The drawings are black; their shape alone counts.
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

IconEngine::IconEngine(QString name, QString path, const QColor &color)
    : m_name(std::move(name)), m_path(std::move(path)), m_color(color)
{ }

void IconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State /*state*/)
{
    const qreal ratio = painter->device()->devicePixelRatioF();
    QPixmap image = drawn((QSizeF(rect.size()) * ratio).toSize(), colorFor(mode));
    image.setDevicePixelRatio(ratio);
    painter->drawPixmap(rect.topLeft(), image);
}

QPixmap IconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State /*state*/)
{
    return drawn(size, colorFor(mode));
}

QPixmap IconEngine::drawn(const QSize &size, const QColor &color)
{
    if (m_drawn.size() != size || m_drawnColor != color) {
        m_drawn = QPixmap::fromImage(drawnImage(m_path, size, color));
        m_drawnColor = color;
    }
    return m_drawn;
}

QIconEngine *IconEngine::clone() const
{
    return new IconEngine(*this);
}

QString IconEngine::key() const
{
    return QStringLiteral("TQLrcEditorIcon");
}

QString IconEngine::iconName()
{
    return m_name;
}

bool IconEngine::isNull()
{
    return false;
}

QColor IconEngine::colorFor(QIcon::Mode mode) const
{
    const QPalette palette = QGuiApplication::palette();
    QColor color = m_color.isValid() ? m_color : palette.color(QPalette::Active, QPalette::ButtonText);
    if (mode == QIcon::Disabled)
        color.setAlphaF(color.alphaF() * kDisabledAlpha);
    return color;
}

} // namespace resources
