// SPDX-License-Identifier: MIT
#pragma once

#include "media/player/Player.h"
#include "shell/contracts/TQAudioPlayerObserver.h"
#include "shell/contracts/WXEAudioFile.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

/// An item that is nothing but its identity.
class PlainItem final : public WXEAudioFile
{
public:
    [[nodiscard]] QString title() const override { return {}; }
    [[nodiscard]] QString artist() const override { return {}; }
    [[nodiscard]] QString album() const override { return {}; }
    [[nodiscard]] QImage frontCoverImg() const override { return {}; }
    [[nodiscard]] double duration() const override { return 0; }
    [[nodiscard]] QByteArray lyric() const override { return {}; }
    void setLyric(const QByteArray & /*lyric*/) override { }
    void refreshIsDirty() override { }
};

/// Writes down what it is told, and does something then if it is asked to.
class Recorder final : public TQAudioPlayerObserver
{
public:
    enum class Told { Started, Finished, Progress, Playing, Paused };

    void audioPlayer_startPlay(
        TQAudioPlayerProtocol *player, const std::shared_ptr<WXEAudioFile> &item) override
    {
        started = item;
        note(Told::Started, player);
    }
    void audioPlayerPlayFinished(TQAudioPlayerProtocol *player) override { note(Told::Finished, player); }
    void audioPlayer_updateProgress(TQAudioPlayerProtocol *player, double seconds) override
    {
        positions.push_back(seconds);
        note(Told::Progress, player);
    }
    void audioPlayer_playStateChanged(TQAudioPlayerProtocol *player, bool playing) override
    {
        note(playing ? Told::Playing : Told::Paused, player);
    }

    [[nodiscard]] long count(Told what) const { return std::count(events.begin(), events.end(), what); }
    /// What it was told, positions left out.
    [[nodiscard]] std::vector<Told> changes() const
    {
        std::vector<Told> all = events;
        std::erase(all, Told::Progress);
        return all;
    }
    void forget()
    {
        events.clear();
        positions.clear();
    }

    std::vector<Told> events;
    std::vector<double> positions;
    std::shared_ptr<WXEAudioFile> started;
    /// Runs at the end of each callback.
    std::function<void(Told, TQAudioPlayerProtocol *)> react;

private:
    void note(Told what, TQAudioPlayerProtocol *player)
    {
        events.push_back(what);
        if (react) {
            react(what, player);
        }
    }
};
