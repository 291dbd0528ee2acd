// SPDX-License-Identifier: MIT
#include "media/player/Pipeline.h"
#include "media/player/PlayerCall.h"
#include "media/player/PlayerObservers.h"

namespace media {

void Player::registObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer)
{
    m_observers->add(observer);
}

void Player::removeObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer)
{
    m_observers->remove(observer);
}

void Player::announcePlaying()
{
    m_observers->forEach(
        [this](TQAudioPlayerObserver &observer) { observer.audioPlayer_playStateChanged(this, m_playing); });
}

void Player::announceBeginning()
{
    // An observer that was told of the playing may have stopped it.
    if (m_begun || !m_playing) {
        return;
    }
    m_begun = true;
    const auto item = m_item;
    m_observers->forEach(
        [&](TQAudioPlayerObserver &observer) { observer.audioPlayer_startPlay(this, item); });
}

void Player::announceEnd()
{
    m_observers->forEach([this](TQAudioPlayerObserver &observer) { observer.audioPlayerPlayFinished(this); });
}

void Player::reportPosition()
{
    const double seconds = m_position;
    m_observers->forEach(
        [&](TQAudioPlayerObserver &observer) { observer.audioPlayer_updateProgress(this, seconds); });
}

void Player::reportPositionLater()
{
    const auto late = [this, item = m_item] {
        if (item && item == m_item) {
            const Call call(*this);
            reportPosition();
        }
    };
    QMetaObject::invokeMethod(this, late, Qt::QueuedConnection);
}

} // namespace media
