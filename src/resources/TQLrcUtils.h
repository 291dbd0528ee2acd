// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QIcon>
#include <QtGui/QImage>

/// The component's own pictures, by name.
class TQLrcUtils
{
public:
    /// The picture `name` of the "images" bundle, in the application's text colour, 24 logical
    /// pixels square at the application's device pixel ratio; a null image when there is none.
    /// Nothing is kept: every call looks it up again.
    [[nodiscard]] static QImage imageNamed(const QString &name);

    /// The same picture as an icon: drawn anew at each size and ratio, in `color` or, when that
    /// is invalid, in the application's text colour of the moment; quieter when disabled.
    /// Its name() is `name`. A null icon when there is no such picture.
    [[nodiscard]] static QIcon iconNamed(const QString &name, const QColor &color = QColor());
};
