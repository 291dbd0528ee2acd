// SPDX-License-Identifier: MIT
//
// What is asked of the service, what its answers say, and which of them is the one.
#include "host/LyricRecords.h"
#include "host/LyricRequests.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>

using namespace desk;
using namespace std::chrono_literals;

namespace {

LyricQuery star()
{
    return {QStringLiteral("The Star"), QStringLiteral("Jane Taylor"), QStringLiteral("Rhymes"), 30.4};
}

LyricRecord record(const char *title, double seconds, const char *synced, const char *plain = nullptr)
{
    return {QString::fromUtf8(title), QStringLiteral("Jane Taylor"), {}, seconds, false, synced, plain};
}

QStringList addresses(const LyricQuery &query, const char *base = "https://a.org")
{
    QStringList all;
    for (const LyricRequest &request : requestsFor(QUrl(QString::fromLatin1(base)), query)) {
        all.append(QString::fromLatin1(request.address.toEncoded()));
    }
    return all;
}

} // namespace

class LyricRecordsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void theMostExactRequestComesFirst()
    {
        QCOMPARE(addresses(star()),
            QStringList({QStringLiteral(
                             "https://a.org/api/get?track_name=The%20Star&artist_name=Jane%20Taylor"
                             "&album_name=Rhymes&duration=30"),
                QStringLiteral(
                    "https://a.org/api/get?track_name=The%20Star&artist_name=Jane%20Taylor&duration=30"),
                QStringLiteral("https://a.org/api/search?track_name=The%20Star&artist_name=Jane%20Taylor"),
                QStringLiteral("https://a.org/api/search?q=The%20Star%20Jane%20Taylor")}));
    }

    void withoutAnArtistThereIsNothingExact()
    {
        LyricQuery query = star();
        query.artist.clear();
        QCOMPARE(addresses(query, "http://localhost:80/below/"),
            QStringList({QStringLiteral("http://localhost:80/below/api/search?track_name=The%20Star"),
                QStringLiteral("http://localhost:80/below/api/search?q=The%20Star")}));
        QVERIFY(!requestsFor(QUrl(), query).constFirst().isExact);
    }

    void durationsThatTheServiceDoesNotTakeAreLeftOut()
    {
        LyricQuery query = star();
        for (const auto &[seconds, isSent] : {std::pair(0.3, false), std::pair(0.6, true),
                 std::pair(3600.4, true), std::pair(3601.0, false), std::pair(1e300, false)}) {
            query.seconds = seconds;
            QCOMPARE(addresses(query).first().contains(QLatin1String("duration=")), isSent);
        }
        query.seconds.reset();
        QVERIFY(!addresses(query).first().contains(QLatin1String("duration=")));
    }

    void namesCannotBreakOutOfTheirPlace()
    {
        LyricQuery query = star();
        query.title = QStringLiteral("a&artist_name=b+c#d%20/é?");
        QVERIFY2(addresses(query).first().contains(QLatin1String(
                     "track_name=a%26artist_name%3Db%2Bc%23d%2520%2F%C3%A9%3F&artist_name=Jane")),
            qPrintable(addresses(query).first()));
    }

    void aRecordIsRead()
    {
        const auto found = recordFrom(R"({"id":1,"trackName":"The Star","artistName":"Jane","albumName":"R",
            "duration":30.5,"instrumental":false,"plainLyrics":"a\nb","syncedLyrics":"[00:01.00] a\n"})");
        QVERIFY(found);
        QCOMPARE(found->title, QStringLiteral("The Star"));
        QCOMPARE(found->artist, QStringLiteral("Jane"));
        QCOMPARE(found->album, QStringLiteral("R"));
        QCOMPARE(found->seconds, std::optional(30.5));
        QCOMPARE(found->plain, QByteArray("a\nb"));
        QCOMPARE(found->lyric(), QByteArray("[00:01.00] a\n"));
    }

    void aLyricThatIsMissingOrBlankIsNone()
    {
        const auto found
            = recordFrom(R"({"trackName":"a","artistName":"b","plainLyrics":" \n","syncedLyrics":null})");
        QVERIFY(found && !found->hasLyric() && found->lyric().isNull());
        QVERIFY(!found->seconds);
    }

    void whatIsNoRecordIsRefused_data()
    {
        QTest::addColumn<QByteArray>("json");
        const QByteArray names = R"("trackName":"a","artistName":"b")";
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("a page") << QByteArray("<!doctype html><html><body>ok</body></html>");
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("a list") << QByteArray("[]");
        QTest::newRow("nothing in it") << QByteArray("{}");
        QTest::newRow("cut off") << "{" + names;
        QTest::newRow("two") << "{" + names + "}{" + names + "}";
        QTest::newRow("lyric of another kind") << "{" + names + R"(,"syncedLyrics":{"a":1}})";
        QTest::newRow("lyric as a list") << "{" + names + R"(,"plainLyrics":["a"]})";
        QTest::newRow("name of another kind") << QByteArray(R"({"trackName":1,"artistName":"b"})");
        QTest::newRow("NaN") << "{" + names + R"(,"duration":NaN})";
        QTest::newRow("no UTF-8") << QByteArray("{\"trackName\":\"\xff\xfe\",\"artistName\":\"b\"}");
        QTest::newRow("100000 deep") << QByteArray(100'000, '[') + QByteArray(100'000, ']');
        QTest::newRow("100000 objects deep") << "{" + names
                + ",\"x\":" + QByteArray("{\"a\":").repeated(100'000) + "1" + QByteArray(100'000, '}') + "}";
    }

    void whatIsNoRecordIsRefused()
    {
        QFETCH(QByteArray, json);
        QVERIFY(!recordFrom(json));
        const auto records = recordsFrom(json);
        QVERIFY(!records || records->empty());
    }

    void durationsThatAreNoneAreUnknown()
    {
        for (const char *duration : {"-1", "0", "1e999", "\"NaN\"", "\"12\"", "null", "[]", "-1e308"}) {
            const auto found
                = recordFrom(QByteArray(R"({"trackName":"a","artistName":"b","duration":)") + duration + "}");
            // The toolkit may refuse a number that no double holds.
            QVERIFY2(!found || !found->seconds, duration);
        }
    }

    void aListKeepsWhatIsOfTheShape()
    {
        const auto found = recordsFrom(R"([1,{"trackName":"a","artistName":"b"},null,{},
            {"trackName":"c","artistName":"d"}])");
        QVERIFY(found);
        QCOMPARE(found->size(), std::size_t(2));
        QVERIFY(!recordsFrom(R"({"trackName":"a","artistName":"b"})"));
        const QByteArray one = R"({"trackName":"a","artistName":"b"},)";
        QCOMPARE(recordsFrom("[" + one.repeated(5000) + "0]")->size(), std::size_t(100));
    }

    void names_data()
    {
        QTest::addColumn<QString>("known");
        QTest::addColumn<QString>("asked");
        QTest::addColumn<bool>("isSame");
        const auto row = [](const char *known, const char *asked, bool isSame) {
            QTest::addRow("%s / %s", known, asked)
                << QString::fromUtf8(known) << QString::fromUtf8(asked) << isSame;
        };
        row("The Star", "the  star!", true);
        row("The Star (Live at Home)", "The Star", true);
        row("The Star", "The Star - Remastered 2009", true);
        row("Déjà Vu", "Deja vu", true);
        row("Hallelujah", "Haleluja", true);
        row("紅蓮華", "紅蓮華 (TV Size)", true);
        row("???", "???", true);
        row("One Tree Hill", "One", false);
        row("Lucky Star", "Star", false);
        row("Something else", "The Star", false);
        row("???", "!!!", false);
        row("", "The Star", false);
    }

    void names()
    {
        QFETCH(QString, known);
        QFETCH(QString, asked);
        QFETCH(bool, isSame);
        LyricRecord found = record("", 30, "[00:01.00]a");
        found.title = known;
        LyricQuery query = star();
        query.title = asked;
        QCOMPARE(isOfSong(found, query), isSame);
        QCOMPARE(likeness(known, asked), likeness(asked, known));
    }

    void anotherArtistIsAnotherSong()
    {
        LyricRecord found = record("The Star", 30, "[00:01.00]a");
        found.artist = QStringLiteral("Somebody Quite Different");
        QVERIFY(!isOfSong(found, star()));
        found.artist = QStringLiteral("Jane Taylor & Friends");
        QVERIFY(isOfSong(found, star()));
        LyricQuery unknown = star();
        unknown.artist.clear();
        found.artist = QStringLiteral("Somebody Quite Different");
        QVERIFY(isOfSong(found, unknown));
    }

    void theBestIsByDurationThenTimesThenNames()
    {
        const auto best = [](const std::vector<LyricRecord> &records) {
            const LyricRecord *found = bestOf(records, star());
            return found ? found->lyric() : QByteArray("none");
        };
        QCOMPARE(best({}), QByteArray("none"));
        QCOMPARE(best({record("The Star", 30, nullptr)}), QByteArray("none"));
        QCOMPARE(best({record("The Star", 60, "far"), record("The Star", 31, nullptr, "near")}),
            QByteArray("near"));
        QCOMPARE(best({record("The Star", 30.4, nullptr, "plain"), record("The Star", 32.3, "synced")}),
            QByteArray("synced"));
        QCOMPARE(best({record("The Star (Live)", 30, "live"), record("The Star", 32, "same")}),
            QByteArray("same"));
        LyricRecord unknown = record("The Star", 0, "unknown");
        unknown.seconds.reset();
        QCOMPARE(best({unknown, record("The Star", 400, "known")}), QByteArray("known"));
        QCOMPARE(
            best({record("The Star", 30, "first"), record("The Star", 30, "second")}), QByteArray("first"));
    }

    void anotherDurationIsTold()
    {
        QCOMPARE(otherDuration(record("a", 32.4, "x"), star()), std::nullopt);
        QCOMPARE(otherDuration(record("a", 40.4, "x"), star()), std::optional(10.0));
        LyricQuery unknown = star();
        unknown.seconds.reset();
        QCOMPARE(otherDuration(record("a", 40.4, "x"), unknown), std::nullopt);
    }

    void pausesThatAreAskedFor_data()
    {
        QTest::addColumn<std::optional<std::chrono::milliseconds>>("pause");
        const auto row = [](const char *header, std::optional<std::chrono::milliseconds> pause) {
            QTest::newRow(header) << pause;
        };
        row("3", 3s);
        row(" 0 ", 0s);
        row("315360000", 365 * 24h);
        row("99999999999999999999999999", 365 * 24h);
        row("Fri, 07 Aug 2026 12:00:30 GMT", 30s);
        row("Thu, 06 Aug 2026 12:00:00 GMT", 0s);
        row("Wed, 07 Aug 2126 12:00:00 GMT", 365 * 24h);
        row("", std::nullopt);
        row("-5", std::nullopt);
        row("1e9", std::nullopt);
        row("soon", std::nullopt);
    }

    void pausesThatAreAskedFor()
    {
        QFETCH(std::optional<std::chrono::milliseconds>, pause);
        const QDateTime now(QDate(2026, 8, 7), QTime(12, 0), Qt::UTC);
        QVERIFY(retryAfter(QTest::currentDataTag(), now) == pause);
    }
};

QTEST_GUILESS_MAIN(LyricRecordsTest)
#include "tst_lyric_records.moc"
