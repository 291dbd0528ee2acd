// SPDX-License-Identifier: MIT
//
// lyricdesk in another language: no text is missing, and the window and its help speak it.
#include "editor/CommandTitles.h"
#include "host/DeskWindow.h"
#include "host/HelpPage.h"
#include "host/Translations.h"
#include "media/player/Player.h"
#include "support/ModalDialogs.h"
#include "support/QtWarnings.h"
#include "support/SourceTexts.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QMenuBar>

namespace {

// The languages of this desktop. They are asked for once in a process.
const bool kLanguagesAreSet = qputenv("LANGUAGE", "en_GB:de_DE");

struct Text
{
    QByteArray context;
    QString source;
};

// What the sources of `folder` look up, in the context that the program looks it up in.
QList<Text> textsOf(const QString &folder)
{
    static const QString literals = QLatin1String("((?:\"(?:[^\"\\\\]|\\\\.)*\"\\s*)+)");
    static const QRegularExpression explicitly(
        QLatin1String("\\btranslate\\(\\s*\"([^\"]+)\",\\s*") + literals);
    static const QRegularExpression ofClass(QLatin1String("\\btr\\(\\s*") + literals);
    static const QRegularExpression ofPlayer(QLatin1String("\\bwithName\\(\\s*") + literals);
    QList<Text> texts;
    const auto add
        = [&texts](const QRegularExpression &call, const QString &source, const QByteArray &context) {
              for (auto calls = call.globalMatch(source); calls.hasNext();) {
                  const auto found = calls.next();
                  texts.append({context.isEmpty() ? found.captured(1).toUtf8() : context,
                      support::joinedLiterals(found.captured(found.lastCapturedIndex()))});
              }
          };
    for (const auto &[baseName, source] : support::sourceFilesBelow(folder)) {
        add(explicitly, source, {});
        add(ofClass, source, "desk::" + baseName.toUtf8());
        add(ofPlayer, source, "media::Player");
    }
    return texts;
}

} // namespace

class Translations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void englishWithoutACatalogue()
    {
        QLocale::setDefault(QLocale(QStringLiteral("fr_FR")));
        desk::installTranslations(*qApp);
        QCOMPARE(QCoreApplication::translate("desk::DeskWindow", "No song"), QStringLiteral("No song"));
    }

    // Before the first German one is installed: nothing takes it away again.
    void englishForWhoPutsItFirst()
    {
        QLocale::setDefault(QLocale::system());
        QCOMPARE(QLocale().uiLanguages().constLast().left(2), QStringLiteral("de"));
        desk::installTranslations(*qApp);
        QCOMPARE(QCoreApplication::translate("desk::DeskWindow", "No song"), QStringLiteral("No song"));
    }

    void noTextIsMissing()
    {
        QLocale::setDefault(QLocale(QStringLiteral("de_AT")));
        desk::installTranslations(*qApp);
        const QString folder = QStringLiteral(TQLRC_SOURCE_DIR "/src/");
        const QList<Text> texts
            = textsOf(folder + QLatin1String("host")) + textsOf(folder + QLatin1String("media"));
        QVERIFY(texts.size() > 70); // the search finds what is there
        // These are the same in both languages.
        const QStringList same{QStringLiteral("%1 s"), QStringLiteral("%1:%2 min")};
        QStringList missing;
        for (const auto &[context, source] : texts) {
            const QString text = QCoreApplication::translate(context, source.toUtf8());
            if (text == source && !same.contains(source)) {
                missing.append(source);
            }
            QCOMPARE(text.count(QLatin1Char('%')), source.count(QLatin1Char('%')));
            QCOMPARE(text.count(QLatin1Char('&')), source.count(QLatin1Char('&')));
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1String(" | "))));
    }

    void whatTheTagsSayIsToldInIt()
    {
        QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
        desk::installTranslations(*qApp);
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Wörter.mp3"));
        QFile words(path);
        QVERIFY(words.open(QIODevice::WriteOnly));
        words.write("These are words and no music at all.\n");
        words.close();
        desk::DeskWindow window(media::Player::create());
        QStringList told;
        support::whenDialogOpens([&told](QWidget &dialog) {
            told = support::textsOf(dialog);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        QVERIFY(!window.open(path));
        QVERIFY(told.contains(QStringLiteral("„Wörter.mp3“ wurde nicht geöffnet")));
        QVERIFY2(
            !told.filter(QStringLiteral("Das ist keine Audiodatei, was auch immer der Name sagt.")).isEmpty(),
            qPrintable(told.join(QLatin1Char('|'))));
    }

    void keysHaveOneNameEach()
    {
        QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
        desk::installTranslations(*qApp);
        const desk::DeskWindow window(media::Player::create());
        int compared = 0;
        for (const QAction *menu : window.menuBar()->actions()) {
            for (const QAction *entry : menu->menu()->actions()) {
                for (const QKeySequence &key : entry->shortcuts()) {
                    // What a menu shows, and what the tooltips and the list of keys say.
                    QCOMPARE(key.toString(QKeySequence::NativeText), editor::keyText(key));
                    ++compared;
                }
            }
        }
        QVERIFY(compared > 30);
    }

    void theWindowSpeaksIt()
    {
        QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
        desk::installTranslations(*qApp);
        const desk::DeskWindow window(media::Player::create());
        QStringList menus;
        for (const QAction *menu : window.menuBar()->actions()) {
            menus.append(menu->text().remove(QLatin1Char('&')));
            // No key of a menu is there twice.
            QStringList keys;
            for (const QAction *entry : menu->menu()->actions()) {
                const qsizetype mark = entry->text().indexOf(QLatin1Char('&'));
                if (mark >= 0) {
                    keys.append(entry->text().mid(mark + 1, 1).toLower());
                }
            }
            QCOMPARE(keys.removeDuplicates(), 0);
        }
        QCOMPARE(menus,
            (QStringList{QStringLiteral("Datei"), QStringLiteral("Bearbeiten"), QStringLiteral("Ansicht"),
                QStringLiteral("Wiedergabe"), QStringLiteral("Hilfe")}));
        QVERIFY(window.windowTitle().startsWith(QLatin1String("Kein Lied")));
    }

    void helpIsInTheFirstLanguageThatThereIs()
    {
        const QTemporaryDir folder;
        const QString english = folder.filePath(QStringLiteral("help.html"));
        const QString german = folder.filePath(QStringLiteral("help_de.html"));
        const QString deAt = QStringLiteral("de-AT");
        const QString fr = QStringLiteral("fr-FR");
        const QString en = QStringLiteral("en-GB");
        QCOMPARE(desk::helpPageFor(english, {deAt}), QString());
        for (const QString &path : {english, german}) {
            QFile page(path);
            QVERIFY(page.open(QIODevice::WriteOnly));
        }
        QCOMPARE(desk::helpPageFor(english, {deAt}), german);
        QCOMPARE(desk::helpPageFor(english, {fr, deAt, en}), german);
        QCOMPARE(desk::helpPageFor(english, {en, deAt}), english);
        QCOMPARE(desk::helpPageFor(english, {fr}), english);
        QCOMPARE(desk::helpPageFor(english, {}), english);
        QVERIFY(QFile::remove(german));
        QCOMPARE(desk::helpPageFor(english, {deAt}), english);
    }

    void bothPagesStandWhereTheyAreLookedFor()
    {
        const QString english = QStringLiteral(TQLRC_SOURCE_DIR "/docs/help.html");
        QVERIFY(desk::helpPageFor(english, {QStringLiteral("en")}).endsWith(QLatin1String("/help.html")));
        QVERIFY(desk::helpPageFor(english, {QStringLiteral("de")}).endsWith(QLatin1String("/help_de.html")));
    }
};

QTEST_MAIN(Translations)
#include "tst_translations.moc"
