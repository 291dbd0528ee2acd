// SPDX-License-Identifier: MIT
#pragma once

#include "media/player/EncoderDelay.h"
#include "media/player/GstPointers.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>
#include <optional>

namespace media {

class BusRelay;

/// What broke, in terms of what to do about it.
struct PipelineFailure
{
    enum class Cause {
        NotAudio,
        DecoderMissing,
        Unreadable,
        Damaged,
        Output,
    };
    Cause cause = Cause::Damaged;
    /// The library's own words, or the name of the decoder that is missing.
    QString detail;
};

/// One file on its way to the output: the library's pipeline, seen from the GUI thread.
///
/// Positions and durations are in seconds of music (see `EncoderDelay`). One seek at a time: the
/// next one after `settled`.
class Pipeline : public QObject
{
    Q_OBJECT

public:
    /// `path` is absolute; `sink` takes what is decoded and is taken over.
    Pipeline(const QString &path, GstElement *sink);
    ~Pipeline() override;

    /// False when parts of the library that everything needs are not installed.
    [[nodiscard]] bool isComplete() const { return m_complete; }
    /// True once the beginning is decoded and the pipeline answers questions.
    [[nodiscard]] bool isReady() const { return m_ready; }
    /// True while the library is still on its way to a place or state it was sent to.
    [[nodiscard]] bool isBusy() const;
    /// True once the output's clock has leapt ahead: it is of no use any more, and what plays
    /// never comes to its end. Asked now and then while playing.
    ///
    /// A sound server's client library does that: when a stream is held and let go at once, as a
    /// seek while playing does, the time that it tells can fall below zero and wrap around.
    [[nodiscard]] bool clockLeapt();
    /// Nothing while the library cannot say.
    [[nodiscard]] std::optional<double> position() const;
    /// Length of the music; nothing while nobody can say.
    [[nodiscard]] std::optional<double> duration() const;
    /// True when the length was counted, so that what is heard after it is no music.
    [[nodiscard]] bool knowsEnd() const { return m_music > 0; }

    /// Starts decoding up to the first sound. False when the library refuses at once.
    bool open();
    void setPlaying(bool playing);
    /// Sends the library to `seconds`; `settled` follows. False when it refuses.
    bool seek(double seconds);

Q_SIGNALS:
    /// The first sound is decoded, or the last seek has arrived, or a pause has.
    void settled();
    /// The last sound was played.
    void ended();
    void durationChanged();
    void failed(const media::PipelineFailure &failure);

private:
    friend class BusRelay;
    // On the GUI thread, by queued calls of the relay.
    void onSettled(unsigned seeks, const EncoderDelay &delay);
    void onEnded();
    void onFailed(const PipelineFailure &failure);
    void onClockLost();

    void takeOffSilence(const EncoderDelay &delay);
    void learnEnd();
    [[nodiscard]] std::optional<double> libraryDuration() const;

    GstPointer<GstElement> m_pipeline;
    std::shared_ptr<BusRelay> m_relay;
    /// Seconds of the library's timeline before the music.
    double m_front = 0;
    /// Length of the music as the file itself or its end says; 0 where the library has to be asked.
    double m_music = 0;
    /// All parts of it are installed.
    bool m_complete = false;
    bool m_ready = false;
    bool m_seeking = false;
    bool m_playing = false;
    /// The output's clock when it was last looked at; nothing before.
    std::optional<GstClockTime> m_lastClock;
};

} // namespace media
