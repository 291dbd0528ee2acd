// SPDX-License-Identifier: MIT
#include "media/player/Pipeline.h"

#include "media/player/BusRelay.h"
#include "media/player/Library.h"

#include <QtCore/QFile>

#include <algorithm>
#include <cmath>

namespace media {

namespace {

// As the flags of playbin are named: only the sound, and its volume in software.
constexpr unsigned kFlagAudio = 1U << 1U;
constexpr unsigned kFlagSoftVolume = 1U << 4U;

constexpr double kNanoseconds = 1e9;

GstClockTime toLibraryTime(double seconds)
{
    return static_cast<GstClockTime>(std::llround(seconds * kNanoseconds));
}

} // namespace

bool Pipeline::isAvailable()
{
    if (!startLibrary()) {
        return false;
    }
    const GstPointer<GstElementFactory> factory(gst_element_factory_find("playbin3"));
    return factory != nullptr;
}

Pipeline::Pipeline(const QString &path, GstElement *sink)
    : m_playbin(GST_ELEMENT(gst_object_ref_sink(gst_element_factory_make("playbin3", nullptr)))),
      m_relay(std::make_shared<BusRelay>(this, path))
{
    const GString8 uri(gst_filename_to_uri(QFile::encodeName(path).constData(), nullptr));
    m_relay->attach(m_playbin.get(), sink);
    g_object_set(m_playbin.get(), "uri", uri.get(), "flags", kFlagAudio | kFlagSoftVolume, "audio-sink", sink,
        nullptr);
}

Pipeline::~Pipeline()
{
    m_relay->detach();
    gst_element_set_state(m_playbin.get(), GST_STATE_NULL);
    const GstPointer<GstBus> bus(gst_element_get_bus(m_playbin.get()));
    gst_bus_set_sync_handler(bus.get(), nullptr, nullptr, nullptr);
}

bool Pipeline::isBusy() const
{
    return m_seeking || gst_element_get_state(m_playbin.get(), nullptr, nullptr, 0) == GST_STATE_CHANGE_ASYNC;
}

std::optional<double> Pipeline::position() const
{
    gint64 time = 0;
    if (!m_ready || gst_element_query_position(m_playbin.get(), GST_FORMAT_TIME, &time) == FALSE) {
        return std::nullopt;
    }
    return static_cast<double>(time) / kNanoseconds - m_front;
}

std::optional<double> Pipeline::libraryDuration() const
{
    gint64 time = 0;
    if (gst_element_query_duration(m_playbin.get(), GST_FORMAT_TIME, &time) == FALSE || time <= 0) {
        return std::nullopt;
    }
    return static_cast<double>(time) / kNanoseconds;
}

std::optional<double> Pipeline::duration() const
{
    const auto whole = m_ready ? libraryDuration() : std::nullopt;
    return whole ? std::optional(std::max(0.0, *whole - m_front - m_behind)) : std::nullopt;
}

bool Pipeline::open()
{
    return gst_element_set_state(m_playbin.get(), GST_STATE_PAUSED) != GST_STATE_CHANGE_FAILURE;
}

void Pipeline::setPlaying(bool playing)
{
    m_playing = playing;
    gst_element_set_state(m_playbin.get(), playing ? GST_STATE_PLAYING : GST_STATE_PAUSED);
}

bool Pipeline::seek(double seconds)
{
    m_relay->countSeek();
    // Without ACCURATE the library lands where it is cheap and says that it landed where asked.
    const auto flags = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE);
    m_seeking = gst_element_seek(m_playbin.get(), 1.0, GST_FORMAT_TIME, flags, GST_SEEK_TYPE_SET,
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
    // Newer releases of the library take off by themselves what the file describes. Which kind
    // this is shows in the length that it tells.
    const double whole = delay.totalSeconds();
    const double music = whole - delay.frontSeconds() - delay.behindSeconds();
    const auto told = libraryDuration();
    if (delay.total > 0 && told && std::abs(*told - music) < std::abs(*told - whole)) {
        return;
    }
    m_front = delay.frontSeconds();
    m_behind = delay.behindSeconds();
}

void Pipeline::onEnded()
{
    // While a seek is under way this is the end of what was heard before it.
    if (!m_seeking) {
        Q_EMIT ended();
    }
}

void Pipeline::onFailed(const PipelineFailure &failure)
{
    Q_EMIT failed(failure);
}

void Pipeline::onClockLost()
{
    if (m_playing) {
        gst_element_set_state(m_playbin.get(), GST_STATE_PAUSED);
        gst_element_set_state(m_playbin.get(), GST_STATE_PLAYING);
    }
}

void Pipeline::onLatencyChanged()
{
    gst_bin_recalculate_latency(GST_BIN(m_playbin.get()));
}

} // namespace media
