// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/EditorContainer.h"
#include "shell/contracts/TQAudioPlayerObserver.h"
#include "shell/contracts/TQAudioPlayerProtocol.h"
#include "shell/contracts/TQLRCEditorViewCtlDelegate.h"
#include "shell/contracts/WXEAudioFile.h"

#include <QtCore/QPoint>
#include <QtCore/QStringList>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

/// What the component meets in a host, each moved by the test that uses it.
namespace standin {

/// Everybody's calls in the order in which they came.
using CallLog = std::shared_ptr<QStringList>;

inline CallLog newLog()
{
    return std::make_shared<QStringList>();
}

/// An audio item that is what the test says.
class Item final : public WXEAudioFile
{
public:
    explicit Item(QByteArray lyric = {}, QString title = {})
        : titleText(std::move(title)), lrc(std::move(lyric))
    { }

    [[nodiscard]] QString title() const override { return titleText; }
    [[nodiscard]] QString artist() const override { return artistText; }
    [[nodiscard]] QString album() const override { return albumText; }
    [[nodiscard]] QImage frontCoverImg() const override { return cover; }
    [[nodiscard]] double duration() const override { return seconds; }
    [[nodiscard]] QByteArray lyric() const override { return lrc; }
    void setLyric(const QByteArray &lyric) override
    {
        lrc = lyric;
        ++lyricWrites;
    }
    void refreshIsDirty() override { ++dirtyRefreshes; }

    QString titleText;
    QString artistText;
    QString albumText;
    QImage cover;
    double seconds = 0;
    QByteArray lrc;
    int lyricWrites = 0;
    int dirtyRefreshes = 0;
};

/// A player that writes down what it is told, also in a log that it shares with others.
class Player final : public TQAudioPlayerProtocol
{
public:
    explicit Player(CallLog log = newLog()) : m_log(std::move(log)) { }

    [[nodiscard]] bool isPlaying() const override { return playing; }
    [[nodiscard]] std::shared_ptr<WXEAudioFile> playingMusic() const override { return music; }
    [[nodiscard]] double duration() const override { return seconds; }
    void play() override
    {
        note(QStringLiteral("play"));
        playing = true;
    }
    void pause() override
    {
        note(QStringLiteral("pause"));
        playing = false;
    }
    void seek(double position) override { note(QStringLiteral("seek %1").arg(position)); }
    void lightPlay() override { note(QStringLiteral("lightPlay")); }
    void registObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer) override
    {
        told.append(QStringLiteral("registObserver"));
        if (!isRegistered(observer)) {
            observers.push_back(observer);
        }
    }
    void removeObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer) override
    {
        told.append(QStringLiteral("removeObserver"));
        std::erase_if(observers, [&observer](const auto &known) { return sameOwner(known, observer); });
    }

    [[nodiscard]] bool isRegistered(const std::weak_ptr<TQAudioPlayerObserver> &observer) const
    {
        return std::any_of(observers.begin(), observers.end(),
            [&observer](const auto &known) { return sameOwner(known, observer); });
    }
    void tick(double position)
    {
        const auto listening = observers;
        for (const auto &observer : listening) {
            if (const auto alive = observer.lock()) {
                alive->audioPlayer_updateProgress(this, position);
            }
        }
    }

    bool playing = false;
    std::shared_ptr<WXEAudioFile> music;
    double seconds = 0;
    QStringList told;
    std::vector<std::weak_ptr<TQAudioPlayerObserver>> observers;

private:
    void note(const QString &what)
    {
        told.append(what);
        m_log->append(QStringLiteral("player.") + what);
    }
    static bool sameOwner(
        const std::weak_ptr<TQAudioPlayerObserver> &a, const std::weak_ptr<TQAudioPlayerObserver> &b)
    {
        return !a.owner_before(b) && !b.owner_before(a);
    }

    CallLog m_log;
};

class Host final : public TQLRCEditorViewCtlDelegate
{
public:
    explicit Host(CallLog log = newLog()) : m_log(std::move(log)) { }

    void lrcEditorPlayAudioFile(const std::shared_ptr<WXEAudioFile> &item) override
    {
        m_log->append(QStringLiteral("host.play"));
        asked.push_back(item);
        if (onPlay) {
            onPlay(item);
        }
    }
    void lrcEditorLrcDidChanged() override
    {
        ++changes;
        if (onChanged) {
            onChanged();
        }
    }
    void lrcEditorSelctionChanged_column(std::int32_t row, std::int32_t column) override
    {
        selections.append(QPoint(column, row));
        if (onSelected) {
            onSelected();
        }
    }

    int changes = 0;
    std::vector<std::shared_ptr<WXEAudioFile>> asked;
    /// x is the column, y the row.
    QList<QPoint> selections;
    std::function<void(const std::shared_ptr<WXEAudioFile> &)> onPlay;
    std::function<void()> onChanged;
    std::function<void()> onSelected;

private:
    CallLog m_log;
};

/// A host that implements only what it must.
class TaciturnHost final : public TQLRCEditorViewCtlDelegate
{
public:
    void lrcEditorPlayAudioFile(const std::shared_ptr<WXEAudioFile> &item) override
    {
        Q_UNUSED(item)
        ++asked;
    }
    int asked = 0;
};

/// A container that writes down what its children want.
class Container final : public EditorContainer
{
public:
    bool tryToPlay() override { return note("tryToPlay", nullptr); }
    void pressPlayPause(QObject *by) override { note("pressPlayPause", by); }
    void seekTo(double seconds) override { told.append(QStringLiteral("seekTo %1").arg(seconds)); }
    void playFrom(double seconds) override { told.append(QStringLiteral("playFrom %1").arg(seconds)); }
    void flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item) override
    {
        note("flushWithAudioItem", nullptr);
        flushed.push_back(item);
    }
    void showTimeTags(const std::vector<double> &all, const std::vector<double> &selected) override
    {
        ticks = all;
        selectedTicks = selected;
        ++tickShows;
    }
    void prPreviewClicked(QObject *by) override { note("prPreviewClicked", by); }
    void backFromPreview(QObject *by) override { note("backFromPreview", by); }
    void previewOffsetClicked(QObject *by) override { note("previewOffsetClicked", by); }

    QStringList told;
    /// Of the last call.
    QObject *sender = nullptr;
    std::vector<std::shared_ptr<WXEAudioFile>> flushed;
    std::vector<double> ticks;
    std::vector<double> selectedTicks;
    int tickShows = 0;

private:
    bool note(const char *what, QObject *by)
    {
        told.append(QString::fromLatin1(what));
        sender = by;
        return true;
    }
};

} // namespace standin
