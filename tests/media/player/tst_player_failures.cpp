// SPDX-License-Identifier: MIT
#include "media/player/AudioFiles.h"
#include "media/player/PlayerFixtures.h"
#include "media/player/Sinks.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <gst/gst.h>

#include <sys/stat.h>

using Told = Recorder::Told;

/// Files that cannot be played, and outputs that break.
class tst_PlayerFailures : public QObject
{
    Q_OBJECT

private:
    QString write(const char *name, const QByteArray &content) const
    {
        QFile file(m_folder.filePath(QString::fromUtf8(name)));
        const bool written = file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
        return written ? file.fileName() : QString();
    }
    QString coded(const char *name, const QStringList &options = {}, const QStringList &inputs = {}) const
    {
        const QString path = m_folder.filePath(QString::fromUtf8(name));
        return audiofiles::encode(m_wave, path, options, inputs) ? path : QString();
    }
    QStringList filmOf(const char *source) const
    {
        return {
            QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"), QString::fromUtf8(source)};
    }
    void playsToTheEnd(const QString &path)
    {
        QVERIFY(!path.isEmpty());
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create(sinks::fast());
        QSignalSpy failed(player.get(), &media::Player::failed);
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), path);
        player->play();
        QTRY_COMPARE(recorder->count(Told::Finished), 1);
        QVERIFY2(
            std::abs(player->duration() - kSeconds) < 0.05, qPrintable(QString::number(player->duration())));
        QCOMPARE(failed.count(), 0);
    }

    static constexpr double kSeconds = 1.0;
    QTemporaryDir m_folder;
    QString m_wave;

private Q_SLOTS:
    // For each test anew: the toolkit forgets it at the end of a function.
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void initTestCase()
    {
        m_wave = m_folder.filePath(QStringLiteral("music.wav"));
        QVERIFY(audiofiles::writeWave(m_wave, audiofiles::noise(kSeconds)));
    }

    void whatCannotBePlayedSaysWhy_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("message");
        const auto row = [](const char *name, const QString &path, const char *message) {
            QTest::newRow(name) << path << QString::fromUtf8(message);
        };
        row("missing", m_folder.filePath(QStringLiteral("none.mp3")), "The file “none.mp3” cannot be found.");
        row("empty", write("empty.mp3", {}), "The file “empty.mp3” is empty.");
        row("a text", write("text.mp3", "[00:01.00]Only words, and no sound at all.\n"),
            "“text.mp3” is not an audio file.");
        row("noise", write("random.mp3", QByteArray(5000, '\x5a')), "“random.mp3” is not an audio file.");
        row("a folder", m_folder.path(), nullptr);
        const QString pipe = m_folder.filePath(QStringLiteral("pipe.mp3"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        row("a pipe", pipe, "“pipe.mp3” is not a file.");
        const QString picture = m_folder.filePath(QStringLiteral("picture.png"));
        const QString film = m_folder.filePath(QStringLiteral("film.mp4"));
        const QStringList noSound{QStringLiteral("-map"), QStringLiteral("1")};
        const QStringList oneFrame{QStringLiteral("-frames:v"), QStringLiteral("1")};
        QVERIFY(audiofiles::encode(m_wave, picture, noSound + oneFrame, filmOf("color=s=64x64:d=1")));
        QVERIFY(audiofiles::encode(m_wave, film, noSound, filmOf("testsrc=s=64x64:d=1")));
        row("a picture", picture, "“picture.png” is not an audio file.");
        row("a film without sound", film, "“film.mp4” is not an audio file.");
        QFile whole(coded("whole.flac"));
        QVERIFY(whole.open(QIODevice::ReadOnly));
        row("the beginning of a flac file", write("cut.flac", whole.read(100)),
            "“cut.flac” is damaged or in a form that cannot be played.");
    }
    void whatCannotBePlayedSaysWhy()
    {
        QFETCH(QString, path);
        QFETCH(QString, message);
        const auto recorder = std::make_shared<Recorder>();
        const auto item = std::make_shared<PlainItem>();
        const auto player = media::Player::create(sinks::realTime());
        QSignalSpy failed(player.get(), &media::Player::failed);
        player->registObserver(recorder);
        player->load(item, path);
        player->play();
        QVERIFY(player->isPlaying());
        QTRY_COMPARE(failed.count(), 1);
        if (!message.isEmpty()) {
            QCOMPARE(failed[0][0].toString(), message);
        }
        QCOMPARE(failed[0][1].value<std::shared_ptr<WXEAudioFile>>(), item);
        QCOMPARE(player->lastError(), failed[0][0].toString());
        QVERIFY(!player->lastError().isEmpty());
        QVERIFY(!player->isPlaying());
        QCOMPARE(player->playingMusic(), item);
        QCOMPARE(recorder->changes().back(), Told::Paused);
        QCOMPARE(recorder->count(Told::Paused), 1);
        QCOMPARE(recorder->count(Told::Finished), 0);
    }

    void aMissingDecoderIsNamed()
    {
        const QString path = coded("music.flac");
        QVERIFY(!path.isEmpty());
        GstRegistry *registry = gst_registry_get();
        std::vector<std::pair<GstPluginFeature *, guint>> ranks;
        for (const char *name : {"flacdec", "avdec_flac"}) {
            if (GstPluginFeature *decoder = gst_registry_lookup_feature(registry, name)) {
                ranks.emplace_back(decoder, gst_plugin_feature_get_rank(decoder));
                gst_plugin_feature_set_rank(decoder, GST_RANK_NONE);
            }
        }
        QVERIFY(!ranks.empty());
        const auto player = media::Player::create(sinks::realTime());
        QSignalSpy failed(player.get(), &media::Player::failed);
        player->load(std::make_shared<PlainItem>(), path);
        QTRY_COMPARE(failed.count(), 1);
        const QString message = failed[0][0].toString();
        for (const auto &[decoder, rank] : ranks) {
            gst_plugin_feature_set_rank(decoder, rank);
            gst_object_unref(decoder);
        }
        QVERIFY2(message.contains(QStringLiteral("decoder is not installed")), qPrintable(message));
        QVERIFY2(message.contains(QStringLiteral("FLAC")), qPrintable(message));
    }

    void playingAgainAfterAFailureOpensTheFileAnew()
    {
        const QString path = m_folder.filePath(QStringLiteral("late.wav"));
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create(sinks::fast());
        QSignalSpy failed(player.get(), &media::Player::failed);
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), path);
        QTRY_COMPARE(failed.count(), 1);
        QVERIFY(QFile::copy(m_wave, path));
        player->play();
        QTRY_COMPARE(recorder->count(Told::Finished), 1);
        QCOMPARE(failed.count(), 1);
        QVERIFY(player->lastError().isEmpty());
    }

    void picturesAndFilmsBesideTheSoundDoNotDisturb()
    {
        const QStringList cover{QStringLiteral("-map"), QStringLiteral("0"), QStringLiteral("-map"),
            QStringLiteral("1"), QStringLiteral("-c:v"), QStringLiteral("mjpeg"), QStringLiteral("-frames:v"),
            QStringLiteral("1"), QStringLiteral("-disposition:v"), QStringLiteral("attached_pic")};
        playsToTheEnd(coded("cover.mp3", cover, filmOf("color=s=64x64:d=1")));
        playsToTheEnd(coded("cover.m4a", cover, filmOf("color=s=64x64:d=1")));
        playsToTheEnd(coded("cover.flac", cover, filmOf("color=s=64x64:d=1")));
        playsToTheEnd(coded("film.mkv", {}, filmOf("testsrc=s=64x64:d=1")));
        playsToTheEnd(coded("sound.mp4", {}, filmOf("testsrc=s=64x64:d=1")));
    }

    void namesOfAnyKindCanBePlayed()
    {
        const QString path = m_folder.filePath(QStringLiteral("50% #1 ?: Größe 中文 😀.wav"));
        QVERIFY(QFile::copy(m_wave, path));
        playsToTheEnd(path);
    }

    void aFileThatWasCutOffEndsWhereItEnds()
    {
        const QString path = coded("whole.mp3", {QStringLiteral("-b:a"), QStringLiteral("128k")});
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.resize(file.size() / 2));
        file.close();
        const auto recorder = std::make_shared<Recorder>();
        const auto player = media::Player::create(sinks::fast());
        player->registObserver(recorder);
        player->load(std::make_shared<PlainItem>(), path);
        player->play();
        QTRY_COMPARE(recorder->count(Told::Finished), 1);
        QVERIFY2(std::abs(player->position() - 0.5) < 0.1, qPrintable(QString::number(player->position())));
        QCOMPARE(player->duration(), player->position());
    }
};

QTEST_GUILESS_MAIN(tst_PlayerFailures)
#include "tst_player_failures.moc"
