// SPDX-License-Identifier: MIT
#include "host/Translations.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>

// The macro has to stand outside of every namespace.
static void registerCatalogues()
{
    Q_INIT_RESOURCE(lyricdesk_localized);
}

namespace {

void install(QCoreApplication &application, const QString &name, const QString &folder)
{
    auto *const translator = new QTranslator(&application);
    if (translator->load(QLocale(), name, QStringLiteral("_"), folder)) {
        QCoreApplication::installTranslator(translator);
    } else {
        delete translator;
    }
}

} // namespace

namespace desk {

void installTranslations(QCoreApplication &application)
{
    registerCatalogues();
    install(application, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install(application, QStringLiteral("lyricdesk"), QStringLiteral(":/lyricdesk"));
}

} // namespace desk
