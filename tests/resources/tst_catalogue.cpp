// SPDX-License-Identifier: MIT
#include "support/QtWarnings.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QXmlStreamReader>
#include <QtTest/QTest>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Source and translation of every message.
QMap<QString, QString> catalogue(const QString &language)
{
    QMap<QString, QString> messages;
    const QByteArray text = contentOf(TQLRC_SOURCE_DIR "/src/resources/Localized_" + language + ".ts");
    QXmlStreamReader xml(text);
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("source"))
            source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation"))
            messages.insert(source, xml.readElementText());
    }
    return messages;
}

// The literals that the sources look up, as the compiler joins them.
QStringList keysInSources()
{
    static const QRegularExpression call(
        R"re((?:\blocalized|\btranslated)\(\s*(?:QStringLiteral\(\s*)?u?((?:"(?:[^"\\]|\\.)*"\s*)+))re");
    static const QRegularExpression part(R"re("((?:[^"\\]|\\.)*)")re");
    QStringList keys;
    QDirIterator files(TQLRC_SOURCE_DIR "/src", {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString text = QString::fromUtf8(contentOf(files.next()));
        for (auto calls = call.globalMatch(text); calls.hasNext();) {
            QString key;
            for (auto parts = part.globalMatch(calls.next().captured(1)); parts.hasNext();)
                key += parts.next().captured(1);
            keys << key.replace("\\uFF0C", QString(QChar(0xFF0C))).replace("\\\"", "\"");
        }
    }
    return keys;
}

QStringList keysInForms()
{
    QStringList keys;
    QDirIterator files(TQLRC_SOURCE_DIR "/src/resources/forms", {"*.ui"}, QDir::Files);
    while (files.hasNext()) {
        const QByteArray text = contentOf(files.next());
        QXmlStreamReader xml(text);
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != QLatin1String("string"))
                continue;
            const bool isText = xml.attributes().value(QLatin1String("notr")) != QLatin1String("true");
            const QString key = xml.readElementText();
            if (isText && !key.isEmpty())
                keys << key;
        }
    }
    return keys;
}

} // namespace

class tst_Catalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void everyKeyIsTranslated_data();
    void everyKeyIsTranslated();
    void placeholdersSurvive();
    void englishIsItsOwnKey();
};

void tst_Catalogue::everyKeyIsTranslated_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("en") << "en";
    QTest::newRow("de") << "de";
}

void tst_Catalogue::everyKeyIsTranslated()
{
    QFETCH(QString, language);
    const QMap<QString, QString> messages = catalogue(language);
    const QStringList inSources = keysInSources();
    const QStringList inForms = keysInForms();
    QVERIFY(inSources.contains("Drag Audio File Here!")); // the search finds what is there
    QVERIFY(inForms.contains("Lyrics editor"));
    QStringList missing;
    for (const QString &key : inSources + inForms) {
        if (messages.value(key).isEmpty() && !missing.contains(key))
            missing << key;
    }
    QVERIFY2(missing.isEmpty(), qPrintable("not in the catalogue: " + missing.join(" | ")));
}

void tst_Catalogue::placeholdersSurvive()
{
    const QMap<QString, QString> messages = catalogue("de");
    for (auto message = messages.begin(); message != messages.end(); ++message)
        QCOMPARE(message.value().count("%"), message.key().count("%"));
}

void tst_Catalogue::englishIsItsOwnKey()
{
    const QMap<QString, QString> messages = catalogue("en");
    QCOMPARE(messages.keys(), catalogue("de").keys());
    for (auto message = messages.begin(); message != messages.end(); ++message)
        QCOMPARE(message.value(), message.key());
}

QTEST_MAIN(tst_Catalogue)
#include "tst_catalogue.moc"
