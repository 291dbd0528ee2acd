// SPDX-License-Identifier: MIT
#include "media/items/TaggedAudioFile.h"
#include "media/tags/AudioSamples.h"
#include "shell/contracts/WXEAudioFileMgr.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <limits>
#include <sys/stat.h>

using media::TaggedAudioFile;

namespace {

const QByteArray kLyric = "[00:01.00]first line\n[00:02.50]\xE8\xB5\xB0\xE5\xBB\x8A\n";

QString sample(const char *name)
{
    return QString::fromStdString(samples::sample(name));
}

QByteArray contents(const QString &path)
{
    return QByteArray::fromStdString(samples::contents(path.toStdString()));
}

} // namespace

class TaggedAudioFileTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    /// A fresh copy of a sample.
    QString copyOf(const char *name, const QString &as = QStringLiteral("song"))
    {
        const QString path = m_folder.filePath(as);
        QFile::remove(path);
        QFile::copy(sample(name), path);
        return path;
    }

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void everyFormatTellsItsTags_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("covered");
        QTest::newRow("mp3, ID3v2.3") << QStringLiteral("v23.mp3") << true;
        QTest::newRow("mp3, ID3v2.4") << QStringLiteral("v24.mp3") << true;
        QTest::newRow("flac") << QStringLiteral("tagged.flac") << true;
        QTest::newRow("m4a") << QStringLiteral("tagged.m4a") << true;
        QTest::newRow("ogg") << QStringLiteral("tagged.ogg") << false;
    }
    void everyFormatTellsItsTags()
    {
        QFETCH(QString, name);
        QFETCH(bool, covered);
        const auto opened = TaggedAudioFile::open(sample(name.toUtf8().constData()));
        QVERIFY2(opened.item, qPrintable(opened.message));
        QVERIFY(opened.message.isEmpty());
        QCOMPARE(opened.item->title(), QStringLiteral("The Title"));
        QCOMPARE(opened.item->artist(), QStringLiteral("The Artist"));
        QCOMPARE(opened.item->album(), QStringLiteral("The Album"));
        QVERIFY(qAbs(opened.item->duration() - 2.0) < 0.1);
        QCOMPARE(opened.item->frontCoverImg().size(), covered ? QSize(64, 48) : QSize(0, 0));
        QCOMPARE(opened.item->frontCoverImg().isNull(), !covered);
        QVERIFY(opened.item->lyric().isNull());
        QVERIFY(!opened.item->isDirty());
    }

    void fileWithoutTagsAnswersNull()
    {
        const auto item = TaggedAudioFile::open(sample("untagged.mp3")).item;
        QVERIFY(item);
        QVERIFY(item->title().isNull());
        QVERIFY(item->artist().isNull());
        QVERIFY(item->album().isNull());
        QVERIFY(item->frontCoverImg().isNull());
        QVERIFY(item->lyric().isNull());
    }

    void whatCannotBeOpenedSaysWhy()
    {
        const QString text = m_folder.filePath(QStringLiteral("text.mp3"));
        samples::write(text.toStdString(), "no audio at all");
        for (const QString &path :
            {text, m_folder.path(), m_folder.filePath(QStringLiteral("none.mp3")), QString()}) {
            const auto opened = TaggedAudioFile::open(path);
            QVERIFY2(!opened.item, qPrintable(path));
            QVERIFY2(opened.message.endsWith(QLatin1Char('.')) || opened.message.endsWith(QLatin1Char(')')),
                qPrintable(opened.message));
        }
        QVERIFY(TaggedAudioFile::open(text).message.contains(QStringLiteral("not an audio file")));
    }

    void twoItemsOfOnePathAreTwo()
    {
        const QString path = sample("v24.mp3");
        QVERIFY(TaggedAudioFile::open(path).item != TaggedAudioFile::open(path).item);
        QCOMPARE(TaggedAudioFile::open(path).item->path(), path);
    }

    void factoryMakesItems()
    {
        TaggedAudioFile::registerAsFactory();
        QVERIFY(WXEAudioFileMgr::createAudioFileWithPath_dumpImmediately(sample("v24.mp3"), true));
        QVERIFY(!WXEAudioFileMgr::createAudioFileWithPath_dumpImmediately(m_folder.path(), true));
        WXEAudioFileMgr::setFactory({});
    }

    void editedLyricIsDirtyUntilSaved()
    {
        const auto item = TaggedAudioFile::open(copyOf("tagged.flac")).item;
        item->setLyric(kLyric);
        item->refreshIsDirty();
        QVERIFY(item->isDirty());
        QCOMPARE(item->lyric(), kLyric);
        QVERIFY(item->save().ok);
        QVERIFY(!item->isDirty());
        item->setLyric(kLyric + "more");
        item->refreshIsDirty();
        QVERIFY(item->isDirty());
        item->setLyric(kLyric);
        item->refreshIsDirty();
        QVERIFY(!item->isDirty());
    }

    void savedLyricIsThereWhenOpenedAgain_data() { everyFormatTellsItsTags_data(); }
    void savedLyricIsThereWhenOpenedAgain()
    {
        QFETCH(QString, name);
        const QString path = copyOf(name.toUtf8().constData());
        const auto item = TaggedAudioFile::open(path).item;
        item->setLyric(kLyric);
        const auto saved = item->save();
        QVERIFY2(saved.ok, qPrintable(saved.message));
        QVERIFY(saved.message.isEmpty());
        QCOMPARE(QByteArray::fromStdString(samples::lyricByFfprobe(path.toStdString())), kLyric);
        const auto again = TaggedAudioFile::open(path).item;
        QCOMPARE(again->lyric(), kLyric);
        QVERIFY(!again->isDirty());
        QCOMPARE(again->title(), item->title());
        // And twice more from the same item, which knows the file that it wrote.
        item->setLyric("[00:03.00]other");
        QVERIFY(item->save().ok);
        item->setLyric(QByteArray());
        QVERIFY(item->save().ok);
        QVERIFY(TaggedAudioFile::open(path).item->lyric().isNull());
    }

    void openedAndUntouchedNothingIsWritten()
    {
        const QString path = copyOf("v23.mp3");
        const auto item = TaggedAudioFile::open(path).item;
        const QByteArray before = contents(path);
        const QDateTime time = QFileInfo(path).lastModified();
        item->setLyric(item->lyric());
        item->refreshIsDirty();
        QVERIFY(!item->isDirty());
        QVERIFY(item->save().ok);
        QCOMPARE(contents(path), before);
        QCOMPARE(QFileInfo(path).lastModified(), time);
    }

    void emptyLyricAndNoneAreTheSame()
    {
        const auto item = TaggedAudioFile::open(copyOf("v23.mp3")).item;
        item->setLyric(QByteArray(""));
        item->refreshIsDirty();
        QVERIFY(!item->isDirty());
        QVERIFY(item->lyric().isNull());
    }

    void byteOrderMarkAndLineEndsComeBack()
    {
        const QByteArray odd = "\xEF\xBB\xBF[00:01.00]one\r\n[00:02.00]two\r[00:03.00]three\n\n  ";
        for (const char *name : {"v23.mp3", "v24.mp3", "tagged.flac", "tagged.m4a", "tagged.ogg"}) {
            const QString path = copyOf(name);
            const auto item = TaggedAudioFile::open(path).item;
            item->setLyric(odd);
            QVERIFY2(item->save().ok, name);
            QCOMPARE(TaggedAudioFile::open(path).item->lyric(), odd);
        }
    }

    void readOnlyFileIsRefusedAndTheLyricKept()
    {
        const QString path = copyOf("v24.mp3", QStringLiteral("readonly"));
        const QByteArray before = contents(path);
        QVERIFY(chmod(QFile::encodeName(path).constData(), 0444) == 0);
        const auto item = TaggedAudioFile::open(path).item;
        QVERIFY(item);
        item->setLyric(kLyric);
        const auto saved = item->save();
        QVERIFY(!saved.ok);
        QVERIFY2(saved.message.contains(QStringLiteral("read-only")), qPrintable(saved.message));
        QVERIFY(item->isDirty());
        QCOMPARE(item->lyric(), kLyric);
        QCOMPARE(contents(path), before);
        QVERIFY(chmod(QFile::encodeName(path).constData(), 0644) == 0);
        QVERIFY(item->save().ok);
        QVERIFY(!item->isDirty());
    }

    void fileChangedByAnotherIsLeftAlone()
    {
        const QString path = copyOf("tagged.ogg");
        const auto mine = TaggedAudioFile::open(path).item;
        const auto theirs = TaggedAudioFile::open(path).item;
        theirs->setLyric("[00:01.00]theirs");
        QVERIFY(theirs->save().ok);
        mine->setLyric(kLyric);
        const auto saved = mine->save();
        QVERIFY(!saved.ok);
        QVERIFY(!saved.message.isEmpty());
        QVERIFY(mine->isDirty());
        QCOMPARE(TaggedAudioFile::open(path).item->lyric(), QByteArray("[00:01.00]theirs"));
    }

    void fileThatIsGoneKeepsTheItem()
    {
        const QString path = copyOf("tagged.ogg");
        const auto item = TaggedAudioFile::open(path).item;
        QVERIFY(QFile::remove(path));
        item->setLyric(kLyric);
        QVERIFY(!item->save().ok);
        QVERIFY(item->isDirty());
        QCOMPARE(item->lyric(), kLyric);
        QVERIFY(!QFile::exists(path));
    }

    void namesInAnyScript()
    {
        const QString path = copyOf("v24.mp3", QStringLiteral("\u8D70\u5ECA \u00E9 'quoted' \U0001F3B5.mp3"));
        const auto item = TaggedAudioFile::open(path).item;
        QVERIFY(item);
        item->setLyric(kLyric);
        QVERIFY(item->save().ok);
        QCOMPARE(TaggedAudioFile::open(path).item->lyric(), kLyric);
    }

    void durationOfThePlayerWins()
    {
        const auto item = TaggedAudioFile::open(sample("tagged.oga")).item;
        QCOMPARE(item->duration(), 0.0);
        item->setKnownDuration(2.0);
        QCOMPARE(item->duration(), 2.0);
        for (const double useless :
            {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
            item->setKnownDuration(useless);
            QCOMPARE(item->duration(), 2.0);
        }
    }

    void coverIsNeverLargerThanItIsShown()
    {
        const QString path = m_folder.filePath(QStringLiteral("large.mp3"));
        static_cast<void>(samples::output(
            {"ffmpeg", "-v", "error", "-nostdin", "-y", "-i", sample("untagged.mp3").toStdString(), "-f",
                "lavfi", "-i", "color=color=blue:size=3000x1500:duration=1", "-map", "0:a", "-map", "1:v",
                "-frames:v", "1", "-c:a", "copy", "-c:v", "png", path.toStdString()}));
        const QImage cover = TaggedAudioFile::open(path).item->frontCoverImg();
        QCOMPARE(cover.size(), QSize(1024, 512));
    }

    void coverThatIsNoPictureIsNone()
    {
        const std::string frame = std::string("\0image/png\0\3\0", 13) + "no picture";
        const QString path = m_folder.filePath(QStringLiteral("broken.mp3"));
        samples::write(path.toStdString(),
            samples::id3v2(3, {{"APIC", frame}}) + samples::contents(samples::sample("untagged.mp3")));
        const auto item = TaggedAudioFile::open(path).item;
        QVERIFY(item);
        QVERIFY(item->frontCoverImg().isNull());
        QVERIFY(item->frontCoverImg().isNull());
    }
};

QTEST_GUILESS_MAIN(TaggedAudioFileTest)
#include "tst_tagged_audio_file.moc"
