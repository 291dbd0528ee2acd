// SPDX-License-Identifier: MIT
#include "EditorOnScreen.h"
#include "kit/DropTipView.h"
#include "support/QtWarnings.h"

#include <QtCore/QMimeData>
#include <QtCore/QTemporaryDir>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>

class Loading : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString file(const char *name, const QByteArray &bytes) const
    {
        QFile file(m_folder.filePath(QString::fromLatin1(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("cannot write a test file");
        }
        return file.fileName();
    }

    static void drop(const EditorOnScreen &screen, const QStringList &paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString &path : paths) {
            urls.append(QUrl::fromLocalFile(path));
        }
        data.setUrls(urls);
        DropTipView *target = screen.table()->dropTipView();
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &event);
    }

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void itemWithoutLyricIsAnUnchangedEmptyDocument()
    {
        EditorOnScreen screen;
        screen.load("");
        QCOMPARE(screen.editor->songLinesNum(), 0);
        QVERIFY(!screen.editor->isLrcChanged());
        QCOMPARE(screen.columnIdentifiers(), QStringList({QStringLiteral("number"), QStringLiteral("text")}));
        QVERIFY(!screen.editor->serializeToAudioItem());
    }

    void originalTextIsBothDocumentsAndUnchanged()
    {
        EditorOnScreen screen;
        const int before = screen.host->changes;
        screen.editor->flushWithOriginalSongText("[00:01.00]a\nb\n");
        QVERIFY(!screen.editor->isLrcChanged());
        QCOMPARE(screen.editor->originSong().songText(), std::string_view("[00:01.00]a\nb\n"));
        QCOMPARE(screen.host->changes, before + 1);
    }

    void songTextAloneCountsAsAChange()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        screen.editor->flushWithSongText("b\n");
        QVERIFY(screen.editor->isLrcChanged());
        QCOMPARE(screen.editor->originSong().songText(), std::string_view("a\n"));
    }

    void serialisingWritesOnceAndKeepsTheBaseline()
    {
        EditorOnScreen screen;
        screen.item = std::make_shared<standin::Item>("a\nb\n");
        screen.load("a\nb\n");
        screen.edit("text", 0, QStringLiteral("A"));
        QVERIFY(screen.editor->serializeToAudioItem());
        QCOMPARE(screen.item->lyric(), QByteArray("A\nb\n"));
        QCOMPARE(screen.item->dirtyRefreshes, 1);
        QVERIFY(!screen.editor->serializeToAudioItem());
        QCOMPARE(screen.item->lyricWrites, 1);
        QCOMPARE(screen.item->dirtyRefreshes, 1);
        QVERIFY(screen.editor->isLrcChanged());
    }

    void anEditUndoneByHandWritesNothing()
    {
        EditorOnScreen screen;
        screen.item = std::make_shared<standin::Item>("[0:01.5] a\r\nb");
        screen.load("[0:01.5] a\r\nb");
        screen.edit("text", 0, QStringLiteral("x"));
        screen.edit("text", 0, QStringLiteral("a"));
        QVERIFY(!screen.editor->serializeToAudioItem());
        QCOMPARE(screen.item->lyricWrites, 0);
    }

    void serialisingWithoutAnItemSaysYesForText()
    {
        EditorOnScreen screen;
        screen.editor->flushWithOriginalSongText("a\n");
        QVERIFY(screen.editor->serializeToAudioItem());
        screen.editor->flushWithOriginalSongText("");
        QVERIFY(!screen.editor->serializeToAudioItem());
    }

    void serialisingCommitsAnOpenCellEditorAndTypingGoesOn()
    {
        EditorOnScreen screen;
        screen.load("a\n");
        screen.table()->editColumn_row_select(1, 0, true);
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        QVERIFY(screen.editor->serializeToAudioItem());
        QCOMPARE(screen.item->lyric(), QByteArray("typed\n"));
        QTest::keyClicks(screen.field(), QStringLiteral(" on"));
        QTest::keyClick(screen.field(), Qt::Key_Return);
        QCOMPARE(screen.editor->songText(), QByteArray("typed on\n"));
    }

    void droppedLyricBecomesTheWorkingDocument()
    {
        EditorOnScreen screen;
        screen.load("");
        drop(screen, {file("song.lrc", "\xef\xbb\xbf[00:01.00]dropped\n")});
        QCOMPARE(screen.cell("text", 0), QStringLiteral("dropped"));
        QVERIFY(screen.editor->isLrcChanged());
        QCOMPARE(screen.table()->selectedRow(), 0);
    }

    void onlyTheFirstDroppedFileIsLoaded()
    {
        EditorOnScreen screen;
        drop(screen, {file("1.lrc", "first\n"), file("2.lrc", "second\n"), file("3.lrc", "third\n")});
        QCOMPARE(screen.editor->songText(), QByteArray("first\n"));
    }

    void whatIsNoUtf8TextChangesNothing_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("UTF-16") << QByteArray("\xff\xfe[\0a\0]\0", 8);
        QTest::newRow("Latin-1 with accents") << QByteArray("caf\xe9 cr\xe8me\n");
        QTest::newRow("no byte at all") << QByteArray();
        QTest::newRow("cut in a character") << QByteArray("caf\xc3");
    }

    void whatIsNoUtf8TextChangesNothing()
    {
        QFETCH(QByteArray, bytes);
        EditorOnScreen screen;
        screen.load("kept\n");
        const int before = screen.host->changes;
        screen.editor->loadWithFileUrl(QUrl::fromLocalFile(file("odd.lrc", bytes)));
        QCOMPARE(screen.editor->songText(), QByteArray("kept\n"));
        QCOMPARE(screen.host->changes, before);
    }

    void missingFileAndFolderChangeNothing()
    {
        EditorOnScreen screen;
        screen.load("kept\n");
        screen.editor->loadWithFileUrl(QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("none.lrc"))));
        screen.editor->loadWithFileUrl(QUrl::fromLocalFile(m_folder.path()));
        screen.editor->loadWithFileUrl(QUrl());
        screen.editor->dropView_didDropFiles(nullptr, {});
        QCOMPARE(screen.editor->songText(), QByteArray("kept\n"));
    }

    void startWithEmptyFileOpensTheFirstLineForTyping()
    {
        EditorOnScreen screen;
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        QPushButton *button = screen.table()->dropTipView()->btnFunction();
        QCOMPARE(button->text(), QStringLiteral("Start with empty file"));
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(screen.editor->songLinesNum(), 1);
        QCOMPARE(screen.table()->selectedRow(), 0);
        QTRY_VERIFY(screen.table()->isEditingCell());
        QWidget *field = screen.field();
        QTest::keyClicks(field, QStringLiteral("First line"));
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_COMPARE(screen.text(0), "First line");
    }

    void importAboveExistingLinesEditsTheNewRow()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]old\n");
        screen.editor->importClick();
        QCOMPARE(screen.editor->songLinesNum(), 2);
        QCOMPARE(screen.text(0), "");
        QCOMPARE(screen.text(1), "old");
        QTRY_VERIFY(screen.table()->isEditingCell());
        QCOMPARE(screen.table()->currentIndex().row(), 0);
        QCOMPARE(screen.table()->currentIndex().column(), 1);
    }

    void theDelayedEditKeepsTheEditorAlive()
    {
        EditorOnScreen screen;
        screen.editor->importClick();
        const std::weak_ptr<TQLRCEditorViewCtl> gone = screen.editor;
        screen.editor.reset();
        QVERIFY(!gone.expired());
        QTRY_VERIFY(gone.expired());
    }

    void anotherItemsTextIsShownFromItsFirstLine()
    {
        EditorOnScreen screen;
        QByteArray text;
        for (int line = 0; line < 100; ++line) {
            text += "line\n";
        }
        screen.load(text);
        screen.table()->selectSingleRow(80);
        screen.table()->scrollRowToVisible(80);
        screen.load(text + "more\n");
        QCOMPARE(screen.table()->selectedRow(), 0);
        QCOMPARE(screen.table()->verticalScrollBar()->value(), 0);
    }

    void worksBeforeItsViewIsLoaded()
    {
        const auto editor = TQLRCEditorViewCtl::init();
        editor->flushWithOriginalSongText("[00:01.00]a\n");
        editor->insertTimeTag();
        editor->selectNextLine(false);
        editor->selectPrevLine(true);
        editor->deleteLineTag();
        editor->updatePlayerProgress(1.0);
        QCOMPARE(editor->songText(), QByteArray("[00:01.00]a\n"));
        QVERIFY(editor->view());
        QCOMPARE(editor->tableView()->numberOfRows(), 1);
        QCOMPARE(editor->tableView()->selectedRow(), 0);
    }
};

QTEST_MAIN(Loading)
#include "tst_loading.moc"
