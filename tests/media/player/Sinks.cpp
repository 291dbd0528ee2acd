// SPDX-License-Identifier: MIT
#include "media/player/Sinks.h"

#include "media/player/AudioFiles.h"

#include <gst/app/gstappsink.h>
#include <gst/gst.h>

#include <chrono>
#include <utility>

namespace sinks {

namespace {

media::PlayerOutput fakeSink(bool inRealTime)
{
    return {[inRealTime] {
        GstElement *sink = gst_element_factory_make("fakesink", nullptr);
        g_object_set(sink, "sync", inRealTime ? TRUE : FALSE, nullptr);
        return sink;
    }};
}

GstFlowReturn takeSample(GstAppSink *sink, gpointer capture)
{
    static_cast<Capture *>(capture)->take(sink);
    return GST_FLOW_OK;
}

} // namespace

media::PlayerOutput realTime()
{
    return fakeSink(true);
}

media::PlayerOutput fast()
{
    return fakeSink(false);
}

double steadySeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

media::PlayerOutput Capture::output()
{
    return {[this] {
        GstElement *sink = gst_element_factory_make("appsink", nullptr);
        GstCaps *caps
            = gst_caps_new_simple("audio/x-raw", "format", G_TYPE_STRING, "F32LE", "channels", G_TYPE_INT, 1,
                "rate", G_TYPE_INT, audiofiles::kSampleRate, "layout", G_TYPE_STRING, "interleaved", nullptr);
        g_object_set(
            sink, "caps", caps, "sync", m_pace == Pace::RealTime ? TRUE : FALSE, "max-buffers", 4U, nullptr);
        gst_caps_unref(caps);
        GstAppSinkCallbacks callbacks{};
        callbacks.new_sample = takeSample;
        gst_app_sink_set_callbacks(GST_APP_SINK(sink), &callbacks, this, nullptr);
        return sink;
    }};
}

void Capture::take(GstAppSink *sink)
{
    const double now = steadySeconds();
    GstSample *sample = gst_app_sink_try_pull_sample(sink, 0);
    if (sample == nullptr) {
        return;
    }
    GstBuffer *buffer = gst_sample_get_buffer(sample);
    const GstSegment *segment = gst_sample_get_segment(sample);
    Block block;
    block.secondsAfterSeek
        = (static_cast<double>(GST_BUFFER_PTS(buffer)) - static_cast<double>(segment->start)) / 1e9;
    block.renderedAt = now;
    GstMapInfo map;
    if (gst_buffer_map(buffer, &map, GST_MAP_READ) != FALSE) {
        const auto *values = reinterpret_cast<const float *>(map.data);
        block.samples.assign(values, values + map.size / sizeof(float));
        gst_buffer_unmap(buffer, &map);
    }
    gst_sample_unref(sample);
    const std::lock_guard lock(m_mutex);
    m_blocks.push_back(std::move(block));
}

std::vector<Capture::Block> Capture::blocks() const
{
    const std::lock_guard lock(m_mutex);
    return m_blocks;
}

double Capture::seconds() const
{
    const std::lock_guard lock(m_mutex);
    std::size_t samples = 0;
    for (const Block &block : m_blocks) {
        samples += block.samples.size();
    }
    return static_cast<double>(samples) / audiofiles::kSampleRate;
}

void Capture::clear()
{
    const std::lock_guard lock(m_mutex);
    m_blocks.clear();
}

} // namespace sinks
