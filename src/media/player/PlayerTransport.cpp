// SPDX-License-Identifier: MIT
#include "media/player/Pipeline.h"
#include "media/player/PlayerCall.h"
#include "media/player/PlayerObservers.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace media {

namespace {

// Longer than any recording, and far from where the library's nanoseconds end.
constexpr double kLongestSeconds = 1e8;

} // namespace

bool Player::isPlaying() const
{
    return m_playing;
}

std::shared_ptr<WXEAudioFile> Player::playingMusic() const
{
    return m_item;
}

double Player::duration() const
{
    return m_duration;
}

double Player::position() const
{
    return m_playing ? heardNow() : m_position;
}

QString Player::lastError() const
{
    return m_lastError;
}

void Player::play()
{
    if (!m_item || m_playing) {
        return;
    }
    const Call call(*this);
    m_playing = true;
    if (!m_pipeline) {
        openPipeline();
    }
    if (std::exchange(m_ended, false)) {
        m_begun = false;
        m_position = 0;
        m_pendingSeek = 0.0;
    }
    applyPendingSeek();
    startIfWanted();
    updateTicker();
    announcePlaying();
    announceBeginning();
}

void Player::lightPlay()
{
    play();
}

void Player::pause()
{
    if (!m_playing) {
        return;
    }
    const Call call(*this);
    if (m_pipeline && m_pipeline->isReady()) {
        m_pipeline->setPlaying(false);
    }
    m_position = heardNow();
    m_playing = false;
    updateTicker();
    announcePlaying();
    reportPosition();
}

void Player::seek(double seconds)
{
    if (!m_pipeline || std::isnan(seconds)) {
        return;
    }
    const Call call(*this);
    m_ended = false;
    m_pendingSeek = std::clamp(seconds, 0.0, kLongestSeconds);
    m_position = clampToItem(*m_pendingSeek);
    applyPendingSeek();
    updateTicker();
}

void Player::applyPendingSeek()
{
    if (!m_pendingSeek || !m_pipeline || !m_pipeline->isReady() || m_pipeline->isBusy()) {
        return;
    }
    m_position = clampToItem(*std::exchange(m_pendingSeek, std::nullopt));
    if (m_pipeline->seek(m_position)) {
        m_seekUnderWay = m_position;
        return;
    }
    m_position = m_pipeline->position().value_or(m_position);
    reportPositionLater();
}

void Player::startIfWanted()
{
    // A place to go to comes first: nothing is to be heard from the old one.
    if (m_playing && m_pipeline && m_pipeline->isReady() && !m_pendingSeek) {
        m_pipeline->setPlaying(true);
    }
}

void Player::updateTicker()
{
    const bool needed = m_pipeline && (m_playing || m_pendingSeek);
    if (needed != m_ticker.isActive()) {
        needed ? m_ticker.start() : m_ticker.stop();
    }
}

void Player::tick()
{
    const Call call(*this);
    if (m_playing && m_pipeline->isReady() && m_pipeline->clockLeapt()) {
        restartOutput(m_position);
    } else if (m_playing) {
        m_position = heardNow();
    }
    applyPendingSeek();
    startIfWanted();
    updateTicker();
    if (m_playing) {
        reportPosition();
    }
    if (m_position > m_duration && m_duration > 0) {
        refreshDuration();
    }
}

double Player::heardNow() const
{
    if (!m_pipeline || m_pendingSeek || m_seekUnderWay) {
        return m_position;
    }
    const auto heard = m_pipeline->position();
    if (!heard) {
        return m_position;
    }
    // Of some streams the library only guesses the length, and the music goes on after it.
    return std::max(m_position, m_pipeline->knowsEnd() ? clampToItem(*heard) : *heard);
}

double Player::clampToItem(double seconds) const
{
    return m_duration > 0 ? std::clamp(seconds, 0.0, m_duration) : std::max(seconds, 0.0);
}

void Player::refreshDuration()
{
    const Call call(*this);
    const auto known = m_pipeline ? m_pipeline->duration() : std::nullopt;
    if (known) {
        m_duration = *known;
    }
    // Under way it is known to be at least as long as what was heard.
    if (m_duration > 0) {
        m_duration = std::max(m_duration, m_position);
    }
    if (m_duration != m_toldDuration) {
        m_toldDuration = m_duration;
        Q_EMIT durationChanged(m_duration);
    }
}

} // namespace media
