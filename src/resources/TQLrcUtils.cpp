// SPDX-License-Identifier: MIT
#include "resources/TQLrcUtils.h"

#include "resources/IconEngine.h"
#include "resources/Resources.h"

#include <QtCore/QFile>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>

#include <cmath>

namespace {

constexpr int kGrid = 24;

// Null for a name that is no picture's, also one that leads out of the bundle.
QString pathOfImage(const QString &name)
{
    resources::ensureLoaded();
    if (name.isEmpty() || name.contains(QLatin1Char('/')))
        return {};
    const QString path = QStringLiteral(":/tqlrceditor/images.bundle/%1.svg").arg(name);
    return QFile::exists(path) ? path : QString();
}

} // namespace

QImage TQLrcUtils::imageNamed(const QString &name)
{
    const QString path = pathOfImage(name);
    if (path.isNull())
        return {};
    const qreal ratio = qGuiApp->devicePixelRatio();
    const int pixels = static_cast<int>(std::ceil(kGrid * ratio));
    QImage image = resources::drawnImage(
        path, QSize(pixels, pixels), QGuiApplication::palette().color(QPalette::ButtonText));
    image.setDevicePixelRatio(ratio);
    return image;
}

QIcon TQLrcUtils::iconNamed(const QString &name, const QColor &color)
{
    const QString path = pathOfImage(name);
    return path.isNull() ? QIcon() : QIcon(new resources::IconEngine(name, path, color));
}
