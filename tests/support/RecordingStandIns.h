// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/EditorContainer.h"
#include "shell/contracts/TQAudioPlayerObserver.h"
#include "shell/contracts/TQAudioPlayerProtocol.h"
#include "shell/contracts/TQLRCEditorViewCtlDelegate.h"
#include "shell/contracts/WXEAudioFile.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <memory>
#include <vector>

namespace support {

/// An audio item that is what the test says.
class StandInItem : public WXEAudioFile
{
public:
    QString titleText, artistText, albumText;
    QImage cover;
    double seconds = 0;
    QByteArray lrc;

    [[nodiscard]] QString title() const override { return titleText; }
    [[nodiscard]] QString artist() const override { return artistText; }
    [[nodiscard]] QString album() const override { return albumText; }
    [[nodiscard]] QImage frontCoverImg() const override { return cover; }
    [[nodiscard]] double duration() const override { return seconds; }
    [[nodiscard]] QByteArray lyric() const override { return lrc; }
    void setLyric(const QByteArray &lyric) override { lrc = lyric; }
    void refreshIsDirty() override { }
};

/// A player that writes down what it is told.
class StandInPlayer : public TQAudioPlayerProtocol
{
public:
    bool playing = false;
    std::shared_ptr<WXEAudioFile> current;
    double seconds = 0;
    QStringList told;
    std::vector<std::weak_ptr<TQAudioPlayerObserver>> observers;

    [[nodiscard]] bool isPlaying() const override { return playing; }
    [[nodiscard]] std::shared_ptr<WXEAudioFile> playingMusic() const override { return current; }
    [[nodiscard]] double duration() const override { return seconds; }
    void play() override { told << QStringLiteral("play"); }
    void pause() override
    {
        told << QStringLiteral("pause");
        playing = false;
    }
    void seek(double position) override { told << QStringLiteral("seek %1").arg(position); }
    void lightPlay() override { told << QStringLiteral("lightPlay"); }
    void registObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer) override
    {
        told << QStringLiteral("registObserver");
        observers.push_back(observer);
    }
    void removeObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer) override
    {
        told << QStringLiteral("removeObserver");
        std::erase_if(observers, [&observer](const auto &known) {
            return !known.owner_before(observer) && !observer.owner_before(known);
        });
    }
};

/// A host that writes down which items it is asked to play.
class StandInHost : public TQLRCEditorViewCtlDelegate
{
public:
    std::vector<std::shared_ptr<WXEAudioFile>> asked;

    void lrcEditorPlayAudioFile(const std::shared_ptr<WXEAudioFile> &item) override { asked.push_back(item); }
};

/// A container that writes down what its children want.
class StandInContainer : public EditorContainer
{
public:
    QStringList told;
    QObject *sender = nullptr;
    std::vector<std::shared_ptr<WXEAudioFile>> flushed;

    bool tryToPlay() override { return note("tryToPlay", nullptr); }
    void pressPlayPause(QObject *by) override { note("pressPlayPause", by); }
    void flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item) override
    {
        note("flushWithAudioItem", nullptr);
        flushed.push_back(item);
    }
    void prPreviewClicked(QObject *by) override { note("prPreviewClicked", by); }
    void backFromPreview(QObject *by) override { note("backFromPreview", by); }
    void previewOffsetClicked(QObject *by) override { note("previewOffsetClicked", by); }

private:
    bool note(const char *what, QObject *by)
    {
        told << QString::fromLatin1(what);
        sender = by;
        return true;
    }
};

} // namespace support
