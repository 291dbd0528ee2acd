// SPDX-License-Identifier: MIT
#include "media/player/Player.h"

#include "media/player/FailureText.h"
#include "media/player/Library.h"
#include "media/player/Pipeline.h"
#include "media/player/PlayerCall.h"
#include "media/player/PlayerObservers.h"
#include "media/player/SinkBin.h"

#include <QtCore/QFileInfo>
#include <QtCore/QThreadPool>

#include <utility>

namespace media {

namespace {

// Twice as often as promised, so that a late tick keeps the promise.
constexpr int kTickMillis = 5;

// The device that was asked for gets this many chances with one item; then it plays in silence.
constexpr int kOutputChances = 2;
constexpr int kOutputAttempts = 4;

} // namespace

std::shared_ptr<Player> Player::create(PlayerOutput output)
{
    return {new Player(std::move(output)), [](Player *player) {
                player->shutDown();
                if (player->m_calls > 0) {
                    player->deleteLater();
                } else {
                    delete player;
                }
            }};
}

void Player::prepare()
{
    QThreadPool::globalInstance()->start([] { startLibrary(); });
}

Player::Player(PlayerOutput output)
    : m_output(std::move(output)), m_observers(std::make_unique<PlayerObservers>())
{
    m_ticker.setTimerType(Qt::PreciseTimer);
    m_ticker.setInterval(kTickMillis);
    connect(&m_ticker, &QTimer::timeout, this, &Player::tick);
}

Player::~Player() = default;

void Player::shutDown()
{
    m_playing = false;
    m_item.reset();
    closePipeline();
}

void Player::load(const std::shared_ptr<WXEAudioFile> &item, const QString &path)
{
    if (item == m_item) {
        return;
    }
    const Call call(*this);
    closePipeline();
    const bool wasPlaying = std::exchange(m_playing, false);
    m_item = item;
    m_path = item ? QFileInfo(path).absoluteFilePath() : QString();
    m_lastError.clear();
    m_duration = 0;
    m_toldDuration = 0;
    m_position = 0;
    m_begun = false;
    m_ended = false;
    m_outputFailures = 0;
    if (item) {
        openPipeline();
        reportPositionLater();
    }
    if (wasPlaying) {
        announcePlaying();
    }
}

void Player::openPipeline()
{
    closePipeline();
    m_lastError.clear();
    if (const QString obstacle = obstacleTo(m_path); !obstacle.isEmpty()) {
        failLater(obstacle);
        return;
    }
    const auto kind = m_outputFailures < kOutputChances ? OutputKind::Preferred : OutputKind::Silent;
    GstElement *sink = startLibrary() ? makeSinkBin(m_output.makeSink, kind) : nullptr;
    if (sink == nullptr) {
        failLater(libraryMissingText());
        return;
    }
    m_pipeline = std::make_unique<Pipeline>(m_path, sink);
    connectPipeline();
    if (!m_pipeline->open()) {
        // What the library says comes first; this is for the case that it keeps its reasons.
        failLater(m_pipeline->isComplete() ? failureText({}, m_path) : libraryMissingText());
    }
}

void Player::connectPipeline()
{
    connect(m_pipeline.get(), &Pipeline::settled, this, &Player::afterPipelineSettled);
    connect(m_pipeline.get(), &Pipeline::ended, this, &Player::afterPipelineEnded);
    connect(m_pipeline.get(), &Pipeline::failed, this, &Player::afterPipelineFailed);
    connect(m_pipeline.get(), &Pipeline::durationChanged, this, &Player::refreshDuration);
}

void Player::closePipeline()
{
    ++m_generation;
    m_pipeline.reset();
    m_pendingSeek.reset();
    m_seekUnderWay.reset();
    updateTicker();
}

void Player::afterPipelineSettled()
{
    const Call call(*this);
    const auto landed = std::exchange(m_seekUnderWay, std::nullopt);
    if (const auto known = m_pipeline->duration()) {
        m_duration = *known;
    }
    applyPendingSeek();
    startIfWanted();
    updateTicker();
    // A seek that another one has overtaken is not news any more.
    if (landed && !m_seekUnderWay) {
        reportPosition();
    }
    refreshDuration();
}

void Player::afterPipelineEnded()
{
    if (m_pendingSeek) {
        return;
    }
    const Call call(*this);
    const bool wasPlaying = std::exchange(m_playing, false);
    m_pipeline->setPlaying(false);
    m_ended = true;
    m_duration = m_pipeline->duration().value_or(m_position);
    m_position = m_duration;
    updateTicker();
    const auto finished = m_item;
    reportPosition();
    if (wasPlaying) {
        announcePlaying();
    }
    if (m_item == finished) {
        announceEnd();
    }
    refreshDuration();
}

void Player::afterPipelineFailed(const PipelineFailure &failure)
{
    const Call call(*this);
    if (failure.cause == PipelineFailure::Cause::Output && ++m_outputFailures < kOutputAttempts) {
        restartOutput(heardNow());
        return;
    }
    fail(failureText(failure, m_path));
}

void Player::restartOutput(double here)
{
    openPipeline();
    if (m_pipeline) {
        m_position = here;
        m_pendingSeek = here;
    }
    updateTicker();
}

void Player::fail(const QString &message)
{
    const Call call(*this);
    closePipeline();
    m_lastError = message;
    const auto item = m_item;
    if (std::exchange(m_playing, false)) {
        announcePlaying();
    }
    Q_EMIT failed(message, item);
}

void Player::failLater(const QString &message)
{
    const auto late = [this, message, generation = m_generation] {
        if (generation == m_generation) {
            fail(message);
        }
    };
    QMetaObject::invokeMethod(this, late, Qt::QueuedConnection);
}

} // namespace media
