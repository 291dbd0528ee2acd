// SPDX-License-Identifier: MIT
//
// One GET against a server that does whatever it can to hurt.
#include "host/BoundedGet.h"
#include "host/LyricServer.h"
#include "support/QtWarnings.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QScopeGuard>
#include <QtCore/QTemporaryDir>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslKey>
#include <QtNetwork/QSslServer>
#include <QtTest/QTest>

using desk::BoundedGet;
using Problem = BoundedGet::Problem;
using Then = LyricServer::Then;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(LyricServer::Reply)

namespace {

// The toolkit asks again by itself when a connection ends before there is an answer.
constexpr int kMostTries = 6;

const QByteArray kOk = "HTTP/1.1 200 OK\r\n";

struct Asked
{
    explicit Asked(const QUrl &address, BoundedGet::Limits limits = {})
        : get(std::make_unique<BoundedGet>(network, "tester v1", limits))
    {
        QObject::connect(get.get(), &BoundedGet::finished, [this](const BoundedGet::Answer &given) {
            ++answers;
            answer = given;
        });
        get->start(address);
    }
    QNetworkAccessManager network;
    std::unique_ptr<BoundedGet> get;
    BoundedGet::Answer answer;
    int answers = 0;
};

// A certificate for this computer that nobody vouches for, and its key.
struct OwnCertificate
{
    OwnCertificate()
    {
        QProcess openssl;
        openssl.start(QStringLiteral("openssl"),
            QStringLiteral("req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=127.0.0.1 -addext "
                           "subjectAltName=IP:127.0.0.1 -keyout %1 -out %2")
                .arg(folder.filePath(QStringLiteral("key")), folder.filePath(QStringLiteral("certificate")))
                .split(QLatin1Char(' ')));
        openssl.waitForFinished(60000);
        QFile key(folder.filePath(QStringLiteral("key")));
        QFile certificate(folder.filePath(QStringLiteral("certificate")));
        if (key.open(QIODevice::ReadOnly) && certificate.open(QIODevice::ReadOnly)) {
            configuration = QSslConfiguration::defaultConfiguration();
            configuration.setPrivateKey(QSslKey(&key, QSsl::Rsa));
            configuration.setLocalCertificate(QSslCertificate(&certificate));
        }
    }
    [[nodiscard]] std::unique_ptr<QTcpServer> newServer() const
    {
        auto server = std::make_unique<QSslServer>();
        server->setSslConfiguration(configuration);
        return server;
    }
    QTemporaryDir folder;
    QSslConfiguration configuration;
};

} // namespace

class BoundedGetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void aPlainAnswerComesWhole()
    {
        LyricServer server;
        server.then(LyricServer::answer(200, "{\"a\":1}"));
        const Asked asked(server.address("http", "/api/get?q=a%20b"));
        QCOMPARE(asked.answers, 0);
        QTRY_COMPARE(asked.answers, 1);
        QCOMPARE(asked.answer.problem, Problem::None);
        QCOMPARE(asked.answer.status, 200);
        QCOMPARE(asked.answer.body, QByteArray("{\"a\":1}"));
        QCOMPARE(server.asked, QByteArrayList({"GET /api/get?q=a%20b"}));
        QVERIFY(server.heads.first().contains("\r\nUser-Agent: tester v1\r\n"));
    }

    void anErrorOfHttpIsAnAnswer()
    {
        LyricServer server;
        server.then(LyricServer::answer(503, "busy", "Retry-After: 7\r\n"));
        const Asked asked(server.address());
        QTRY_COMPARE(asked.answers, 1);
        QCOMPARE(asked.answer.problem, Problem::None);
        QCOMPARE(asked.answer.status, 503);
        QCOMPARE(asked.answer.retryAfter, QByteArray("7"));
    }

    void compressionIsNotAskedFor()
    {
        LyricServer server;
        server.then(LyricServer::answer(200, "[1,2]", "Content-Encoding: identity\r\n"));
        const Asked asked(server.address());
        QTRY_COMPARE(asked.answers, 1);
        QCOMPARE(asked.answer.body, QByteArray("[1,2]"));
        QVERIFY(server.heads.first().contains("\r\nAccept-Encoding: identity\r\n"));
    }

    void theLargestAnswerThatIsTaken()
    {
        BoundedGet::Limits limits;
        limits.bytes = 200'000;
        for (const auto &[size, problem] :
            {std::pair(200'000, Problem::None), std::pair(200'001, Problem::TooLarge)}) {
            LyricServer server;
            server.then(LyricServer::answer(200, QByteArray(size, 'x')));
            const Asked asked(server.address(), limits);
            QTRY_COMPARE(asked.answers, 1);
            QCOMPARE(asked.answer.problem, problem);
            QCOMPARE(asked.answer.body.size(), problem == Problem::None ? size : 0);
        }
    }

    void whatHurtsEndsAsAProblem_data()
    {
        QTest::addColumn<LyricServer::Reply>("reply");
        QTest::addColumn<Problem>("problem");
        const QByteArray chunk(65536, 'x');
        QTest::newRow("endless body") << LyricServer::endless(kOk + "\r\n", chunk) << Problem::TooLarge;
        QTest::newRow("endless body in chunks")
            << LyricServer::endless(kOk + "Transfer-Encoding: chunked\r\n\r\n", "10000\r\n" + chunk + "\r\n")
            << Problem::TooLarge;
        QTest::newRow("a bomb") << LyricServer::answer(
            200, qCompress(QByteArray(64 << 20, ' ')).mid(4), "Content-Encoding: deflate\r\n")
                                << Problem::BrokenOff;
        QTest::newRow("compressed, they say")
            << LyricServer::answer(200, "no", "Content-Encoding: gzip\r\n") << Problem::BrokenOff;
        QTest::newRow("promises more than it sends")
            << LyricServer::bytes(kOk + "Content-Length: 500\r\n\r\n{}", Then::Close) << Problem::BrokenOff;
        QTest::newRow("promises 9 EB")
            << LyricServer::endless(kOk + "Content-Length: 9223372036854775807\r\n\r\n", chunk)
            << Problem::TooLarge;
        QTest::newRow("says nothing") << LyricServer::bytes({}, Then::Close) << Problem::Unreachable;
        QTest::newRow("is not HTTP") << LyricServer::bytes("220 mail\r\n\r\n", Then::Close)
                                     << Problem::Unreachable;
        QTest::newRow("to a file") << LyricServer::redirect("file:///etc/passwd") << Problem::BadRedirect;
        QTest::newRow("to data") << LyricServer::redirect("data:text/plain,x") << Problem::BadRedirect;
        QTest::newRow("to another computer without encryption")
            << LyricServer::redirect("http://192.0.2.1/") << Problem::BadRedirect;
        QTest::newRow("with a password")
            << LyricServer::redirect("https://a:b@localhost/") << Problem::BadRedirect;
        QTest::newRow("to nowhere") << LyricServer::answer(302, {}) << Problem::BadRedirect;
    }

    void whatHurtsEndsAsAProblem()
    {
        QFETCH(LyricServer::Reply, reply);
        QFETCH(Problem, problem);
        LyricServer server;
        for (int tries = 0; tries < kMostTries; ++tries) {
            server.then(reply);
        }
        const Asked asked(server.address());
        QTRY_COMPARE(asked.answers, 1);
        QCOMPARE(asked.answer.problem, problem);
        QVERIFY(asked.answer.body.isEmpty());
        QVERIFY(server.asked.size() <= kMostTries);
    }

    void whatIsSlowEnds_data()
    {
        QTest::addColumn<QByteArray>("said");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("half a head") << kOk + "X-";
        QTest::newRow("a byte of the body") << kOk + "Content-Length: 100\r\n\r\n{";
    }

    void whatIsSlowEnds()
    {
        QFETCH(QByteArray, said);
        LyricServer server;
        server.then(LyricServer::bytes(said, Then::Silence));
        BoundedGet::Limits limits;
        limits.time = 300ms;
        const Asked asked(server.address(), limits);
        QTRY_COMPARE(asked.answers, 1);
        QCOMPARE(asked.answer.problem, Problem::TooSlow);
        // The connection is given up, too.
        QTRY_VERIFY(!server.client);
    }

    // Each byte is in time, all of them are not.
    void aByteNowAndThenIsNotInTime()
    {
        LyricServer server;
        server.then(LyricServer::endless(kOk + "\r\n", " "));
        BoundedGet::Limits limits;
        limits.time = 300ms;
        limits.bytes = qint64(1) << 40;
        const Asked asked(server.address(), limits);
        QTRY_COMPARE(asked.answers, 1);
        QCOMPARE(asked.answer.problem, Problem::TooSlow);
    }

    void threeRedirectsAreFollowedAndNotAFourth()
    {
        LyricServer server;
        for (const char *to : {"/1", "2", "?3"}) {
            server.then(LyricServer::redirect(to));
        }
        server.then(LyricServer::answer(200, "there"));
        const Asked asked(server.address("http", "/a/b"));
        QTRY_COMPARE(asked.answers, 1);
        QCOMPARE(asked.answer.body, QByteArray("there"));
        QCOMPARE(server.asked, QByteArrayList({"GET /a/b", "GET /1", "GET /2", "GET /2?3"}));

        LyricServer loop;
        for (int redirect = 0; redirect < 9; ++redirect) {
            loop.then(LyricServer::redirect("/"));
        }
        const Asked lost(loop.address());
        QTRY_COMPARE(lost.answers, 1);
        QCOMPARE(lost.answer.problem, Problem::BadRedirect);
        QCOMPARE(loop.asked.size(), 4);
    }

    void aSecondAnswerIsNotTakenForTheNextOne()
    {
        LyricServer server;
        const QByteArray head = kOk + "Content-Length: 3\r\n\r\n";
        server.then(LyricServer::bytes(head + "one" + head + "two", Then::Silence));
        server.then(LyricServer::answer(200, "three"));
        Asked asked(server.address());
        QTRY_COMPARE(asked.answers, 1);
        QCOMPARE(asked.answer.body, QByteArray("one"));
        BoundedGet next(asked.network, "tester", {});
        QByteArray body;
        connect(&next, &BoundedGet::finished, this, [&](const auto &answer) { body = answer.body; });
        next.start(server.address());
        QTRY_COMPARE(body, QByteArray("three"));
        QCOMPARE(asked.answers, 1);
    }

    void nobodyListens()
    {
        QUrl address;
        {
            const LyricServer server;
            address = server.address();
        }
        const Asked asked(address);
        QTRY_COMPARE(asked.answers, 1);
        QCOMPARE(asked.answer.problem, Problem::Unreachable);
    }

    void oneThatIsGoneAsksNoMoreAndSaysNothing()
    {
        LyricServer server;
        server.then(LyricServer::bytes(kOk, Then::Silence));
        Asked asked(server.address());
        QTRY_COMPARE(server.asked.size(), 1);
        asked.get.reset();
        QTRY_VERIFY(!server.client);
        QCOMPARE(asked.answers, 0);
    }

    void addresses_data()
    {
        QTest::addColumn<bool>("isSafe");
        for (const char *safe : {"https://lrclib.net", "https://192.0.2.1:8443/x", "http://127.0.0.1:1",
                 "http://127.9.9.9", "http://[::1]:80/", "http://localhost"}) {
            QTest::newRow(safe) << true;
        }
        for (const char *unsafe :
            {"", "http://lrclib.net", "http://127.0.0.1.example.org", "http://localhost.example.org",
                "https://", "file:///tmp/x", "ftp://localhost", "https://user@localhost", "localhost"}) {
            QTest::newRow(unsafe) << false;
        }
    }

    void addresses()
    {
        QFETCH(bool, isSafe);
        QCOMPARE(desk::isSafeAddress(QUrl(QString::fromLatin1(QTest::currentDataTag()))), isSafe);
    }

    void encryptedOnlyWithACertificateThatHolds()
    {
        const OwnCertificate own;
        QVERIFY(!own.configuration.localCertificate().isNull());
        LyricServer server(own.newServer());
        LyricServer plain;
        server.then(LyricServer::answer(200, "trusted"));
        const Asked refused(server.address("https"));
        QTRY_COMPARE(refused.answers, 1);
        QCOMPARE(refused.answer.problem, Problem::BadCertificate);
        QVERIFY(server.asked.isEmpty());

        const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
        const auto restore = qScopeGuard([&] { QSslConfiguration::setDefaultConfiguration(before); });
        QSslConfiguration trusting = before;
        trusting.addCaCertificate(own.configuration.localCertificate());
        QSslConfiguration::setDefaultConfiguration(trusting);
        const Asked trusted(server.address("https"));
        QTRY_COMPARE(trusted.answers, 1);
        QCOMPARE(trusted.answer.body, QByteArray("trusted"));

        // Never less safe, also to where it would have been allowed to begin.
        server.then(LyricServer::redirect(plain.address().toEncoded()));
        const Asked redirected(server.address("https"));
        QTRY_COMPARE(redirected.answers, 1);
        QCOMPARE(redirected.answer.problem, Problem::BadRedirect);
        QVERIFY(plain.asked.isEmpty());
    }
};

QTEST_GUILESS_MAIN(BoundedGetTest)
#include "tst_bounded_get.moc"
