// SPDX-License-Identifier: MIT
#include "media/items/TaggedAudioFile.h"
#include "media/tags/AudioSamples.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <optional>

using media::TaggedAudioFile;

namespace {

const QByteArray kLyric = "[00:01.00]first line\n[00:02.50]second line\n";
const QByteArray kOther = "[00:03.00]other\n";

} // namespace

/// Saves that run beside the GUI thread.
class SavingBesideTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QString m_path;
    std::shared_ptr<TaggedAudioFile> m_item;
    std::vector<double> m_progress;
    std::vector<TaggedAudioFile::SaveResult> m_results;

    TaggedAudioFile::SaveObserver observer()
    {
        return {[this](double done) { m_progress.push_back(done); },
            [this](const TaggedAudioFile::SaveResult &result) { m_results.push_back(result); }};
    }
    [[nodiscard]] QByteArray lyricInFile() const { return TaggedAudioFile::open(m_path).item->lyric(); }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        m_path = m_folder.filePath(QStringLiteral("song.flac"));
        QFile::remove(m_path);
        QVERIFY(QFile::copy(QString::fromStdString(samples::sample("tagged.flac")), m_path));
        m_item = TaggedAudioFile::open(m_path).item;
        QVERIFY(m_item);
        m_progress.clear();
        m_results.clear();
    }

    void itIsDoneAndTold()
    {
        m_item->setLyric(kLyric);
        QVERIFY(m_item->beginSave(observer()));
        QVERIFY(m_item->isSaving());
        QVERIFY2(m_results.empty(), "nobody is called before the event loop runs");
        QTRY_COMPARE(m_results.size(), std::size_t(1));
        QVERIFY2(m_results.front().ok, qPrintable(m_results.front().message));
        QVERIFY(!m_item->isSaving());
        QVERIFY(!m_item->isDirty());
        QCOMPARE(lyricInFile(), kLyric);
        QVERIFY(!m_progress.empty());
        QVERIFY(std::is_sorted(m_progress.begin(), m_progress.end()));
        QVERIFY(m_progress.back() <= 1.0);
    }

    void whatIsTypedMeanwhileStaysToBeSaved()
    {
        m_item->setLyric(kLyric);
        QVERIFY(m_item->beginSave(observer()));
        m_item->setLyric(kOther);
        QTRY_COMPARE(m_results.size(), std::size_t(1));
        QVERIFY(m_results.front().ok);
        QCOMPARE(lyricInFile(), kLyric);
        QVERIFY(m_item->isDirty());
        QCOMPARE(m_item->lyric(), kOther);
        QVERIFY(m_item->beginSave(observer()));
        QTRY_COMPARE(m_results.size(), std::size_t(2));
        QVERIFY2(m_results.back().ok, qPrintable(m_results.back().message));
        QCOMPARE(lyricInFile(), kOther);
        QVERIFY(!m_item->isDirty());
    }

    void oneAtATime()
    {
        m_item->setLyric(kLyric);
        QVERIFY(m_item->beginSave(observer()));
        QVERIFY(!m_item->beginSave(observer()));
        QTRY_COMPARE(m_results.size(), std::size_t(1));
        QVERIFY(!m_item->isSaving());
    }

    void nothingToSaveTouchesNothing()
    {
        const auto before = QFileInfo(m_path).lastModified();
        QVERIFY(m_item->beginSave(observer()));
        QVERIFY(!m_item->isSaving());
        QTRY_COMPARE(m_results.size(), std::size_t(1));
        QVERIFY(m_results.front().ok);
        QCOMPARE(QFileInfo(m_path).lastModified(), before);
    }

    void savingAndWaitingTakesItsTurn()
    {
        m_item->setLyric(kLyric);
        QVERIFY(m_item->beginSave(observer()));
        m_item->setLyric(kOther);
        const auto result = m_item->save();
        QVERIFY2(result.ok, qPrintable(result.message));
        QCOMPARE(lyricInFile(), kOther);
        QVERIFY(!m_item->isDirty());
        QTRY_COMPARE(m_results.size(), std::size_t(1));
        QVERIFY(m_results.front().ok);
        QVERIFY(!m_item->isDirty());
        m_item->setLyric(kLyric);
        QVERIFY2(m_item->save().ok, "the state of the file is that of the later save");
    }

    void refusedSaveKeepsTheLyric()
    {
        samples::write(m_path.toStdString(), "somebody else's");
        m_item->setLyric(kLyric);
        QVERIFY(m_item->beginSave(observer()));
        QTRY_COMPARE(m_results.size(), std::size_t(1));
        QVERIFY(!m_results.front().ok);
        QVERIFY2(m_results.front().message.contains(QStringLiteral("Another program")),
            qPrintable(m_results.front().message));
        QVERIFY(m_item->isDirty());
        QCOMPARE(m_item->lyric(), kLyric);
    }

    /// Whichever came first, the file is the old one or the new one, and the item knows which.
    void cancelledOrDone()
    {
        int cancelled = 0;
        for (int i = 0; i < 40; ++i) {
            init();
            m_item->setLyric(kLyric);
            QVERIFY(m_item->beginSave(observer()));
            m_item->cancelSave();
            QTRY_COMPARE(m_results.size(), std::size_t(1));
            const bool ok = m_results.front().ok;
            cancelled += ok ? 0 : 1;
            QCOMPARE(m_item->isDirty(), !ok);
            QCOMPARE(lyricInFile(), ok ? kLyric : QByteArray());
            if (!ok)
                QVERIFY(m_results.front().message.contains(QStringLiteral("cancelled")));
        }
        QVERIFY2(cancelled > 0, "none of 40 saves heard of it");
    }

    void itGoesOnWhenTheItemGoes()
    {
        m_item->setLyric(kLyric);
        QVERIFY(m_item->beginSave(observer()));
        m_item.reset();
        QTRY_COMPARE(lyricInFile(), kLyric);
        QCoreApplication::processEvents();
        QVERIFY(m_results.empty());
        QVERIFY(m_progress.empty());
    }

    void itemMayGoInItsOwnCallback()
    {
        m_item->setLyric(kLyric);
        bool told = false;
        QVERIFY(m_item->beginSave({{}, [&](const TaggedAudioFile::SaveResult &) {
                                       m_item.reset();
                                       told = true;
                                   }}));
        QTRY_VERIFY(told);
        QCOMPARE(lyricInFile(), kLyric);
    }
};

QTEST_GUILESS_MAIN(SavingBesideTest)
#include "tst_saving_beside.moc"
