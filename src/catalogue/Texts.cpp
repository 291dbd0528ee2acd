// SPDX-License-Identifier: MIT
#include "catalogue/Texts.h"

#include <QtCore/QTranslator>

#include <utility>

namespace catalogue {

namespace {

// The formats of a desktop and its languages are set apart: a default that nobody changed is
// the desktop's, and that one knows the languages.
QLocale languagesOf(const QLocale &locale)
{
    return locale == QLocale::system() ? QLocale::system() : locale;
}

} // namespace

Texts::Texts(QString name) : m_name(std::move(name))
{ }

Texts::~Texts() = default;

void Texts::load(const QLocale &locale)
{
    m_locale = locale;
    m_translator = std::make_unique<QTranslator>();
    // Without a catalogue for the language the translator stays empty, and the English texts are shown.
    static_cast<void>(m_translator->load(
        languagesOf(locale), m_name, QStringLiteral("_"), QStringLiteral(":/tqlrceditor")));
}

QString Texts::text(const QString &english)
{
    if (const QLocale locale; !m_translator || m_locale != locale)
        load(locale);
    const QString text = m_translator->translate(m_name.toUtf8().constData(), english.toUtf8().constData());
    return text.isEmpty() ? english : text;
}

} // namespace catalogue
