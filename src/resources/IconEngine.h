// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QColor>
#include <QtGui/QIconEngine>
#include <QtGui/QImage>
#include <QtGui/QPixmap>

namespace resources {

/// The drawing at `path`, `size` in device pixels, every stroke of it in `color`.
[[nodiscard]] QImage drawnImage(const QString &path, const QSize &size, const QColor &color);

/// Draws one of our pictures in the colour of the text around it, at the very size asked for. What was drawn
/// last is kept: a button is painted again more often than it changes.
class IconEngine : public QIconEngine
{
public:
    /// \param color  invalid for the application's text colour at the time of drawing.
    IconEngine(QString name, QString path, const QColor &color);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine *clone() const override;
    QString key() const override;
    QString iconName() override;
    bool isNull() override;

private:
    [[nodiscard]] QColor colorFor(QIcon::Mode mode) const;
    [[nodiscard]] QPixmap drawn(const QSize &size, const QColor &color);

    QString m_name;
    QString m_path;
    QColor m_color;
    QPixmap m_drawn;
    QColor m_drawnColor;
};

} // namespace resources
