// SPDX-License-Identifier: MIT
//
// A search from the request to its one answer, against a service that helps and one that does not.
#include "host/LyricSearch.h"
#include "host/LyricServer.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>

using desk::LyricSearch;
using Outcome = LyricSearch::Outcome;
using Then = LyricServer::Then;
using namespace std::chrono_literals;

namespace {

QByteArray record(const QByteArray &synced, const QByteArray &plain, double seconds = 30,
    const QByteArray &title = "The Star")
{
    return R"({"trackName":")" + title + R"(","artistName":"Jane Taylor","duration":)"
        + QByteArray::number(seconds) + R"(,"instrumental":false,"syncedLyrics":)" + synced
        + R"(,"plainLyrics":)" + plain + "}";
}

const QByteArray kSynced = R"("[00:01.00]a\n")";
const QByteArray kPlain = R"("a\n")";

// A search at a server, and what came of it. The clock stands still unless it is moved.
struct Desk
{
    Desk()
    {
        settings.address = server.address();
        settings.userAgent = "lyricdesk v9";
        settings.pause = 0ms;
        settings.limits.time = 20s;
        settings.clock = [this] { return clock; };
    }
    void open()
    {
        search = std::make_unique<LyricSearch>(settings);
        search->setSongFacts([this] { return facts; });
        QObject::connect(search.get(), &LyricSearch::finished, [this](Outcome how, const QString &what) {
            outcomes.append(how);
            message = what;
        });
    }
    void request(const QString &title = QStringLiteral("The Star"),
        const QString &artist = QStringLiteral("Jane Taylor"))
    {
        if (!search) {
            open();
        }
        search->requestLyric_artist_completion(title, artist, [this](const QByteArray &text) {
            texts.append(text);
            if (onText) {
                onText();
            }
        });
    }

    LyricServer server;
    LyricSearch::Settings settings;
    LyricSearch::SongFacts facts{QStringLiteral("Rhymes"), 30};
    std::int64_t clock = 1'000'000;
    QByteArrayList texts;
    QList<Outcome> outcomes;
    QString message;
    std::function<void()> onText;
    // Goes first: it answers what is under way.
    std::unique_ptr<LyricSearch> search;
};

} // namespace

class LyricSearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void theExactRecordingIsEnough()
    {
        Desk desk;
        desk.server.then(LyricServer::answer(200, record(kSynced, kPlain)));
        desk.request();
        QVERIFY(desk.search->isSearching());
        QVERIFY(desk.texts.isEmpty());
        QTRY_COMPARE(desk.texts, QByteArrayList({"[00:01.00]a\n"}));
        QCOMPARE(desk.outcomes, QList({Outcome::Found}));
        QVERIFY(!desk.search->isSearching());
        QCOMPARE(desk.server.asked,
            QByteArrayList({"GET /api/get?track_name=The%20Star&artist_name=Jane%20Taylor&album_name=Rhymes"
                            "&duration=30"}));
        QVERIFY(desk.server.heads.first().contains("User-Agent: lyricdesk v9\r\n"));
    }

    void whatIsNotFoundExactlyIsSearchedFor()
    {
        Desk desk;
        desk.server.then(LyricServer::answer(404, "{}"));
        desk.server.then(LyricServer::answer(404, "<html>"));
        desk.server.then(LyricServer::answer(200,
            "[" + record(kPlain, "null", 90) + "," + record(kSynced, "null", 31) + ","
                + record(R"("[00:09.00]no")", "null", 30, "Else") + "]"));
        desk.request();
        QTRY_COMPARE(desk.texts, QByteArrayList({"[00:01.00]a\n"}));
        QCOMPARE(desk.server.asked.size(), 3);
        QVERIFY(desk.server.asked.at(1).contains("/api/get?") && !desk.server.asked.at(1).contains("album"));
        QVERIFY(desk.server.asked.at(2).contains("/api/search?track_name="));
    }

    void wordsWithoutTimesAreTakenWhenNobodyKnowsTheTimes()
    {
        Desk desk;
        desk.facts.album.clear();
        desk.server.then(LyricServer::answer(200, record("null", kPlain)));
        desk.server.then(LyricServer::answer(200, "[" + record("null", kPlain) + "]"));
        desk.request();
        QTRY_COMPARE(desk.texts, QByteArrayList({"a\n"}));
        QVERIFY(desk.message.contains(QLatin1String("without times")));

        Desk better;
        better.facts.album.clear();
        better.server.then(LyricServer::answer(200, record("null", kPlain)));
        better.server.then(LyricServer::answer(200, "[" + record(kSynced, "null", 31) + "]"));
        better.request();
        QTRY_COMPARE(better.texts, QByteArrayList({"[00:01.00]a\n"}));
    }

    void whatWasFoundOutlivesAProblemAfterIt()
    {
        Desk desk;
        desk.facts.album.clear();
        desk.server.then(LyricServer::answer(200, record("null", kPlain)));
        desk.server.then(LyricServer::bytes({}, Then::Close));
        desk.request();
        QTRY_COMPARE(desk.texts, QByteArrayList({"a\n"}));
        QCOMPARE(desk.outcomes, QList({Outcome::Found}));
    }

    void timesOfALongerRecordingAreToldAsThat()
    {
        Desk desk;
        desk.server.then(LyricServer::answer(200, record(kSynced, "null", 105)));
        desk.request();
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Found}));
        QVERIFY2(desk.message.contains(QLatin1String("1:15 min longer")), qPrintable(desk.message));
    }

    void whatWasNotFoundIsNotAskedForAgainForAWhile()
    {
        Desk desk;
        desk.request();
        QTRY_COMPARE(desk.outcomes, QList({Outcome::NotFound}));
        QCOMPARE(desk.server.asked.size(), 4);
        QCOMPARE(desk.message, QStringLiteral("No lyric was found for this song."));
        desk.request();
        QCOMPARE(desk.outcomes.size(), 1);
        QTRY_COMPARE(desk.outcomes, QList({Outcome::NotFound, Outcome::NotFound}));
        QCOMPARE(desk.server.asked.size(), 4);
        QCOMPARE(desk.texts, QByteArrayList({{}, {}}));
        QVERIFY(desk.texts.first().isNull());
        desk.facts.seconds = 31;
        desk.request();
        QTRY_COMPARE(desk.outcomes.size(), 3);
        QCOMPARE(desk.server.asked.size(), 8);
        desk.facts.seconds = 30;
        desk.clock += std::chrono::milliseconds(1h).count();
        desk.request();
        QTRY_COMPARE(desk.outcomes.size(), 4);
        QCOMPARE(desk.server.asked.size(), 12);
    }

    void aSongWithoutWordsIsToldAsThat()
    {
        Desk desk;
        desk.server.then(LyricServer::answer(200,
            R"({"trackName":"The Star","artistName":"Jane Taylor","instrumental":true,"syncedLyrics":null})"));
        desk.request();
        QTRY_COMPARE(desk.outcomes, QList({Outcome::NotFound}));
        QVERIFY(desk.message.contains(QLatin1String("without words")));
        QCOMPARE(desk.server.asked.size(), 1);
    }

    void aSongIsNotToBeFoundByNothing()
    {
        Desk desk;
        desk.request(QString(), QString());
        QCOMPARE(desk.outcomes.size(), 0);
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Failed}));
        QVERIFY(desk.message.contains(QLatin1String("no song")));
        desk.request(QStringLiteral(" "), QStringLiteral("Jane Taylor"));
        QTRY_COMPARE(desk.outcomes.size(), 2);
        QVERIFY(desk.message.contains(QLatin1String("no title")));
        QVERIFY(desk.server.asked.isEmpty());
    }

    void anAddressThatIsNotSafeIsNotAsked()
    {
        Desk desk;
        desk.settings.address = QUrl(QStringLiteral("http://192.0.2.1"));
        desk.request();
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Failed}));
        QCOMPARE(desk.texts, QByteArrayList({{}}));
    }

    void answersThatAreNoLyricAreRefused_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("a page") << QByteArray("<html><body>Log in</body></html>");
        QTest::newRow("deep") << QByteArray(100'000, '[');
        QTest::newRow("NaN") << record(kSynced, "null").replace("30", "NaN");
        QTest::newRow("a list of one") << "[" + record(kSynced, "null") + "]";
    }

    void answersThatAreNoLyricAreRefused()
    {
        QFETCH(QByteArray, body);
        Desk desk;
        desk.server.then(LyricServer::answer(200, body));
        desk.request();
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Failed}));
        QVERIFY(desk.texts.first().isNull());
        QVERIFY(desk.message.contains(QLatin1String("no lyric")));
        QCOMPARE(desk.server.asked.size(), 1);
    }

    void aBusyServiceIsAskedOnceMore()
    {
        Desk desk;
        desk.server.then(LyricServer::answer(504, "<html>"));
        desk.server.then(LyricServer::answer(200, record(kSynced, "null")));
        desk.request();
        QTRY_COMPARE(desk.texts, QByteArrayList({"[00:01.00]a\n"}));
        QCOMPARE(desk.server.asked.at(0), desk.server.asked.at(1));

        Desk busy;
        busy.server.then(LyricServer::answer(429, {}, "Retry-After: 0\r\n"));
        busy.server.then(LyricServer::answer(503, {}));
        busy.request();
        QTRY_COMPARE(busy.outcomes, QList({Outcome::Failed}));
        QCOMPARE(busy.server.asked.size(), 2);
    }

    void aLongPauseIsKeptWithinReasonAndNotWaitedFor()
    {
        Desk desk;
        desk.server.then(LyricServer::answer(429, {}, "Retry-After: 315360000\r\n"));
        desk.request();
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Failed}));
        QCOMPARE(desk.server.asked.size(), 1);
        desk.clock += std::chrono::milliseconds(10min).count() - 1000;
        desk.request();
        QTRY_COMPARE(desk.outcomes.size(), 2);
        QVERIFY2(desk.message.contains(QLatin1String("in 1 s")), qPrintable(desk.message));
        QCOMPARE(desk.server.asked.size(), 1);
        desk.clock += 1000;
        desk.server.then(LyricServer::answer(200, record(kSynced, "null")));
        desk.request();
        QTRY_COMPARE(desk.outcomes.size(), 3);
        QCOMPARE(desk.outcomes.last(), Outcome::Found);
    }

    void problemsAreToldInPlainWords_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("words");
        QTest::newRow("refused") << 403 << QStringLiteral("refused the search (status 403)");
        QTest::newRow("moved") << 301 << QStringLiteral("not safe");
        QTest::newRow("nothing") << 204 << QStringLiteral("refused the search (status 204)");
    }

    void problemsAreToldInPlainWords()
    {
        QFETCH(int, status);
        QFETCH(QString, words);
        Desk desk;
        desk.server.then(LyricServer::answer(status, {}));
        desk.request();
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Failed}));
        QVERIFY2(desk.message.contains(words), qPrintable(desk.message));
    }

    void theWholeSearchIsInTime()
    {
        Desk desk;
        desk.settings.time = 50ms; // of one answer: 20 s
        desk.server.then(LyricServer::answer(404, "{}"));
        desk.server.then(LyricServer::bytes({}, Then::Silence));
        desk.request();
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Failed}));
        QVERIFY(desk.message.contains(QLatin1String("did not answer in time")));
        QCOMPARE(desk.texts, QByteArrayList({QByteArray()}));
        QTRY_VERIFY(!desk.server.client);
    }

    void itsPausesCountToo()
    {
        Desk desk;
        desk.settings.time = 50ms;
        desk.server.then(LyricServer::answer(503, {}, "Retry-After: 5\r\n"));
        desk.request();
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Failed}));
        QVERIFY(desk.message.contains(QLatin1String("did not answer in time")));
    }

    void whatWasFoundInTimeIsFound()
    {
        Desk desk;
        desk.server.then(LyricServer::answer(200, record("null", kPlain)));
        desk.server.then(LyricServer::bytes({}, Then::Silence));
        desk.settings.time = 2s; // enough for the first answer
        desk.request();
        QTRY_COMPARE(desk.texts, QByteArrayList({"a\n"}));
        QCOMPARE(desk.outcomes, QList({Outcome::Found}));
    }

    void cancellingAnswersAtOnceAndOnce()
    {
        Desk desk;
        desk.server.then(LyricServer::bytes("HTTP/1.1 200 OK\r\n", Then::Silence));
        desk.request();
        QTRY_COMPARE(desk.server.asked.size(), 1);
        desk.search->cancel();
        QCOMPARE(desk.texts, QByteArrayList({{}}));
        QCOMPARE(desk.outcomes, QList({Outcome::Cancelled}));
        desk.search->cancel();
        desk.search->withdraw();
        QTRY_VERIFY(!desk.server.client);
        QCOMPARE(desk.texts.size(), 1);
    }

    void anAnswerThatIsAlreadyThereComesTooLateAfterCancel()
    {
        Desk desk;
        desk.server.then([&desk](QTcpSocket &socket) {
            LyricServer::answer(200, record(kSynced, "null"))(socket);
            socket.waitForBytesWritten();
            desk.search->withdraw();
        });
        desk.request();
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Withdrawn}));
        QVERIFY(desk.message.isEmpty());
        QCOMPARE(desk.texts, QByteArrayList({{}}));
        QVERIFY(desk.texts.first().isNull());
        // What was due has come when a whole search has come and gone.
        desk.request(QStringLiteral("Other"));
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Withdrawn, Outcome::NotFound}));
        QCOMPARE(desk.texts, QByteArrayList({{}, {}}));
    }

    void aNewRequestWithdrawsTheOneBefore()
    {
        Desk desk;
        desk.server.then(LyricServer::bytes({}, Then::Silence));
        desk.server.then(LyricServer::answer(200, record(kSynced, "null")));
        desk.request();
        QTRY_COMPARE(desk.server.asked.size(), 1);
        desk.request();
        QCOMPARE(desk.texts, QByteArrayList({{}}));
        QTRY_COMPARE(desk.texts, QByteArrayList({{}, "[00:01.00]a\n"}));
        QCOMPARE(desk.outcomes, QList({Outcome::Withdrawn, Outcome::Found}));
    }

    void whatWasWithdrawnBeforeItBeganIsNeverAsked()
    {
        Desk desk;
        desk.request();
        desk.request(QStringLiteral("Other"));
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Withdrawn, Outcome::NotFound}));
        QCOMPARE(desk.server.asked.size(), 4);
        QVERIFY(!desk.server.asked.join().contains("Star"));
    }

    void cancelledDuringThePauseItAsksNoMore()
    {
        Desk desk;
        desk.settings.pause = 1h;
        desk.settings.longestPause = 2h;
        desk.server.then(LyricServer::bytes("HTTP/1.1 503 Busy\r\n\r\n", Then::Close));
        desk.request();
        QTRY_VERIFY(desk.server.asked.size() == 1 && !desk.server.client);
        desk.search->cancel();
        // Whatever was due has run when a whole search has come and gone.
        desk.request(QStringLiteral("Other"));
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Cancelled, Outcome::NotFound}));
        QCOMPARE(desk.server.asked.size(), 5);
    }

    void destroyedAtAnyTimeItAnswersOnce()
    {
        for (const int requests : {0, 1}) {
            Desk desk;
            desk.server.then(LyricServer::bytes("HTTP/1.1 200 OK\r\n", Then::Silence));
            desk.request();
            QTRY_COMPARE(desk.server.asked.size(), requests);
            desk.search.reset();
            QCOMPARE(desk.texts, QByteArrayList({{}}));
            // Nobody is left to be told how.
            QVERIFY(desk.outcomes.isEmpty());
        }
    }

    void theAnswerMayDestroyIt()
    {
        for (const bool isFound : {true, false}) {
            Desk desk;
            desk.onText = [&desk] { desk.search.reset(); };
            if (isFound) {
                desk.server.then(LyricServer::answer(200, record(kSynced, "null")));
            }
            desk.request(isFound ? QStringLiteral("The Star") : QString());
            QTRY_COMPARE(desk.texts.size(), 1);
            QVERIFY(!desk.search);
            QCOMPARE(desk.texts.first().isNull(), !isFound);
        }
    }

    void theAnswerMayAskAgain()
    {
        Desk desk;
        desk.server.then(LyricServer::answer(200, record(kSynced, "null")));
        desk.onText = [&desk] {
            if (desk.texts.size() == 1) {
                desk.request();
            }
        };
        desk.request();
        QTRY_COMPARE(desk.outcomes, QList({Outcome::Found, Outcome::NotFound}));
        QCOMPARE(desk.texts.size(), 2);
    }

    void noCompletionIsNoHarm()
    {
        Desk desk;
        desk.open();
        desk.search->requestLyric_artist_completion(QStringLiteral("The Star"), {}, {});
        QTRY_COMPARE(desk.outcomes, QList({Outcome::NotFound}));
    }
};

QTEST_GUILESS_MAIN(LyricSearchTest)
#include "tst_lyric_search.moc"
