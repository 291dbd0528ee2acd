// SPDX-License-Identifier: MIT
//
// The waveform of real files: that it stands where the player says it does, that it comes while it is
// being made, that it can be withdrawn at any moment, and that nothing in a file can hurt.
#include "media/player/AudioFiles.h"
#include "media/player/PeakReader.h"
#include "media/player/Player.h"
#include "media/player/PlayerFixtures.h"
#include "support/QtWarnings.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cmath>

namespace {

using Peaks = std::shared_ptr<const WaveformPeaks>;

constexpr int kWaitMillis = 30000;

/// Silence with a short noise that begins at each of `onsets`, in seconds.
std::vector<float> clicks(double seconds, const std::vector<double> &onsets)
{
    std::vector<float> samples(static_cast<std::size_t>(std::lround(seconds * audiofiles::kSampleRate)));
    const std::vector<float> noise = audiofiles::noise(0.05);
    for (const double onset : onsets) {
        const auto at = static_cast<std::size_t>(std::lround(onset * audiofiles::kSampleRate));
        std::copy(noise.begin(), noise.end(), samples.begin() + static_cast<std::ptrdiff_t>(at));
    }
    return samples;
}

/// Where silence ends, in seconds.
std::vector<double> onsetsIn(const WaveformPeaks &peaks)
{
    constexpr float kSound = 0.1F;
    std::vector<double> onsets;
    for (std::size_t i = 1; i < peaks.levels.size(); ++i) {
        if (peaks.levels[i] > kSound && peaks.levels[i - 1] <= kSound) {
            onsets.push_back(static_cast<double>(i) * peaks.secondsPerLevel);
        }
    }
    return onsets;
}

double lengthOf(const WaveformPeaks &peaks)
{
    return static_cast<double>(peaks.levels.size()) * peaks.secondsPerLevel;
}

} // namespace

class Waveforms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_reader.reset(); }

    void standsWhereThePlayerSays_data();
    void standsWhereThePlayerSays();
    void loudestChannelCounts();
    void comesWhileItIsBeingMade();
    void answersLaterAlsoWhatItKnows();
    void aChangedFileIsReadAnew();
    void whatIsWithdrawnIsNotTold();
    void theNextOneDoesNotWaitForTheOneThatWasWithdrawn();
    void readerMayGoAtAnyMoment();
    void receiverMayDestroyEverything();
    void itemsWithoutAFileHaveNone();
    void hostileFilesHaveNone_data();
    void hostileFilesHaveNone();
    void aFileThatIsCutOffHasItsBeginning();

private:
    [[nodiscard]] QString path(const char *name) const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }
    /// A request for the file at `file`, whose answers go into `m_told`.
    [[nodiscard]] std::unique_ptr<PeakRequest> request(const QString &file)
    {
        m_file = file;
        return m_reader->requestPeaks(m_item, [this](const Peaks &peaks) { m_told.push_back(peaks); });
    }
    /// Waits for the end of what is under way by waiting for what is asked after it.
    void waitForTheEnd();

    QTemporaryDir m_folder;
    QString m_file;
    std::shared_ptr<PlainItem> m_item = std::make_shared<PlainItem>();
    std::shared_ptr<media::PeakReader> m_reader;
    std::vector<Peaks> m_told;
};

void Waveforms::init()
{
    support::failOnUnexpectedWarnings();
    m_told.clear();
    m_reader = std::make_shared<media::PeakReader>([this](const WXEAudioFile &) { return m_file; });
}

void Waveforms::waitForTheEnd()
{
    const QString last = path("last.wav");
    QVERIFY(audiofiles::writeWave(last, clicks(1, {0.5})));
    m_file = last;
    bool done = false;
    const auto after = m_reader->requestPeaks(m_item, [&done](const Peaks &) { done = true; });
    QTRY_VERIFY_WITH_TIMEOUT(done, kWaitMillis);
}

void Waveforms::standsWhereThePlayerSays_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("wav") << "clicks.wav" << QStringList();
    QTest::newRow("flac") << "clicks.flac" << QStringList();
    QTest::newRow("mp3") << "clicks.mp3" << QStringList();
    QTest::newRow("mp3 of a variable rate") << "vbr.mp3" << QStringList({"-q:a", "4"});
    QTest::newRow("mp3 without a header") << "bare.mp3" << QStringList({"-write_xing", "0"});
    QTest::newRow("ogg") << "clicks.ogg" << QStringList();
    QTest::newRow("opus") << "clicks.opus" << QStringList();
    QTest::newRow("m4a") << "clicks.m4a" << QStringList();
    QTest::newRow("wma") << "clicks.wma" << QStringList();
}

void Waveforms::standsWhereThePlayerSays()
{
    QFETCH(QString, name);
    QFETCH(QStringList, options);
    const std::vector<double> onsets{1.0, 2.25, 4.5, 8.125, 11.0};
    const QString source = path("source.wav");
    const QString file = m_folder.filePath(name);
    QVERIFY(audiofiles::writeWave(source, clicks(12.0, onsets)));
    if (!name.endsWith(QLatin1String(".wav"))) {
        QVERIFY(audiofiles::encode(source, file, options));
    } else {
        QVERIFY(QFile::rename(source, file));
    }
    const auto asked = request(file);
    waitForTheEnd();
    QVERIFY(!m_told.empty());
    const WaveformPeaks &peaks = *m_told.back();
    const std::vector<double> found = onsetsIn(peaks);
    QCOMPARE(found.size(), onsets.size());
    for (std::size_t i = 0; i < onsets.size(); ++i) {
        // A level, and what lossy coding smears in front of a sound.
        QVERIFY2(std::abs(found[i] - onsets[i]) < 0.012, qPrintable(QString::number(found[i], 'f', 4)));
    }
    QVERIFY2(std::abs(lengthOf(peaks) - 12.0) < 0.15, qPrintable(QString::number(lengthOf(peaks))));
}

void Waveforms::loudestChannelCounts()
{
    QVERIFY(audiofiles::writeWave(path("mono.wav"), clicks(2, {1.0})));
    // One channel against the other: a mix of them would be silent.
    QVERIFY(audiofiles::encode(
        path("mono.wav"), path("opposed.wav"), {"-af", "pan=stereo|c0=c0|c1=-1*c0", "-ac", "2"}));
    const auto asked = request(path("opposed.wav"));
    waitForTheEnd();
    QVERIFY(!m_told.empty());
    QCOMPARE(onsetsIn(*m_told.back()).size(), std::size_t(1));
}

void Waveforms::comesWhileItIsBeingMade()
{
    QVERIFY(audiofiles::writeWave(path("long.wav"), audiofiles::noise(240)));
    QVERIFY(audiofiles::encode(path("long.wav"), path("long.mp3"), {"-b:a", "192k"}));
    QElapsedTimer clock;
    clock.start();
    const auto asked = request(path("long.mp3"));
    QTRY_VERIFY_WITH_TIMEOUT(!m_told.empty() && lengthOf(*m_told.back()) > 239.9, kWaitMillis);
    qInfo("a song of four minutes: %lld ms, in %zu pieces of up to %zu levels", clock.elapsed(),
        m_told.size(), m_told.back()->levels.size());
    QVERIFY(m_told.size() > 1);
    for (std::size_t i = 1; i < m_told.size(); ++i) {
        QVERIFY(lengthOf(*m_told[i]) + m_told[i]->secondsPerLevel >= lengthOf(*m_told[i - 1]));
    }
    QVERIFY(m_told.back()->levels.size() <= 4096);
}

void Waveforms::answersLaterAlsoWhatItKnows()
{
    QVERIFY(audiofiles::writeWave(path("known.wav"), clicks(2, {1.0})));
    const auto first = request(path("known.wav"));
    waitForTheEnd();
    const Peaks known = m_told.back();
    m_told.clear();
    const auto second = request(path("known.wav"));
    QVERIFY(m_told.empty());
    QTRY_COMPARE_WITH_TIMEOUT(m_told.size(), std::size_t(1), kWaitMillis);
    QCOMPARE(m_told.front(), known); // kept, not made again
}

void Waveforms::aChangedFileIsReadAnew()
{
    QVERIFY(audiofiles::writeWave(path("changing.wav"), clicks(2, {1.0})));
    const auto first = request(path("changing.wav"));
    waitForTheEnd();
    QVERIFY(audiofiles::writeWave(path("changing.wav"), clicks(3, {1.0, 2.0})));
    m_told.clear();
    const auto second = request(path("changing.wav"));
    waitForTheEnd();
    QCOMPARE(onsetsIn(*m_told.back()).size(), std::size_t(2));
}

void Waveforms::whatIsWithdrawnIsNotTold()
{
    QVERIFY(audiofiles::writeWave(path("withdrawn.wav"), audiofiles::noise(60)));
    auto asked = request(path("withdrawn.wav"));
    asked.reset();
    waitForTheEnd();
    QVERIFY(m_told.empty());
    // After the first piece.
    asked = request(path("withdrawn.wav"));
    QTRY_VERIFY_WITH_TIMEOUT(!m_told.empty(), kWaitMillis);
    asked.reset();
    const std::size_t before = m_told.size();
    waitForTheEnd();
    QCOMPARE(m_told.size(), before);
}

void Waveforms::theNextOneDoesNotWaitForTheOneThatWasWithdrawn()
{
    // Hours of silence that take no room on the disk.
    constexpr double kHours = 6.0 * 3600;
    const QString hours = path("hours.wav");
    QVERIFY(audiofiles::writeWave(hours, std::vector<float>(1000)));
    QFile file(hours);
    QVERIFY(file.open(QIODevice::ReadWrite));
    const auto bytes = static_cast<quint32>(kHours * audiofiles::kSampleRate) * 2;
    QVERIFY(file.seek(40));
    QCOMPARE(file.write(reinterpret_cast<const char *>(&bytes), 4), 4);
    QVERIFY(file.resize(qint64{bytes} + 44));
    file.close();
    auto asked = request(hours);
    QTRY_VERIFY_WITH_TIMEOUT(!m_told.empty(), kWaitMillis);
    asked.reset();
    waitForTheEnd();
    // It was given up and not finished: asked again it begins anew.
    m_told.clear();
    asked = request(hours);
    QTRY_VERIFY_WITH_TIMEOUT(!m_told.empty(), kWaitMillis);
    QVERIFY(lengthOf(*m_told.front()) < kHours / 2);
}

void Waveforms::readerMayGoAtAnyMoment()
{
    QVERIFY(audiofiles::writeWave(path("gone.wav"), audiofiles::noise(60)));
    auto asked = request(path("gone.wav"));
    m_reader.reset();
    asked.reset();
    init();
    asked = request(path("gone.wav"));
    QTRY_VERIFY_WITH_TIMEOUT(!m_told.empty(), kWaitMillis);
    const std::size_t before = m_told.size();
    m_reader.reset();
    QCoreApplication::processEvents();
    QCOMPARE(m_told.size(), before);
}

void Waveforms::receiverMayDestroyEverything()
{
    QVERIFY(audiofiles::writeWave(path("destroyer.wav"), audiofiles::noise(60)));
    m_file = path("destroyer.wav");
    std::unique_ptr<PeakRequest> asked;
    int calls = 0;
    asked = m_reader->requestPeaks(m_item, [&](const Peaks &) {
        ++calls;
        asked.reset();
        m_reader.reset();
    });
    QTRY_COMPARE_WITH_TIMEOUT(calls, 1, kWaitMillis);
    QVERIFY(m_reader == nullptr);
    QCoreApplication::processEvents();
    QCOMPARE(calls, 1);
}

void Waveforms::itemsWithoutAFileHaveNone()
{
    QVERIFY(request({}) == nullptr);
    QVERIFY(m_reader->requestPeaks(nullptr, [](const Peaks &) {}) == nullptr);
    media::PeakReader blind({});
    QVERIFY(blind.requestPeaks(m_item, [](const Peaks &) {}) == nullptr);
}

void Waveforms::hostileFilesHaveNone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("This is no sound at all.\n").repeated(100);
    QTest::newRow("zeros") << QByteArray(100000, 0);
    QTest::newRow("RIFF without end") << QByteArray("RIFF\xff\xff\xff\xffWAVEfmt \xff\xff\xff\x7f", 20);
    QTest::newRow("wave of no channels")
        << QByteArray("RIFF\x24\0\0\0WAVEfmt \x10\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0data\0\0\0\0", 44);
    QTest::newRow("flac of nothing") << QByteArray("fLaC\x80\0\0\x22").append(QByteArray(34, '\xff'));
    QTest::newRow("ID3 of four gigabytes") << QByteArray("ID3\x04\0\0\x7f\x7f\x7f\x7f").append(100, 'x');
    QTest::newRow("a picture") << QByteArray("\x89PNG\r\n\x1a\n").append(QByteArray(200, 'p'));
    QTest::newRow("deep MPEG-4") << QByteArray("\0\0\0\x20"
                                               "ftypM4A \0\0\0\0M4A mp42isom\0\0\0\0",
        32)
                                        .append(QByteArray("\0\1\x86\xa0moov", 8).repeated(12500));
}

void Waveforms::hostileFilesHaveNone()
{
    QFETCH(QByteArray, bytes);
    QFile file(path("hostile"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    const auto asked = request(file.fileName());
    waitForTheEnd();
    QVERIFY(m_told.empty());
    const auto folder = request(m_folder.path());
    const auto missing = request(path("is not there.mp3"));
    waitForTheEnd();
    QVERIFY(m_told.empty());
}

void Waveforms::aFileThatIsCutOffHasItsBeginning()
{
    QVERIFY(audiofiles::writeWave(path("whole.wav"), audiofiles::noise(12)));
    QVERIFY(audiofiles::encode(path("whole.wav"), path("cut.flac")));
    QFile file(path("cut.flac"));
    QVERIFY(file.resize(file.size() / 2));
    const auto asked = request(file.fileName());
    waitForTheEnd();
    QVERIFY(!m_told.empty());
    QVERIFY(std::abs(lengthOf(*m_told.back()) - 6.0) < 0.5);
}

QTEST_GUILESS_MAIN(Waveforms)
#include "tst_peaks.moc"
