// SPDX-License-Identifier: MIT
//
// Searching for a lyric in lyricdesk's window, by its keys and its button.
#include "editor/TQLRCEditorViewCtl.h"
#include "host/DeskWindow.h"
#include "host/LyricServer.h"
#include "host/Songs.h"
#include "media/items/TaggedAudioFile.h"
#include "media/player/Player.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "shell/contracts/EditorKeys.h"
#include "shell/contracts/TQInterfaceConfig.h"
#include "support/QtWarnings.h"

#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>

using Then = LyricServer::Then;

class DeskSearchTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    std::unique_ptr<LyricServer> m_server;
    std::unique_ptr<desk::DeskWindow> m_window;

    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    QByteArray text() const { return m_window->component()->songText(); }
    QString status() const { return m_window->statusBar()->currentMessage(); }
    QToolButton *cancelButton() const
    {
        return m_window->findChild<QToolButton *>(QStringLiteral("btnCancelSearch"));
    }
    bool isShownAsSearching() const { return cancelButton()->isVisible(); }
    void search() const
    {
        QTest::keyClick(m_window->component()->editorViewCtl()->tableView(), Qt::Key_F,
            Qt::ControlModifier | Qt::ShiftModifier);
    }
    void answerWithALyric() const
    {
        const QString title = m_window->song()->title();
        m_server->then(LyricServer::answer(200,
            R"([{"trackName":")" + title.toUtf8()
                + R"(","artistName":"Jane Taylor","syncedLyrics":"[00:01.00]found\n"}])"));
    }

private Q_SLOTS:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        QVERIFY(songs::make(path("a.mp3"), "a\n"));
        QVERIFY(songs::make(path("b.flac"), "b\n"));
    }

    void init()
    {
        support::failOnUnexpectedWarnings();
        m_server = std::make_unique<LyricServer>();
        desk::LyricSearch::Settings settings;
        settings.address = m_server->address();
        m_window = std::make_unique<desk::DeskWindow>(media::Player::create(), settings);
        m_window->show();
        QVERIFY(m_window->open(path("b.flac")));
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_window->component()->editorViewCtl()->tableView()->setFocus();
    }

    void cleanup()
    {
        m_window.reset();
        m_server.reset();
    }

    void whatIsFoundIsLoadedAndCanBeTakenBack()
    {
        answerWithALyric();
        QVERIFY(!isShownAsSearching());
        search();
        QVERIFY(isShownAsSearching());
        QTRY_COMPARE(text(), QByteArray("[00:01.00]found\n"));
        QVERIFY(!isShownAsSearching());
        QVERIFY2(status().startsWith(QLatin1String("A lyric was found")), qPrintable(status()));
        QTRY_VERIFY(m_window->isWindowModified());
        m_window->component()->action(EditorCommand::Undo)->trigger();
        QCOMPARE(text(), QByteArray("b\n"));
        QTRY_VERIFY(!m_window->isWindowModified());
        // The file says who sings it, or nobody does; its title and length are its own.
        QVERIFY(m_server->asked.first().contains("track_name=The%20Star"));
    }

    void nothingFoundIsToldAndChangesNothing()
    {
        search();
        QTRY_COMPARE(status(), QStringLiteral("No lyric was found for this song."));
        QCOMPARE(text(), QByteArray("b\n"));
        QVERIFY(!isShownAsSearching());
        QVERIFY(!m_window->isWindowModified());
    }

    void whatWentWrongIsTold()
    {
        m_server->then(LyricServer::answer(200, "<html>"));
        search();
        QTRY_VERIFY(status().contains(QLatin1String("something that is no lyric")));
        QCOMPARE(text(), QByteArray("b\n"));
    }

    void escapeAndTheButtonCancelIt_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("escape") << true;
        QTest::newRow("button") << false;
    }

    void escapeAndTheButtonCancelIt()
    {
        QFETCH(bool, byKey);
        m_server->then(LyricServer::bytes({}, Then::Silence));
        search();
        QTRY_COMPARE(m_server->asked.size(), 1);
        QVERIFY(isShownAsSearching());
        if (byKey) {
            QTest::keyClick(m_window->component()->editorViewCtl()->tableView(), Qt::Key_Escape);
        } else {
            QTest::mouseClick(cancelButton(), Qt::LeftButton);
        }
        QCOMPARE(status(), QStringLiteral("The search was cancelled."));
        QVERIFY(!isShownAsSearching());
        QTRY_VERIFY(!m_server->client);
        QCOMPARE(text(), QByteArray("b\n"));
    }

    void escapeGoesFirstToWhoeverElseUsesIt()
    {
        const auto editor = m_window->component()->editorViewCtl();
        editor->flushWithSongText("[00:01.00]b\n");
        m_server->then(LyricServer::bytes({}, Then::Silence));
        search();
        editor->tableView()->editColumn_row_select(1, 0, true);
        QVERIFY(QApplication::focusWidget() != editor->tableView());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QCOMPARE(QApplication::focusWidget(), editor->tableView());
        QVERIFY(isShownAsSearching());

        QTest::keyClick(editor->tableView(), Qt::Key_P, Qt::ControlModifier);
        QVERIFY(!editor->view()->isVisible());
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        QTRY_VERIFY(editor->view()->isVisible());
        QVERIFY(isShownAsSearching());

        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        QCOMPARE(status(), QStringLiteral("The search was cancelled."));
    }

    void searchingAgainBeginsAnew()
    {
        m_server->then(LyricServer::bytes({}, Then::Silence));
        search();
        QTRY_COMPARE(m_server->asked.size(), 1);
        const QPointer<QTcpSocket> first = m_server->client;
        answerWithALyric();
        search();
        QVERIFY(isShownAsSearching());
        QTRY_COMPARE(text(), QByteArray("[00:01.00]found\n"));
        QTRY_VERIFY(!first);
        QVERIFY(!isShownAsSearching());
        m_window->component()->action(EditorCommand::Undo)->trigger();
        QCOMPARE(text(), QByteArray("b\n")); // it was found once
    }

    void anotherSongWithdrawsIt()
    {
        // The answer is on its way when the song is changed.
        m_server->then([this](QTcpSocket &socket) {
            LyricServer::answer(200, R"([{"trackName":"The Star","artistName":"","plainLyrics":"late"}])")(
                socket);
            socket.waitForBytesWritten();
            QVERIFY(m_window->open(path("a.mp3")));
        });
        search();
        QTRY_COMPARE(m_server->asked.size(), 1);
        QVERIFY(!isShownAsSearching());
        QVERIFY(status().isEmpty());
        // What was due has come when a whole search has come and gone.
        search();
        QTRY_COMPARE(status(), QStringLiteral("No lyric was found for this song."));
        QCOMPARE(text(), QByteArray("a\n"));
        QVERIFY(!m_window->hasUnsavedChanges());
    }

    void theWindowMayCloseMeanwhile()
    {
        m_server->then(LyricServer::bytes({}, Then::Silence));
        search();
        QTRY_COMPARE(m_server->asked.size(), 1);
        const std::weak_ptr<TQWLRCEditorViewCtl> component = m_window->component();
        m_window.reset();
        QVERIFY(component.expired());
        QVERIFY(!TQInterfaceConfig::getBridge());
        QTRY_VERIFY(!m_server->client);
    }

    void anEndlessTitleDoesNotWidenTheWindow()
    {
        const int before = m_window->minimumSizeHint().width();
        m_server->then(LyricServer::bytes({}, Then::Silence));
        const auto service = TQInterfaceConfig::getBridge()->lrcDownloadInterface();
        service->requestLyric_artist_completion(
            QString(5000, QLatin1Char('W')) + QChar(0x202e), QString(), [](const QByteArray &) {});
        QVERIFY(isShownAsSearching());
        QTRY_VERIFY(m_window->minimumSizeHint().width() <= std::max(before, 900));
        auto *label = cancelButton()->parentWidget()->findChild<QLabel *>();
        QVERIFY(label->text().contains(QChar(0x2026)) && !label->text().contains(QChar(0x202e)));
    }
};

QTEST_MAIN(DeskSearchTest)
#include "tst_desk_search.moc"
