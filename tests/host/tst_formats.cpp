// SPDX-License-Identifier: MIT
//
// Open, stamp while it plays, save, open again: for every format, read back by another program.
#include "editor/TQLRCEditorViewCtl.h"
#include "host/DeskWindow.h"
#include "host/Songs.h"
#include "media/items/TaggedAudioFile.h"
#include "media/player/Player.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "support/QtWarnings.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

class Formats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void aStampedLyricIsInTheFile_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *suffix : {"mp3", "flac", "m4a", "ogg"}) {
            QTest::newRow(suffix) << QStringLiteral("song.") + QString::fromLatin1(suffix);
        }
    }

    void aStampedLyricIsInTheFile()
    {
        QFETCH(QString, name);
        QTemporaryDir folder;
        const QString path = folder.filePath(name);
        QVERIFY(songs::make(path, "First line\r\nZweite Zeile äöü\r\n星よ\r\n"));

        const auto player = media::Player::create();
        desk::DeskWindow window(player);
        window.show();
        QVERIFY(window.open(path));
        const auto editor = window.component()->editorViewCtl();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCOMPARE(editor->songLinesNum(), 3);
        QVERIFY(player->isPlaying());
        editor->tableView()->setFocus();
        for (const double moment : {0.2, 0.4, 0.6}) {
            QTRY_VERIFY_WITH_TIMEOUT(player->position() >= moment, 20000);
            QTest::keyClick(editor->tableView(), Qt::Key_Return);
        }
        QTRY_VERIFY(window.isWindowModified());
        QVERIFY(window.save());
        QVERIFY(!window.isWindowModified());

        const QByteArray saved = window.song()->lyric();
        QCOMPARE(saved.count("\r\n"), 4);
        QVERIFY(saved.contains("]First line\r\n["));
        QVERIFY(saved.contains("]星よ\r\n"));
        QCOMPARE(songs::lyricReadByAnother(path), saved);

        QVERIFY(window.open(path));
        QCOMPARE(window.component()->songText(), saved);
        QCOMPARE(window.song()->lyric(), saved);
        QVERIFY(!window.hasUnsavedChanges());
    }
};

QTEST_MAIN(Formats)
#include "tst_formats.moc"
