// SPDX-License-Identifier: MIT
#include "kit/ThemedForm.h"

#include "kit/Theme.h"

#include <QtCore/QEvent>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QWidget>

#include <array>
#include <utility>

namespace kit {

namespace {

constexpr const char *kProperty = "kitText";

TextSize sizeIn(const QStringList &words)
{
    static const std::array kSizes{
        std::pair{"caption", TextSize::Caption},
        std::pair{"small", TextSize::Small},
        std::pair{"large", TextSize::Large},
        std::pair{"figure", TextSize::Figure},
    };
    for (const auto &[word, size] : kSizes) {
        if (words.contains(QLatin1String(word)))
            return size;
    }
    return TextSize::Body;
}

QFont::Weight weightIn(const QStringList &words)
{
    if (words.contains(QLatin1String("bold")))
        return QFont::Bold;
    return words.contains(QLatin1String("semibold")) ? QFont::DemiBold : QFont::Normal;
}

QColor colorIn(const QStringList &words, const Theme &theme)
{
    if (words.contains(QLatin1String("quiet")))
        return theme.quietText;
    if (words.contains(QLatin1String("accent")))
        return theme.accentText;
    if (words.contains(QLatin1String("ink")))
        return theme.accentInk;
    return words.contains(QLatin1String("warning")) ? theme.warning : theme.text;
}

void applyTo(QWidget *widget, const Theme &theme)
{
    const QStringList words
        = widget->property(kProperty).toString().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return;
    widget->setFont(textFont(QGuiApplication::font(), sizeIn(words), weightIn(words)));
    QPalette palette;
    palette.setColor(QPalette::WindowText, colorIn(words, theme));
    // A label on a button is drawn in the button's role.
    palette.setColor(widget->foregroundRole(), colorIn(words, theme));
    widget->setPalette(palette);
}

} // namespace

void ThemedForm::install(QWidget *root)
{
    (new ThemedForm(root))->apply();
}

ThemedForm::ThemedForm(QWidget *root) : QObject(root), m_root(root)
{
    root->installEventFilter(this);
}

bool ThemedForm::eventFilter(QObject *watched, QEvent *event)
{
    const bool changed = event->type() == QEvent::PaletteChange
        || event->type() == QEvent::ApplicationFontChange || event->type() == QEvent::StyleChange;
    if (watched == m_root && changed && !m_applying)
        apply();
    return QObject::eventFilter(watched, event);
}

void ThemedForm::apply()
{
    const QScopedValueRollback guard(m_applying, true);
    const Theme theme(m_root);
    applyTo(m_root, theme);
    const QList<QWidget *> widgets = m_root->findChildren<QWidget *>();
    for (QWidget *const widget : widgets)
        applyTo(widget, theme);
}

} // namespace kit
