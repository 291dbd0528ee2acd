// SPDX-License-Identifier: MIT
#include "editor/TQLRCEditorViewCtl.h"
#include "host/DeskWindow.h"
#include "host/Song.h"
#include "host/Songs.h"
#include "media/items/TaggedAudioFile.h"
#include "media/player/Player.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "support/ModalDialogs.h"
#include "support/QtWarnings.h"
#include "views/CellTextView.h"

#include <QtCore/QFile>
#include <QtCore/QMimeData>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStatusBar>

using support::whenDialogOpens;

namespace {

void answerWith(QMessageBox::StandardButton button, QString *seen = nullptr)
{
    whenDialogOpens([button, seen](QWidget &dialog) {
        auto &box = dynamic_cast<QMessageBox &>(dialog);
        if (seen) {
            *seen = box.text() + QLatin1Char('\n') + box.informativeText();
        }
        QTest::mouseClick(box.button(button), Qt::LeftButton);
    });
}

} // namespace

class DeskWindowTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    std::shared_ptr<media::Player> m_player;
    std::unique_ptr<desk::DeskWindow> m_window;

    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    std::shared_ptr<TQLRCEditorViewCtl> editor() const { return m_window->component()->editorViewCtl(); }
    void edit(const QString &text) const
    {
        editor()->tableView_setObjectValue_forTableColumn_row(
            editor()->tableView(), text, QStringLiteral("text"), 0);
    }
    void drop(QWidget *target, const QString &file) const
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(file)});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &event);
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
        m_player = media::Player::create();
        m_window = std::make_unique<desk::DeskWindow>(m_player);
        m_window->show();
    }

    void cleanup()
    {
        m_window.reset();
        m_player.reset();
    }

    void openingPlaysTheSongAndNamesItInTheTitle()
    {
        QVERIFY(m_window->open(path("a.mp3")));
        QVERIFY(m_player->isPlaying());
        QCOMPARE(m_player->playingMusic(), std::static_pointer_cast<WXEAudioFile>(m_window->song()));
        QCOMPARE(m_window->windowTitle(), QStringLiteral("The Star[*] – lyricdesk"));
        QVERIFY(!m_window->isWindowModified());
        QTRY_VERIFY_WITH_TIMEOUT(editor()->lblTabTime()->text() > QStringLiteral("[00:00.10]"), 20000);
    }

    void spacePausesAndResumes()
    {
        QVERIFY(m_window->open(path("a.mp3")));
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        editor()->tableView()->setFocus();
        QTest::keyClick(editor()->tableView(), Qt::Key_Space);
        QVERIFY(!m_player->isPlaying());
        QTest::keyClick(editor()->tableView(), Qt::Key_Space);
        QVERIFY(m_player->isPlaying());
    }

    void twoQuickStampsKeepTheSoundThatIsStillStarting()
    {
        QVERIFY(m_window->open(path("a.mp3")));
        m_player->pause();
        editor()->insertTimeTag();
        editor()->insertTimeTag();
        QVERIFY(m_player->isPlaying());
    }

    void theTitleShowsUnsavedChangesAgainstWhatWasSaved()
    {
        QVERIFY(m_window->open(path("a.mp3")));
        edit(QStringLiteral("x"));
        QTRY_VERIFY(m_window->isWindowModified());
        edit(QStringLiteral("a"));
        QTRY_VERIFY(!m_window->isWindowModified());
    }

    void savedChangesAreNotUnsaved()
    {
        QFile::copy(path("a.mp3"), path("saved.mp3"));
        QVERIFY(m_window->open(path("saved.mp3")));
        edit(QStringLiteral("x"));
        QVERIFY(m_window->save());
        QVERIFY(!m_window->isWindowModified());
        QCOMPARE(songs::lyricReadByAnother(path("saved.mp3")), QByteArray("x\n"));
        QVERIFY(m_player->isPlaying());
    }

    void savingAnUntouchedSongWritesNothing()
    {
        const QByteArray before = [this] {
            QFile file(path("b.flac"));
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        }();
        QVERIFY(!before.isEmpty());
        const QDateTime written = QFileInfo(path("b.flac")).lastModified();
        QVERIFY(m_window->open(path("b.flac")));
        QVERIFY(m_window->save());
        QFile file(path("b.flac"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), before);
        QCOMPARE(QFileInfo(path("b.flac")).lastModified(), written);
    }

    void whatIsBeingTypedIsAskedAboutAndKept()
    {
        QVERIFY(m_window->open(path("a.mp3")));
        editor()->tableView()->editColumn_row_select(1, 0, true);
        QTest::keyClicks(editor()->tableView()->findChild<views::CellTextView *>(), QStringLiteral("typed"));
        answerWith(QMessageBox::Cancel);
        QVERIFY(!m_window->open(path("b.flac")));
        QCOMPARE(m_window->component()->songText(), QByteArray("typed\n"));
        QCOMPARE(m_window->song()->path(), path("a.mp3"));
    }

    void discardedChangesMakeRoomForTheNextSong()
    {
        QVERIFY(m_window->open(path("a.mp3")));
        edit(QStringLiteral("x"));
        answerWith(QMessageBox::Discard);
        QVERIFY(m_window->open(path("b.flac")));
        QCOMPARE(m_window->component()->songText(), QByteArray("b\n"));
        QCOMPARE(songs::lyricReadByAnother(path("a.mp3")), QByteArray("a\n"));
    }

    void changesSavedAtTheQuestionAreInTheFile()
    {
        QFile::copy(path("a.mp3"), path("asked.mp3"));
        QVERIFY(m_window->open(path("asked.mp3")));
        edit(QStringLiteral("x"));
        answerWith(QMessageBox::Save);
        QVERIFY(m_window->open(path("b.flac")));
        QCOMPARE(songs::lyricReadByAnother(path("asked.mp3")), QByteArray("x\n"));
    }

    // The file was read before it was saved: the old words came back, and could not be saved over.
    void openingTheSameSongAgainAndSavingShowsWhatWasSaved()
    {
        QFile::copy(path("a.mp3"), path("again.mp3"));
        QVERIFY(m_window->open(path("again.mp3")));
        edit(QStringLiteral("x"));
        answerWith(QMessageBox::Save);
        QVERIFY(m_window->open(path("again.mp3")));
        QCOMPARE(m_window->component()->songText(), QByteArray("x\n"));
        edit(QStringLiteral("y"));
        QVERIFY(m_window->save());
        QCOMPARE(songs::lyricReadByAnother(path("again.mp3")), QByteArray("y\n"));
    }

    void aLyricWrittenWithoutASongGoesToTheNextOne()
    {
        QVERIFY(songs::make(path("bare.flac"), {}));
        editor()->flushWithSongText("words\n");
        answerWith(QMessageBox::Cancel);
        QVERIFY(!m_window->open(path("bare.flac")));
        QCOMPARE(m_window->component()->songText(), QByteArray("words\n"));
        QString seen;
        answerWith(QMessageBox::Yes, &seen);
        QVERIFY(m_window->open(path("bare.flac")));
        QVERIFY(seen.contains(QLatin1String("bare.flac")));
        QCOMPARE(m_window->component()->songText(), QByteArray("words\n"));
        QVERIFY(m_window->isWindowModified());
        QVERIFY(songs::lyricReadByAnother(path("bare.flac")).isEmpty());
        QVERIFY(m_window->save());
        QCOMPARE(songs::lyricReadByAnother(path("bare.flac")), QByteArray("words\n"));
    }

    void savingByKeyWhileACellIsOpenSavesWhatIsTyped()
    {
        QFile::copy(path("a.mp3"), path("typed.mp3"));
        QVERIFY(m_window->open(path("typed.mp3")));
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        editor()->tableView()->editColumn_row_select(1, 0, true);
        auto *field = editor()->tableView()->findChild<views::CellTextView *>();
        QTest::keyClicks(field, QStringLiteral("typed"));
        QTest::keyClick(field, Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(songs::lyricReadByAnother(path("typed.mp3")), QByteArray("typed\n"));
        QTRY_VERIFY(!m_window->isWindowModified());
    }

    void enterStampsAfterTheStripWasClicked()
    {
        QVERIFY(m_window->open(path("a.mp3")));
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        editor()->tableView()->setFocus();
        QTest::mouseClick(m_window->findChild<QWidget *>(QStringLiteral("btnPlay")), Qt::LeftButton);
        QTest::mouseClick(m_window->findChild<QWidget *>(QStringLiteral("prgSlider")), Qt::LeftButton);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(m_window->component()->songText().count("]a"), 1);
    }

    void theWindowIsNeverSmallerThanWhatItShows()
    {
        m_window->resize(1, 1);
        QCoreApplication::processEvents();
        QVERIFY(m_window->component()->view()->size().width() >= 480);
        const auto *label = editor()->lblTabTime();
        QVERIFY(label->visibleRegion().boundingRect().width() >= label->sizeHint().width());
        for (const auto *button : m_window->findChildren<QAbstractButton *>()) {
            if (button->isVisible()) {
                QVERIFY2(
                    m_window->rect().contains(QRect(button->mapTo(m_window.get(), QPoint()), button->size())),
                    qPrintable(button->objectName()));
            }
        }
    }

    void closingAsksToo()
    {
        QVERIFY(m_window->open(path("a.mp3")));
        edit(QStringLiteral("x"));
        answerWith(QMessageBox::Cancel);
        QVERIFY(!m_window->close());
        answerWith(QMessageBox::Discard);
        QVERIFY(m_window->close());
        QVERIFY(!m_player->isPlaying());
    }

    void aDroppedSongAsksWhereverItIsDropped_data()
    {
        QTest::addColumn<QString>("target");
        QTest::newRow("player strip") << QStringLiteral("playerBgView");
        QTest::newRow("toolbar") << QStringLiteral("toolBarView");
        QTest::newRow("window") << QString();
    }

    void aDroppedSongAsksWhereverItIsDropped()
    {
        QFETCH(QString, target);
        QVERIFY(m_window->open(path("a.mp3")));
        edit(QStringLiteral("x"));
        QWidget *widget = target.isEmpty() ? m_window.get() : m_window->findChild<QWidget *>(target);
        QVERIFY(widget);
        bool asked = false;
        whenDialogOpens([&asked](QWidget &dialog) {
            asked = true;
            QTest::mouseClick(
                dynamic_cast<QMessageBox &>(dialog).button(QMessageBox::Cancel), Qt::LeftButton);
        });
        drop(widget, path("b.flac"));
        QTRY_VERIFY(asked);
        QCOMPARE(m_window->component()->songText(), QByteArray("x\n"));
        QCOMPARE(m_window->song()->path(), path("a.mp3"));
        bool askedAgain = false;
        whenDialogOpens([&askedAgain](QWidget &dialog) {
            askedAgain = true;
            QTest::mouseClick(
                dynamic_cast<QMessageBox &>(dialog).button(QMessageBox::Discard), Qt::LeftButton);
        });
        drop(widget, path("b.flac"));
        QTRY_VERIFY(askedAgain);
        QTRY_COMPARE(m_window->song()->path(), path("b.flac"));
    }

    void aSongDroppedOnTheEmptyTableIsOpened()
    {
        QFile::copy(path("a.mp3"), path("bare.mp3"));
        QVERIFY(songs::make(path("none.ogg"), {}));
        QVERIFY(m_window->open(path("none.ogg")));
        QCOMPARE(editor()->songLinesNum(), 0);
        drop(editor()->tableView()->dropTipView(), path("b.flac"));
        QTRY_COMPARE(m_window->song()->path(), path("b.flac"));
    }

    void whatCannotBeReadIsRefusedBeforeItReplacesAnything_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("missing") << path("missing.mp3");
        QTest::newRow("folder") << m_folder.path();
        QTest::newRow("text") << path("text.mp3");
        QTest::newRow("empty") << path("empty.mp3");
    }

    void whatCannotBeReadIsRefusedBeforeItReplacesAnything()
    {
        QFETCH(QString, file);
        QFile text(path("text.mp3"));
        QVERIFY(text.open(QIODevice::WriteOnly));
        text.write("These are words and no music at all.\n");
        text.close();
        QFile empty(path("empty.mp3"));
        QVERIFY(empty.open(QIODevice::WriteOnly));
        empty.close();

        QVERIFY(m_window->open(path("a.mp3")));
        edit(QStringLiteral("x"));
        QString seen;
        answerWith(QMessageBox::Ok, &seen);
        QVERIFY(!m_window->open(file));
        QVERIFY2(seen.size() > 40, qPrintable(seen));
        QCOMPARE(m_window->component()->songText(), QByteArray("x\n"));
        QCOMPARE(m_window->song()->path(), path("a.mp3"));
        QVERIFY(m_player->playingMusic() == m_window->song());
    }

    void aReadOnlyFileIsToldAndNothingIsLost()
    {
        QFile::copy(path("a.mp3"), path("readonly.mp3"));
        QFile::setPermissions(path("readonly.mp3"), QFile::ReadOwner);
        QVERIFY(m_window->open(path("readonly.mp3")));
        edit(QStringLiteral("x"));
        QString seen;
        answerWith(QMessageBox::Ok, &seen);
        QVERIFY(!m_window->save());
        QVERIFY2(seen.contains(QLatin1String("read"), Qt::CaseInsensitive)
                || seen.contains(QLatin1String("writ"), Qt::CaseInsensitive),
            qPrintable(seen));
        QVERIFY(m_window->isWindowModified());
        QCOMPARE(m_window->component()->songText(), QByteArray("x\n"));
        QCOMPARE(songs::lyricReadByAnother(path("readonly.mp3")), QByteArray("a\n"));
    }

    void aSongThatCannotBeDecodedSaysSo()
    {
        // The tags are whole, the music is cut off behind them.
        QFile whole(path("b.flac"));
        QVERIFY(whole.open(QIODevice::ReadOnly));
        const QByteArray bytes = whole.readAll();
        const auto music = bytes.indexOf(QByteArray::fromHex("fff8"), 42);
        QVERIFY(music > 0);
        QFile broken(path("broken.flac"));
        QVERIFY(broken.open(QIODevice::WriteOnly));
        broken.write(bytes.left(music) + QByteArray(20000, '\x55'));
        broken.close();
        QVERIFY(m_window->open(path("broken.flac")));
        QTRY_VERIFY_WITH_TIMEOUT(!m_window->statusBar()->currentMessage().isEmpty(), 20000);
        QVERIFY(!m_player->isPlaying());
        QCOMPARE(m_window->component()->songText(), QByteArray("b\n"));
    }

    void withoutASongSavingSaysWhatToDo()
    {
        QString seen;
        answerWith(QMessageBox::Ok, &seen);
        QVERIFY(!m_window->save());
        QVERIFY(seen.contains(QLatin1String("Open a song first")));
    }

    void theDemonstrationSongIsTheUsersOwnCopy()
    {
        QString message;
        const QString copy = desk::demonstrationSong(&message);
        QVERIFY2(!copy.isEmpty(), qPrintable(message));
        QVERIFY(QFile::remove(copy));
        QVERIFY(m_window->openDemonstration());
        QCOMPARE(m_window->song()->path(), copy);
        QCOMPARE(editor()->songLinesNum(), 12);
        edit(QStringLiteral("mine"));
        QVERIFY(m_window->save());
        QVERIFY(m_window->openDemonstration());
        QCOMPARE(editor()->tableView_objectValueForTableColumn_row(nullptr, QStringLiteral("text"), 0),
            QStringLiteral("mine"));
        QVERIFY(QFile::remove(copy));
    }
};

QTEST_MAIN(DeskWindowTest)
#include "tst_desk_window.moc"
