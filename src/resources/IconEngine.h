// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QColor>
#include <QtGui/QIconEngine>
#include <QtGui/QImage>

namespace resources {

/// The drawing at `path`, `size` in device pixels, every stroke of it in `color`.
[[nodiscard]] QImage drawnImage(const QString &path, const QSize &size, const QColor &color);

/// Draws one of our pictures in the colour of the text around it, at the very size asked for.
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

    QString m_name;
    QString m_path;
    QColor m_color;
};

} // namespace resources
