// SPDX-License-Identifier: MIT
#include "editor/TQLRCEditorViewCtl.h"
#include "host/DeskWindow.h"
#include "host/Songs.h"
#include "media/items/SaveTask.h"
#include "media/items/TaggedAudioFile.h"
#include "media/player/Player.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "support/ModalDialogs.h"
#include "support/QtWarnings.h"

#include <QtCore/QFile>
#include <QtCore/QSemaphore>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThreadPool>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>

using media::TaggedAudioFile;

namespace {

/// Keeps saves from beginning until it is released: it holds the only thread that they run on.
class Hold
{
public:
    Hold()
    {
        media::SaveTask::threads().setMaxThreadCount(1);
        media::SaveTask::threads().start([released = m_released] { released->acquire(); });
    }
    ~Hold() { release(); }
    Hold(const Hold &) = delete;
    Hold &operator=(const Hold &) = delete;

    void release() { m_released->release(); }

private:
    std::shared_ptr<QSemaphore> m_released = std::make_shared<QSemaphore>();
};

} // namespace

/// Ctrl+S, and everything that can be done while it is at work.
class DeskSavingTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    std::shared_ptr<media::Player> m_player;
    std::unique_ptr<desk::DeskWindow> m_window;

    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    std::shared_ptr<TQLRCEditorViewCtl> editor() const { return m_window->component()->editorViewCtl(); }
    void edit(const char *text) const
    {
        editor()->tableView_setObjectValue_forTableColumn_row(
            editor()->tableView(), QString::fromLatin1(text), QStringLiteral("text"), 0);
    }
    void pressSave() const { QTest::keyClick(editor()->tableView(), Qt::Key_S, Qt::ControlModifier); }
    [[nodiscard]] QToolButton *cancelButton() const
    {
        return m_window->findChild<QToolButton *>(QStringLiteral("btnCancelSaving"));
    }
    [[nodiscard]] QByteArray lyricIn(const char *name) const
    {
        return TaggedAudioFile::open(path(name)).item->lyric();
    }

    /// A song that is open, edited, and being saved for as long as the answer lives.
    std::unique_ptr<Hold> beginToSave(const char *text)
    {
        QFile::remove(path("slow.mp3"));
        auto hold = std::make_unique<Hold>();
        if (QFile::copy(path("a.mp3"), path("slow.mp3")) && m_window->open(path("slow.mp3"))) {
            m_player->pause();
            edit(text);
            pressSave();
        }
        return hold;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        QVERIFY(songs::make(path("a.mp3"), "a\n"));
    }

    void init()
    {
        support::failOnUnexpectedWarnings();
        m_player = media::Player::create();
        m_window = std::make_unique<desk::DeskWindow>(m_player);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void cleanup()
    {
        media::SaveTask::threads().waitForDone();
        m_window.reset();
        m_player.reset();
    }

    void theKeySavesBesideTheWindow()
    {
        QVERIFY(QFile::copy(path("a.mp3"), path("b.mp3")));
        QVERIFY(m_window->open(path("b.mp3")));
        edit("x");
        pressSave();
        QTRY_VERIFY(m_window->statusBar()->currentMessage().contains(QLatin1String("Saved into b.mp3")));
        QVERIFY(!m_window->isWindowModified());
        QCOMPARE(lyricIn("b.mp3"), QByteArray("x\n"));
        QVERIFY2(!cancelButton()->isVisible(), "what is quick shows no sign of work");
    }

    void whatTakesItsTimeIsShownAndStampingGoesOn()
    {
        auto hold = beginToSave("x");
        QTRY_VERIFY(cancelButton()->isVisible());
        QVERIFY(m_window->song()->isSaving());
        QTest::keyClick(editor()->tableView(), Qt::Key_Return);
        QVERIFY(m_window->component()->songText().startsWith("[00:"));
        hold.reset();
        QTRY_VERIFY(!m_window->song()->isSaving());
        QTRY_VERIFY(!cancelButton()->isVisible());
        QCOMPARE(lyricIn("slow.mp3"), QByteArray("x\n"));
        QVERIFY2(m_window->isWindowModified(), "the stamp is newer than what was saved");
        pressSave();
        QTRY_VERIFY(!m_window->isWindowModified());
        QCOMPARE(lyricIn("slow.mp3"), m_window->component()->songText());
    }

    void pressedAgainMeanwhileTheLastWordIsSaved()
    {
        auto hold = beginToSave("x");
        edit("y");
        pressSave();
        hold.reset();
        QTRY_VERIFY(m_window->statusBar()->currentMessage().contains(QLatin1String("Saved into")));
        QCOMPARE(lyricIn("slow.mp3"), QByteArray("y\n"));
        QVERIFY(!m_window->isWindowModified());
    }

    void escapeCancelsAndNothingIsChanged()
    {
        auto hold = beginToSave("x");
        QTRY_VERIFY(cancelButton()->isVisible());
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        hold.reset();
        QTRY_VERIFY(!m_window->song()->isSaving());
        QTRY_VERIFY(!cancelButton()->isVisible());
        QVERIFY(m_window->statusBar()->currentMessage().contains(QLatin1String("cancelled")));
        QCOMPARE(lyricIn("slow.mp3"), QByteArray("a\n"));
        QVERIFY(m_window->isWindowModified());
        QCOMPARE(m_window->component()->songText(), QByteArray("x\n"));
    }

    void closingWaitsForTheEnd()
    {
        auto hold = beginToSave("x");
        QTimer::singleShot(0, this, [&hold] { hold.reset(); });
        QVERIFY2(m_window->close(), "nobody is asked about what is being saved");
        QVERIFY(!m_window->song()->isSaving());
        QCOMPARE(lyricIn("slow.mp3"), QByteArray("x\n"));
    }

    void closingThatHasToWaitSaysSoAndCanCancel()
    {
        auto hold = beginToSave("x");
        QStringList seen;
        support::whenDialogOpens([&](QWidget &dialog) {
            seen = support::textsOf(dialog);
            QTest::mouseClick(support::buttonTitled(dialog, QStringLiteral("Cancel")), Qt::LeftButton);
            // The lyric is not saved now: the user is asked, as always.
            support::whenDialogOpens([](QWidget &question) {
                auto &box = dynamic_cast<QMessageBox &>(question);
                QTest::mouseClick(box.button(QMessageBox::Cancel), Qt::LeftButton);
            });
            hold.reset();
        });
        QVERIFY(!m_window->close());
        QVERIFY2(seen.join(QLatin1Char('\n')).contains(QLatin1String("Saving into slow.mp3")),
            qPrintable(seen.join(QLatin1Char('\n'))));
        QCOMPARE(lyricIn("slow.mp3"), QByteArray("a\n"));
        QVERIFY(m_window->isVisible());
        QCOMPARE(m_window->component()->songText(), QByteArray("x\n"));
    }

    void anotherSongWaitsForTheEnd()
    {
        auto hold = beginToSave("x");
        QTimer::singleShot(0, this, [&hold] { hold.reset(); });
        QVERIFY(m_window->open(path("a.mp3")));
        QCOMPARE(lyricIn("slow.mp3"), QByteArray("x\n"));
        QCOMPARE(m_window->component()->songText(), QByteArray("a\n"));
    }

    void theSongBeingSavedOpensWithWhatWasSaved()
    {
        auto hold = beginToSave("x");
        QTimer::singleShot(0, this, [&hold] { hold.reset(); });
        QVERIFY(m_window->open(path("slow.mp3")));
        QCOMPARE(m_window->component()->songText(), QByteArray("x\n"));
        edit("y");
        QVERIFY(m_window->save());
        QCOMPARE(lyricIn("slow.mp3"), QByteArray("y\n"));
    }

    void aSaveThatFailsIsToldAndTheWordsAreKept()
    {
        auto hold = beginToSave("x");
        QVERIFY(QFile::remove(path("slow.mp3")));
        QStringList seen;
        support::whenDialogOpens([&seen](QWidget &dialog) {
            seen = support::textsOf(dialog);
            dialog.close();
        });
        hold.reset();
        QTRY_VERIFY(!seen.isEmpty());
        QVERIFY2(seen.join(QLatin1Char('\n')).contains(QLatin1String("not saved into slow.mp3")),
            qPrintable(seen.join(QLatin1Char('\n'))));
        QVERIFY(m_window->isWindowModified());
        QCOMPARE(m_window->component()->songText(), QByteArray("x\n"));
    }
};

QTEST_MAIN(DeskSavingTest)
#include "tst_desk_saving.moc"
