// SPDX-License-Identifier: MIT
#include "resources/Localized.h"

#include "resources/Resources.h"

#include <QtCore/QLocale>
#include <QtCore/QTranslator>

#include <memory>

namespace {

struct Catalogue
{
    QLocale locale;
    std::unique_ptr<QTranslator> translator;
};

// The formats of a desktop and its languages are set apart: a default that nobody changed is
// the desktop's, and that one knows the languages.
QLocale languagesOf(const QLocale &locale)
{
    return locale == QLocale::system() ? QLocale::system() : locale;
}

const QTranslator &catalogue()
{
    static Catalogue current;
    const QLocale locale;
    if (current.translator == nullptr || current.locale != locale) {
        resources::ensureLoaded();
        current.locale = locale;
        current.translator = std::make_unique<QTranslator>();
        // Without a catalogue for the language the translator stays empty, and keys are shown.
        static_cast<void>(current.translator->load(languagesOf(locale), QStringLiteral("Localized"),
            QStringLiteral("_"), QStringLiteral(":/tqlrceditor")));
    }
    return *current.translator;
}

} // namespace

QString localized(const QString &englishKey)
{
    const QString text = catalogue().translate("Localized", englishKey.toUtf8().constData());
    return text.isEmpty() ? englishKey : text;
}
