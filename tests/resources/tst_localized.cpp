// SPDX-License-Identifier: MIT
#include "kit/FormLoader.h"
#include "resources/Localized.h"
#include "resources/Resources.h"
#include "support/QtWarnings.h"

#include <QtCore/QLocale>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

class tst_Localized : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void saysItInTheLanguage_data();
    void saysItInTheLanguage();
    void followsTheDefaultLocale();
    void nothingIsInstalledOnTheApplication();
    void fullWidthCommaIsPartOfTheKey();
    void loadedFormsAreTranslated();
};

void tst_Localized::saysItInTheLanguage_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("en Apply") << "en_GB"
                              << "Apply"
                              << "Apply";
    QTest::newRow("de Anwenden") << "de_DE"
                                 << "Apply"
                                 << "Anwenden";
    QTest::newRow("de_AT Abbrechen") << "de_AT"
                                     << "Cancel"
                                     << "Abbrechen";
    QTest::newRow("fr key") << "fr_FR"
                            << "Cancel"
                            << "Cancel";
    QTest::newRow("C key") << "C"
                           << "Cancel"
                           << "Cancel";
    QTest::newRow("de unknown key") << "de_DE"
                                    << "No such key"
                                    << "No such key";
    QTest::newRow("de empty key") << "de_DE"
                                  << ""
                                  << "";
}

void tst_Localized::saysItInTheLanguage()
{
    QFETCH(QString, locale);
    QFETCH(QString, key);
    QFETCH(QString, text);
    QLocale::setDefault(QLocale(locale));
    QCOMPARE(localized(key), text);
}

void tst_Localized::followsTheDefaultLocale()
{
    QLocale::setDefault(QLocale("de_DE"));
    QCOMPARE(localized("Cancel"), "Abbrechen");
    QLocale::setDefault(QLocale("en_US"));
    QCOMPARE(localized("Cancel"), "Cancel");
}

void tst_Localized::nothingIsInstalledOnTheApplication()
{
    QLocale::setDefault(QLocale("de_DE"));
    QCOMPARE(localized("Cancel"), "Abbrechen");
    QCOMPARE(QCoreApplication::translate("Localized", "Cancel"), "Cancel");
}

void tst_Localized::fullWidthCommaIsPartOfTheKey()
{
    QLocale::setDefault(QLocale("de_DE"));
    const QString key
        = QString::fromUtf8("Set offset of all time labels:(positive forward\uFF0Cnegtive backward)");
    QVERIFY(localized(key) != key);
    QVERIFY(key.contains(QChar(0xFF0C)));
}

void tst_Localized::loadedFormsAreTranslated()
{
    resources::ensureLoaded();
    resources::ensureLoaded();
    QLocale::setDefault(QLocale("de_DE"));
    const auto form = kit::FormLoader::load(":/tqlrceditor/forms/TQWLRCEditorViewCtl.ui");
    QVERIFY(form != nullptr);
    QCOMPARE(form->accessibleName(), "Liedtexteditor");
    QLocale::setDefault(QLocale::c());
    QCOMPARE(kit::FormLoader::load(":/tqlrceditor/forms/TQWLRCEditorViewCtl.ui")->accessibleName(),
        "Lyrics editor");
}

QTEST_MAIN(tst_Localized)
#include "tst_localized.moc"
