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

class Item final : public WXEAudioFile
{
public:
    explicit Item(QByteArray lyric = {}, QString title = {})
        : m_lyric(std::move(lyric)), m_title(std::move(title))
    { }

    [[nodiscard]] QString title() const override { return m_title; }
    [[nodiscard]] QString artist() const override { return {}; }
    [[nodiscard]] QString album() const override { return {}; }
    [[nodiscard]] QImage frontCoverImg() const override { return {}; }
    [[nodiscard]] double duration() const override { return 60.0; }
    [[nodiscard]] QByteArray lyric() const override { return m_lyric; }
    void setLyric(const QByteArray &lyric) override
    {
        m_lyric = lyric;
        ++lyricWrites;
    }
    void refreshIsDirty() override { ++dirtyRefreshes; }

    int lyricWrites = 0;
    int dirtyRefreshes = 0;

private:
    QByteArray m_lyric;
    QString m_title;
};

class Player final : public TQAudioPlayerProtocol
{
public:
    explicit Player(CallLog log = newLog()) : m_log(std::move(log)) { }

    [[nodiscard]] bool isPlaying() const override { return playing; }
    [[nodiscard]] std::shared_ptr<WXEAudioFile> playingMusic() const override { return music; }
    [[nodiscard]] double duration() const override { return 60.0; }
    void play() override
    {
        m_log->append(QStringLiteral("player.play"));
        playing = true;
    }
    void pause() override
    {
        m_log->append(QStringLiteral("player.pause"));
        playing = false;
    }
    void seek(double seconds) override { m_log->append(QStringLiteral("player.seek %1").arg(seconds)); }
    void lightPlay() override { m_log->append(QStringLiteral("player.lightPlay")); }
    void registObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer) override
    {
        if (!isRegistered(observer)) {
            observers.push_back(observer);
        }
    }
    void removeObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer) override
    {
        std::erase_if(observers, [&observer](const auto &known) { return sameOwner(known, observer); });
    }

    [[nodiscard]] bool isRegistered(const std::weak_ptr<TQAudioPlayerObserver> &observer) const
    {
        return std::any_of(observers.begin(), observers.end(),
            [&observer](const auto &known) { return sameOwner(known, observer); });
    }
    void tick(double seconds)
    {
        const auto told = observers;
        for (const auto &observer : told) {
            if (const auto alive = observer.lock()) {
                alive->audioPlayer_updateProgress(this, seconds);
            }
        }
    }

    bool playing = false;
    std::shared_ptr<WXEAudioFile> music;
    std::vector<std::weak_ptr<TQAudioPlayerObserver>> observers;

private:
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

class Container final : public EditorContainer
{
public:
    bool tryToPlay() override
    {
        calls.append(QStringLiteral("tryToPlay"));
        return true;
    }
    void pressPlayPause(QObject *sender) override
    {
        calls.append(
            sender ? QStringLiteral("pressPlayPause by somebody") : QStringLiteral("pressPlayPause"));
    }
    void flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item) override
    {
        Q_UNUSED(item)
        calls.append(QStringLiteral("flushWithAudioItem"));
    }
    void prPreviewClicked(QObject *sender) override
    {
        Q_UNUSED(sender)
        calls.append(QStringLiteral("prPreviewClicked"));
    }
    void backFromPreview(QObject *sender) override
    {
        Q_UNUSED(sender)
        calls.append(QStringLiteral("backFromPreview"));
    }
    void previewOffsetClicked(QObject *sender) override
    {
        Q_UNUSED(sender)
        calls.append(QStringLiteral("previewOffsetClicked"));
    }

    QStringList calls;
};

} // namespace standin
