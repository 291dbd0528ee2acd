// SPDX-License-Identifier: MIT
//
// What the tags say, in the user's language: no sentence is missing, and none is half English.
#include "media/items/MessageText.h"
#include "media/items/TaggedAudioFile.h"
#include "media/tags/AudioSamples.h"
#include "media/tags/LoadedFile.h"
#include "media/tags/Message.h"
#include "support/QtWarnings.h"
#include "support/SourceTexts.h"

#include <QtCore/QLocale>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cerrno>
#include <filesystem>
#include <system_error>

using media::messageText;
using media::TaggedAudioFile;
using tags::Message;

namespace {

// The languages of this desktop, in which the system itself may speak. They are asked for once in a process.
const bool kLanguagesAreSet = qputenv("LANGUAGE", "en_GB:de_DE");

// The literals with a blank before a small letter: whatever else the sources spell, identifiers and
// separators, has none.
QStringList textsOf(const QString &folder)
{
    static const QRegularExpression commentOrLiterals(
        QLatin1String("//[^\\n]*|'(?:[^'\\\\]|\\\\.)'|((?:\"(?:[^\"\\\\\\n]|\\\\.)*\"\\s*)+)"));
    static const QRegularExpression words(QLatin1String("\\S [a-z]"));
    QStringList texts;
    for (const auto &[name, source] : support::sourceFilesBelow(folder)) {
        for (auto all = commentOrLiterals.globalMatch(source); all.hasNext();) {
            const QString text = support::joinedLiterals(all.next().captured(1));
            if (text.contains(words))
                texts.append(text);
        }
    }
    return texts;
}

QString said(const QString &english)
{
    return messageText(english.toUtf8().constData());
}

QStringList placesIn(const QString &text)
{
    static const QRegularExpression place(QLatin1String("%."));
    QStringList places;
    for (auto all = place.globalMatch(text); all.hasNext();)
        places.append(all.next().captured());
    places.sort();
    return places;
}

// Every reason for which a file system, near or far, refuses to open, read, write, name or flush a file.
constexpr int kReasons[] = {EPERM, ENOENT, EINTR, EIO, ENXIO, EBADF, EAGAIN, ENOMEM, EACCES, EBUSY, EEXIST,
    EXDEV, ENODEV, ENOTDIR, EISDIR, EINVAL, ENFILE, EMFILE, ETXTBSY, EFBIG, ENOSPC, EROFS, EMLINK,
    ENAMETOOLONG, ENOLCK, ENOSYS, ENOTEMPTY, ELOOP, EOVERFLOW, EILSEQ, ENOTSUP, EPROTO, EBADMSG, ENETDOWN,
    ENETUNREACH, ECONNABORTED, ECONNRESET, ENOTCONN, ETIMEDOUT, EHOSTDOWN, EHOSTUNREACH, ESTALE, EUCLEAN,
    EREMOTEIO, EDQUOT, ENOMEDIUM, ENOKEY};

} // namespace

class MessageText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        support::failOnUnexpectedWarnings();
        QLocale::setDefault(QLocale(QStringLiteral("de_AT")));
    }

    void noTextIsMissing()
    {
        const QString sources = QStringLiteral(TQLRC_SOURCE_DIR "/src/media/");
        const QStringList texts
            = textsOf(sources + QLatin1String("tags")) + textsOf(sources + QLatin1String("items"));
        // The search finds what is there: what stands in one line, in several, and within a sentence.
        for (const char *known :
            {"This is a folder. Choose an audio file.", "its sound",
                "The file would grow beyond 2 GiB with this lyric, which is more than could be opened again.",
                "The lyric could not be saved, and the file is as it was. (%1)"})
            QVERIFY2(texts.contains(QLatin1String(known)), known);
        QStringList missing;
        for (const QString &text : texts) {
            if (said(text) == text)
                missing.append(text);
            QCOMPARE(placesIn(said(text)), placesIn(text));
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1String(" | "))));
    }

    void systemsReasonsAreTranslated()
    {
        for (const int error : kReasons) {
            const QString reason = QString::fromStdString(tags::systemReason(error));
            QVERIFY2(said(reason) != reason, qPrintable(reason));
        }
    }

    void partsThatAreWordsAreTranslated()
    {
        QCOMPARE(messageText({"The file could not be %1. (%2)", {"written", "No space left on device"}}),
            QStringLiteral("Die Datei konnte nicht geschrieben werden. "
                           "(Auf dem Datenträger ist kein Platz mehr)"));
        QCOMPARE(messageText(
                     {"The file has no field called %1. It has %2; it can get %3.", {"X", "none", "USLT"}}),
            QStringLiteral("Die Datei hat kein Feld namens X. Vorhanden: keines; möglich: USLT."));
    }

    void partsThatAreNotStay()
    {
        QCOMPARE(messageText({"The file is not there. (%1)", {"Größe %1, „100 %“"}}),
            QStringLiteral("Die Datei ist nicht da. (Größe %1, „100 %“)"));
    }

    void nothingToSayIsEmpty() { QVERIFY(messageText(Message()).isEmpty()); }

    void englishForEveryoneElse()
    {
        const Message message("The file could not be %1. (%2)", {"read", "Input/output error"});
        for (const char *locale : {"en_GB", "fr_FR", "C"}) {
            QLocale::setDefault(QLocale(QLatin1String(locale)));
            QCOMPARE(messageText(message), QString::fromStdString(message.english()));
        }
    }

    void englishForWhoPutsItFirst()
    {
        QLocale::setDefault(QLocale::system());
        QCOMPARE(QLocale().uiLanguages().constLast().left(2), QStringLiteral("de"));
        QCOMPARE(said(QStringLiteral("its sound")), QStringLiteral("its sound"));
    }

    void openingAndSavingSpeakIt()
    {
        const QTemporaryDir folder;
        QCOMPARE(TaggedAudioFile::open(folder.filePath(QStringLiteral("none.mp3"))).message,
            QStringLiteral("Die Datei ist nicht da. (Datei oder Ordner nicht gefunden)"));
        const QString path = folder.filePath(QStringLiteral("song.mp3"));
        QVERIFY(QFile::copy(QString::fromStdString(samples::sample("v24.mp3")), path));
        const auto item = TaggedAudioFile::open(path).item;
        QVERIFY(item);
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
        item->setLyric("[00:01.00]a\n");
        QCOMPARE(item->save().message,
            QStringLiteral("Die Datei ist schreibgeschützt. Erlauben Sie in ihren Eigenschaften das "
                           "Schreiben und speichern Sie noch einmal."));
    }

    void remarksSpeakIt()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("song.mp3"));
        QVERIFY(QFile::copy(QString::fromStdString(samples::sample("v24.mp3")), path));
        std::error_code error;
        std::filesystem::create_hard_link(
            path.toStdString(), folder.filePath(QStringLiteral("other.mp3")).toStdString(), error);
        QVERIFY(!error);
        const auto item = TaggedAudioFile::open(path).item;
        QVERIFY(item);
        item->setLyric("[00:01.00]a\n");
        const auto saved = item->save();
        QVERIFY(saved.ok);
        QCOMPARE(saved.message,
            QStringLiteral("Die Datei hat einen weiteren Namen (einen harten Link), unter dem die alte "
                           "Fassung bleibt."));
    }
};

QTEST_MAIN(MessageText)
#include "tst_message_text.moc"
