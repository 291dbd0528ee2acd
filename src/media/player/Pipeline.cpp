// SPDX-License-Identifier: MIT
#include "media/player/Pipeline.h"

#include "media/player/AudioSource.h"
#include "media/player/BusRelay.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace media {

namespace {

constexpr double kNanoseconds = 1e9;

// Longer than a program hangs or a computer sleeps between two looks at a clock.
constexpr GstClockTime kLeap = 30 * 24 * 3600 * GST_SECOND;

// Seconds by which the end of a sound and the length that is told for it differ in sound files:
// the silence in the last frames.
constexpr double kEndTolerance = 0.15;

GstClockTime toLibraryTime(double seconds)
{
    return static_cast<GstClockTime>(std::llround(seconds * kNanoseconds));
}

} // namespace

Pipeline::Pipeline(const QString &path, GstElement *sink)
    : m_pipeline(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr)))),
      m_relay(std::make_shared<BusRelay>(this, path))
{
    gst_bin_add(GST_BIN(m_pipeline.get()), sink);
    m_relay->attach(m_pipeline.get(), sink);
    m_complete = addAudioSource(m_pipeline.get(), path, sink, [relay = m_relay] {
        relay->report({PipelineFailure::Cause::NotAudio, {}});
    });
}

Pipeline::~Pipeline()
{
    m_relay->detach();
    gst_element_set_state(m_pipeline.get(), GST_STATE_NULL);
    const GstPointer<GstBus> bus(gst_element_get_bus(m_pipeline.get()));
    gst_bus_set_sync_handler(bus.get(), nullptr, nullptr, nullptr);
}

bool Pipeline::isBusy() const
{
    return m_seeking
        || gst_element_get_state(m_pipeline.get(), nullptr, nullptr, 0) == GST_STATE_CHANGE_ASYNC;
}

bool Pipeline::clockLeapt()
{
    const GstPointer<GstClock> clock(gst_pipeline_get_clock(GST_PIPELINE(m_pipeline.get())));
    if (!clock) {
        return false;
    }
    const GstClockTime now = gst_clock_get_time(clock.get());
    const auto before = std::exchange(m_lastClock, now);
    return before && now > *before && now - *before > kLeap;
}

std::optional<double> Pipeline::position() const
{
    gint64 time = 0;
    if (!m_ready || gst_element_query_position(m_pipeline.get(), GST_FORMAT_TIME, &time) == FALSE) {
        return std::nullopt;
    }
    return static_cast<double>(time) / kNanoseconds - m_front;
}

std::optional<double> Pipeline::libraryDuration() const
{
    gint64 time = 0;
    if (gst_element_query_duration(m_pipeline.get(), GST_FORMAT_TIME, &time) == FALSE || time <= 0) {
        return std::nullopt;
    }
    return static_cast<double>(time) / kNanoseconds;
}

std::optional<double> Pipeline::duration() const
{
    if (m_music > 0) {
        return m_music;
    }
    const auto whole = m_ready ? libraryDuration() : std::nullopt;
    return whole ? std::optional(std::max(0.0, *whole - m_front)) : std::nullopt;
}

bool Pipeline::open()
{
    return m_complete
        && gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED) != GST_STATE_CHANGE_FAILURE;
}

void Pipeline::setPlaying(bool playing)
{
    m_playing = playing;
    gst_element_set_state(m_pipeline.get(), playing ? GST_STATE_PLAYING : GST_STATE_PAUSED);
}

bool Pipeline::seek(double seconds)
{
    m_relay->countSeek();
    // Without ACCURATE the library lands where it is cheap and says that it landed where asked.
    const auto flags = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE);
    m_seeking = gst_element_seek(m_pipeline.get(), 1.0, GST_FORMAT_TIME, flags, GST_SEEK_TYPE_SET,
                    static_cast<gint64>(toLibraryTime(seconds + m_front)), GST_SEEK_TYPE_NONE, 0)
        != FALSE;
    return m_seeking;
}

void Pipeline::onSettled(unsigned seeks, const EncoderDelay &delay)
{
    if (seeks != m_relay->seeks()) {
        return;
    }
    m_seeking = false;
    if (!m_ready) {
        m_ready = true;
        takeOffSilence(delay);
    }
    Q_EMIT settled();
}

void Pipeline::takeOffSilence(const EncoderDelay &delay)
{
    const MusicSpan music = musicSpan(delay, libraryDuration());
    m_front = music.front;
    m_music = music.length;
}

void Pipeline::onEnded()
{
    // While a seek is under way this is the end of what was heard before it.
    if (!m_seeking) {
        learnEnd();
        Q_EMIT ended();
    }
}

void Pipeline::learnEnd()
{
    const auto heard = position();
    const auto told = duration();
    // The length was a guess, or the file was cut off after its length was written down.
    if (heard && *heard > 0 && (!told || std::abs(*told - *heard) > kEndTolerance)) {
        m_music = *heard;
    }
}

void Pipeline::onFailed(const PipelineFailure &failure)
{
    Q_EMIT failed(failure);
}

void Pipeline::onClockLost()
{
    if (m_playing) {
        gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED);
        gst_element_set_state(m_pipeline.get(), GST_STATE_PLAYING);
    }
}

} // namespace media
