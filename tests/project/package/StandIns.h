// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/TQAudioPlayerProtocol.h"
#include "shell/contracts/TQLRCEditorViewCtlDelegate.h"
#include "shell/contracts/WXEAudioFile.h"

#include <utility>

/// An audio item that is nothing but a name and a lyric.
class StandInItem : public WXEAudioFile
{
public:
    StandInItem(QString title, QByteArray lyric) : m_title(std::move(title)), m_lyric(std::move(lyric)) { }

    QString title() const override { return m_title; }
    QString artist() const override { return {}; }
    QString album() const override { return {}; }
    QImage frontCoverImg() const override { return {}; }
    double duration() const override { return 60.0; }
    QByteArray lyric() const override { return m_lyric; }
    void setLyric(const QByteArray &lyric) override { m_lyric = lyric; }
    void refreshIsDirty() override { }

private:
    QString m_title;
    QByteArray m_lyric;
};

/// A player without sound: it holds an item, and plays it when asked.
class StandInPlayer : public TQAudioPlayerProtocol
{
public:
    void hold(std::shared_ptr<WXEAudioFile> item) { m_item = std::move(item); }

    bool isPlaying() const override { return m_playing; }
    std::shared_ptr<WXEAudioFile> playingMusic() const override { return m_item; }
    double duration() const override { return m_item ? m_item->duration() : 0.0; }
    void play() override { m_playing = m_item != nullptr; }
    void pause() override { m_playing = false; }
    void seek(double) override { }
    void lightPlay() override { play(); }
    void registObserver(const std::weak_ptr<TQAudioPlayerObserver> &) override { }
    void removeObserver(const std::weak_ptr<TQAudioPlayerObserver> &) override { }

private:
    std::shared_ptr<WXEAudioFile> m_item;
    bool m_playing = false;
};

/// A host that plays what it is asked to play.
class StandInHost : public TQLRCEditorViewCtlDelegate
{
public:
    explicit StandInHost(std::shared_ptr<StandInPlayer> player) : m_player(std::move(player)) { }

    void lrcEditorPlayAudioFile(const std::shared_ptr<WXEAudioFile> &item) override
    {
        if (m_player->playingMusic() == item && m_player->isPlaying()) {
            m_player->pause();
            return;
        }
        m_player->hold(item);
        m_player->play();
    }

private:
    std::shared_ptr<StandInPlayer> m_player;
};
