// SPDX-License-Identifier: MIT
#include "media/player/SinkBin.h"

#include <gst/gst.h>

#include <algorithm>
#include <array>

namespace media {

namespace {

GstElement *makeSilentSink()
{
    GstElement *sink = gst_element_factory_make("fakesink", nullptr);
    if (sink != nullptr) {
        g_object_set(sink, "sync", TRUE, nullptr);
    }
    return sink;
}

GstElement *makeOutput(const std::function<GstElement *()> &makeSink, OutputKind kind)
{
    if (kind == OutputKind::Silent) {
        return makeSilentSink();
    }
    GstElement *sink = makeSink ? makeSink() : nullptr;
    // It tries what is installed, and where nothing works it is silent in real time.
    sink = sink != nullptr ? sink : gst_element_factory_make("autoaudiosink", nullptr);
    return sink != nullptr ? sink : makeSilentSink();
}

} // namespace

GstElement *makeSinkBin(const std::function<GstElement *()> &makeSink, OutputKind kind)
{
    const std::array<GstElement *, 3> chain{
        gst_element_factory_make("audioconvert", nullptr),
        gst_element_factory_make("audioresample", nullptr),
        makeOutput(makeSink, kind),
    };
    GstElement *bin = gst_bin_new("output");
    for (GstElement *element : chain) {
        if (element != nullptr) {
            gst_bin_add(GST_BIN(bin), element);
        }
    }
    const bool complete
        = std::none_of(chain.begin(), chain.end(), [](GstElement *element) { return element == nullptr; });
    if (!complete || gst_element_link_many(chain[0], chain[1], chain[2], nullptr) == FALSE) {
        gst_object_unref(gst_object_ref_sink(bin));
        return nullptr;
    }
    GstPad *pad = gst_element_get_static_pad(chain[0], "sink");
    gst_element_add_pad(bin, gst_ghost_pad_new("sink", pad));
    gst_object_unref(pad);
    return bin;
}

} // namespace media
