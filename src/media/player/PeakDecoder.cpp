// SPDX-License-Identifier: MIT
#include "media/player/PeakDecoder.h"

#include "media/player/AudioSource.h"
#include "media/player/EncoderDelay.h"
#include "media/player/GstPointers.h"
#include "media/player/PeakCollector.h"

#include <QtCore/QFile>

#include <gst/app/gstappsink.h>
#include <gst/audio/audio.h>

#include <chrono>
#include <cmath>
#include <filesystem>
#include <memory>
#include <optional>

namespace media {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr double kNanoseconds = 1e9;
constexpr GstClockTime kPatience = 10 * GST_MSECOND; // so long a cancellation may take
constexpr auto kTellEvery = 80ms;
// A file from which nothing has come for so long is given up.
constexpr auto kGiveUpAfter = 5s;
constexpr guint kBuffersAhead = 16;

struct SampleUnref
{
    void operator()(GstSample *sample) const { gst_sample_unref(sample); }
};
using SamplePointer = std::unique_ptr<GstSample, SampleUnref>;

struct BufferUnref
{
    void operator()(GstBuffer *buffer) const { gst_buffer_unref(buffer); }
};
using BufferPointer = std::unique_ptr<GstBuffer, BufferUnref>;

struct MessageUnref
{
    void operator()(GstMessage *message) const { gst_message_unref(message); }
};
using MessagePointer = std::unique_ptr<GstMessage, MessageUnref>;

/// Takes what is decoded as floats of as many channels as there are: a library's mix to one channel
/// makes sounds that differ in phase quieter than they are. Floating; null when something is missing.
GstElement *makeFloatBin(GstElement *&output)
{
    GstElement *convert = gst_element_factory_make("audioconvert", nullptr);
    output = gst_element_factory_make("appsink", nullptr);
    GstElement *bin = gst_bin_new(nullptr);
    for (GstElement *element : {convert, output}) {
        if (element != nullptr) {
            gst_bin_add(GST_BIN(bin), element);
        }
    }
    if (convert == nullptr || output == nullptr || gst_element_link(convert, output) == FALSE) {
        gst_object_unref(gst_object_ref_sink(bin));
        return nullptr;
    }
    GstCaps *caps = gst_caps_new_simple("audio/x-raw", "format", G_TYPE_STRING, GST_AUDIO_NE(F32), "layout",
        G_TYPE_STRING, "interleaved", nullptr);
    g_object_set(output, "caps", caps, "sync", FALSE, "max-buffers", kBuffersAhead, nullptr);
    gst_caps_unref(caps);
    const GstPointer<GstPad> pad(gst_element_get_static_pad(convert, "sink"));
    gst_element_add_pad(bin, gst_ghost_pad_new("sink", pad.get()));
    return bin;
}

/// One file on its way through the decoder.
class Decoding
{
public:
    Decoding(const QString &path, const std::atomic<bool> &cancelled) : m_path(path), m_cancelled(cancelled)
    { }
    ~Decoding() { gst_element_set_state(m_pipeline.get(), GST_STATE_NULL); }
    Decoding(const Decoding &) = delete;
    Decoding &operator=(const Decoding &) = delete;

    /// Decodes up to the first sound. False when there is none.
    bool open();
    /// Decodes the rest.
    void run(const std::function<void(const WaveformPeaks &)> &tell);

private:
    [[nodiscard]] bool isOver() const;
    void take(GstSample *sample);
    void add(GstBuffer *buffer, const GstSegment *segment, const GstAudioInfo &info);

    const QString m_path;
    const std::atomic<bool> &m_cancelled;
    std::atomic<bool> m_noSound = false;
    GstPointer<GstElement> m_pipeline{GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr)))};
    GstElement *m_output = nullptr;
    MusicSpan m_music;
    std::optional<PeakCollector> m_collector;
    std::uint32_t m_sampleRate = 0;
    /// Where the next sound is taken to be when it does not say.
    std::int64_t m_nextFrame = 0;
    /// What comes is behind the music.
    bool m_musicIsOver = false;
};

bool Decoding::isOver() const
{
    if (m_cancelled || m_noSound) {
        return true;
    }
    const GstPointer<GstBus> bus(gst_element_get_bus(m_pipeline.get()));
    const MessagePointer error(gst_bus_pop_filtered(bus.get(), GST_MESSAGE_ERROR));
    return error != nullptr;
}

bool Decoding::open()
{
    GstElement *sink = makeFloatBin(m_output);
    if (sink == nullptr) {
        return false;
    }
    gst_bin_add(GST_BIN(m_pipeline.get()), sink);
    if (!addAudioSource(m_pipeline.get(), m_path, sink, [this] { m_noSound = true; })) {
        return false;
    }
    auto state = gst_element_set_state(m_pipeline.get(), GST_STATE_PAUSED);
    const auto end = Clock::now() + kGiveUpAfter;
    while (state == GST_STATE_CHANGE_ASYNC && !isOver() && Clock::now() < end) {
        state = gst_element_get_state(m_pipeline.get(), nullptr, nullptr, kPatience);
    }
    if (state != GST_STATE_CHANGE_SUCCESS) {
        return false;
    }
    gint64 time = 0;
    const bool told
        = gst_element_query_duration(m_pipeline.get(), GST_FORMAT_TIME, &time) != FALSE && time > 0;
    m_music = musicSpan(encoderDelayOf(std::filesystem::path(QFile::encodeName(m_path).toStdString())),
        told ? std::optional(static_cast<double>(time) / kNanoseconds) : std::nullopt);
    return true;
}

void Decoding::run(const std::function<void(const WaveformPeaks &)> &tell)
{
    gst_element_set_state(m_pipeline.get(), GST_STATE_PLAYING);
    auto *const output = GST_APP_SINK(m_output);
    auto lastSound = Clock::now();
    auto told = lastSound;
    while (!isOver() && !m_musicIsOver) {
        const auto now = Clock::now();
        if (const SamplePointer sample{gst_app_sink_try_pull_sample(output, kPatience)}) {
            take(sample.get());
            lastSound = now;
        } else if (gst_app_sink_is_eos(output) != FALSE || now - lastSound > kGiveUpAfter) {
            break;
        }
        if (m_collector && now - told > kTellEvery) {
            tell(m_collector->peaks());
            told = now;
        }
    }
    // Where a file breaks off there are some that were decoded before the error was told.
    while (const SamplePointer rest{
        m_cancelled || m_musicIsOver ? nullptr : gst_app_sink_try_pull_sample(output, 0)}) {
        take(rest.get());
    }
    if (m_collector && !m_cancelled) {
        tell(m_collector->peaks());
    }
}

void Decoding::take(GstSample *sample)
{
    GstAudioInfo info;
    GstCaps *caps = gst_sample_get_caps(sample);
    GstBuffer *buffer = gst_sample_get_buffer(sample);
    const GstSegment *segment = gst_sample_get_segment(sample);
    if (caps == nullptr || buffer == nullptr || gst_audio_info_from_caps(&info, caps) == FALSE) {
        return;
    }
    const auto rate = static_cast<std::uint32_t>(GST_AUDIO_INFO_RATE(&info));
    if (!m_collector) {
        m_collector.emplace(rate);
        m_sampleRate = rate;
    }
    // What the file says is not to be heard is not heard from the player either.
    if (const BufferPointer heard{gst_audio_buffer_clip(
            gst_buffer_ref(buffer), segment, GST_AUDIO_INFO_RATE(&info), GST_AUDIO_INFO_BPF(&info))};
        heard && rate == m_sampleRate) {
        add(heard.get(), segment, info);
    }
}

void Decoding::add(GstBuffer *buffer, const GstSegment *segment, const GstAudioInfo &info)
{
    GstMapInfo map;
    if (gst_buffer_map(buffer, &map, GST_MAP_READ) == FALSE) {
        return;
    }
    guint64 time = 0;
    if (GST_BUFFER_PTS_IS_VALID(buffer)) {
        const int sign
            = gst_segment_to_stream_time_full(segment, GST_FORMAT_TIME, GST_BUFFER_PTS(buffer), &time);
        const double seconds = sign * static_cast<double>(time) / kNanoseconds - m_music.front;
        m_nextFrame = std::llround(seconds * m_sampleRate);
    }
    const auto channels = static_cast<std::size_t>(GST_AUDIO_INFO_CHANNELS(&info));
    auto frames = static_cast<std::int64_t>(map.size / (channels * sizeof(float)));
    if (m_music.length > 0) {
        const std::int64_t left = std::llround(m_music.length * m_sampleRate) - m_nextFrame;
        m_musicIsOver = frames >= left;
        frames = std::min(frames, left);
    }
    if (frames > 0) {
        m_collector->add(m_nextFrame,
            {reinterpret_cast<const float *>(map.data), static_cast<std::size_t>(frames) * channels},
            channels);
        m_nextFrame += frames;
    }
    gst_buffer_unmap(buffer, &map);
}

} // namespace

PeakOutcome decodePeaks(const QString &path, const std::atomic<bool> &cancelled,
    const std::function<void(const WaveformPeaks &peaks)> &tell)
{
    bool any = false;
    Decoding decoding(path, cancelled);
    if (decoding.open()) {
        decoding.run([&](const WaveformPeaks &peaks) {
            any = any || !peaks.levels.empty();
            tell(peaks);
        });
    }
    if (cancelled) {
        return PeakOutcome::Cancelled;
    }
    return any ? PeakOutcome::Done : PeakOutcome::Nothing;
}

} // namespace media
