// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/TQAudioPlayerProtocol.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>

#include <functional>
#include <memory>
#include <optional>

struct _GstElement;

namespace media {

class Pipeline;
class PlayerObservers;
struct PipelineFailure;

/// Where the sound goes.
struct PlayerOutput
{
    /// Makes the element that takes raw audio, floating; called for each item that is loaded.
    /// An empty function, or one that answers null, takes the system's sound device, and where
    /// there is none a clock that keeps real time in silence.
    std::function<_GstElement *()> makeSink;
};

/// Plays one audio file at a time and reports the position that is heard.
///
/// A position p, wherever it crosses this interface, means sample p of the music as it was
/// encoded: what the output holds back and the silence that an encoder puts in front are taken
/// off, and `seek()` takes the same time base. Seconds throughout.
///
/// Used on the GUI thread only; decoding happens elsewhere and comes back by queued calls. The
/// last reference may be dropped at any moment, from a callback too.
class Player final : public QObject, public TQAudioPlayerProtocol, public std::enable_shared_from_this<Player>
{
    Q_OBJECT

public:
    [[nodiscard]] static std::shared_ptr<Player> create(PlayerOutput output = {});
    /// Begins to start the multimedia library on another thread, for a host that will load an item soon: the
    /// first time on a machine the library looks at all its parts, which takes a second or more. `load()`
    /// waits for it.
    static void prepare();
    ~Player() override;

    [[nodiscard]] bool isPlaying() const override;
    [[nodiscard]] std::shared_ptr<WXEAudioFile> playingMusic() const override;
    /// As exact as the file says; 0 until the beginning of the item has been decoded. Without the
    /// silence that an encoder added at both ends.
    [[nodiscard]] double duration() const override;
    /// What is heard now; the target while a seek is under way; 0 without an item.
    [[nodiscard]] double position() const;
    /// Why the current item cannot be played, for the user; empty when nothing went wrong.
    [[nodiscard]] QString lastError() const;

    /// Makes `item` the current one, paused at 0, and begins to open the file at `path`.
    ///
    /// The item that is current already (identity) is left as it is. A null item unloads. What
    /// was playing stops. Observers hear the position once, by a queued call. A file that cannot
    /// be played says so later, by `failed`.
    void load(const std::shared_ptr<WXEAudioFile> &item, const QString &path);

    /// After the end, and after a seek to the end that was played out, begins at 0 again. After a
    /// failure opens the file anew.
    void play() override;
    void pause() override;
    /// Below 0 counts as 0. Many seeks in a row come down to the last one.
    void seek(double seconds) override;
    void lightPlay() override;

    void registObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer) override;
    void removeObserver(const std::weak_ptr<TQAudioPlayerObserver> &observer) override;

Q_SIGNALS:
    /// `item` cannot be played (any further); `message` is a sentence or two for the user.
    void failed(const QString &message, const std::shared_ptr<WXEAudioFile> &item);
    /// `duration()` became known or better known.
    void durationChanged(double seconds);

private:
    class Call;

    explicit Player(PlayerOutput output);
    void shutDown();

    void openPipeline();
    void connectPipeline();
    void closePipeline();
    void afterPipelineSettled();
    void afterPipelineEnded();
    void afterPipelineFailed(const PipelineFailure &failure);
    void restartOutput(double here);
    void fail(const QString &message);
    void failLater(const QString &message);

    void applyPendingSeek();
    void startIfWanted();
    void updateTicker();
    void tick();
    [[nodiscard]] double heardNow() const;
    [[nodiscard]] double clampToItem(double seconds) const;
    void refreshDuration();

    void announceBeginning();
    void announcePlaying();
    void announceEnd();
    void reportPosition();
    void reportPositionLater();

    PlayerOutput m_output;
    std::unique_ptr<PlayerObservers> m_observers;
    std::unique_ptr<Pipeline> m_pipeline;
    QTimer m_ticker;

    std::shared_ptr<WXEAudioFile> m_item;
    QString m_path;
    QString m_lastError;
    double m_duration = 0;
    double m_toldDuration = 0;
    /// The position as last heard or asked for; what is heard never falls behind it.
    double m_position = 0;
    /// Where to go as soon as the pipeline can be sent there.
    std::optional<double> m_pendingSeek;
    /// Where the pipeline is on its way to.
    std::optional<double> m_seekUnderWay;
    bool m_playing = false;
    /// `audioPlayer_startPlay` was sent for this run of the item.
    bool m_begun = false;
    bool m_ended = false;
    int m_outputFailures = 0;
    /// Changes with each pipeline and each item, so that late calls know that they are late.
    unsigned m_generation = 0;
    /// Calls under way, callbacks included; deleting waits for them.
    int m_calls = 0;
};

} // namespace media
