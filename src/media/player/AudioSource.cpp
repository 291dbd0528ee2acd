// SPDX-License-Identifier: MIT
#include "media/player/AudioSource.h"

#include "media/player/GstPointers.h"

#include <QtCore/QFile>

#include <atomic>
#include <utility>

namespace media {

namespace {

/// What the decoder's signals need; lives as long as the decoder does.
struct Branch
{
    /// Not owned: the pipeline holds both ends, and the sink outlives the decoder's last signal.
    GstElement *sink;
    std::function<void()> noSound;
    /// Something came that is no sound.
    std::atomic<bool> somethingElse = false;
};

bool isSound(const GstCaps *caps)
{
    const GstStructure *structure
        = caps != nullptr && gst_caps_get_size(caps) > 0 ? gst_caps_get_structure(caps, 0) : nullptr;
    return structure != nullptr
        && g_str_has_prefix(gst_structure_get_name(structure), "audio/x-raw") != FALSE;
}

bool isPictureOrText(const GstCaps *caps)
{
    if (caps == nullptr || gst_caps_get_size(caps) == 0) {
        return false;
    }
    const gchar *name = gst_structure_get_name(gst_caps_get_structure(caps, 0));
    // Containers, too, are called video: those are opened.
    static constexpr const char *kUnwanted[]{"image/", "text/", "subpicture/", "video/x-raw", "video/x-h26",
        "video/x-vp", "video/x-av1", "video/x-theora", "video/x-wmv", "video/x-divx"};
    for (const char *prefix : kUnwanted) {
        if (g_str_has_prefix(name, prefix) != FALSE) {
            return true;
        }
    }
    return false;
}

gboolean goOnDecoding(GstElement * /*decoder*/, GstPad * /*pad*/, GstCaps *caps, gpointer /*branch*/)
{
    return isPictureOrText(caps) ? FALSE : TRUE;
}

void linkFirstSound(GstElement * /*decoder*/, GstPad *pad, gpointer data)
{
    auto *branch = static_cast<Branch *>(data);
    GstCaps *caps = gst_pad_get_current_caps(pad);
    caps = caps != nullptr ? caps : gst_pad_query_caps(pad, nullptr);
    const GstPointer<GstPad> input(gst_element_get_static_pad(branch->sink, "sink"));
    if (!isSound(caps)) {
        branch->somethingElse = true;
    } else if (gst_pad_is_linked(input.get()) == FALSE) {
        gst_pad_link(pad, input.get());
    }
    gst_caps_unref(caps);
}

void checkForSound(GstElement * /*decoder*/, gpointer data)
{
    const auto *branch = static_cast<const Branch *>(data);
    const GstPointer<GstPad> input(gst_element_get_static_pad(branch->sink, "sink"));
    // Where nothing came at all the library has an error to tell, and that says more.
    if (branch->somethingElse && gst_pad_is_linked(input.get()) == FALSE) {
        branch->noSound();
    }
}

} // namespace

bool addAudioSource(
    GstElement *pipeline, const QString &path, GstElement *sink, std::function<void()> noSound)
{
    GstElement *file = gst_element_factory_make("filesrc", nullptr);
    GstElement *decoder = gst_element_factory_make("decodebin", nullptr);
    for (GstElement *element : {file, decoder}) {
        if (element != nullptr) {
            gst_bin_add(GST_BIN(pipeline), element);
        }
    }
    if (file == nullptr || decoder == nullptr) {
        return false;
    }
    g_object_set(file, "location", QFile::encodeName(path).constData(), nullptr);
    auto *branch = new Branch{sink, std::move(noSound)};
    g_object_set_data_full(
        G_OBJECT(decoder), "branch", branch, [](gpointer data) { delete static_cast<Branch *>(data); });
    g_signal_connect(decoder, "autoplug-continue", G_CALLBACK(goOnDecoding), branch);
    g_signal_connect(decoder, "pad-added", G_CALLBACK(linkFirstSound), branch);
    g_signal_connect(decoder, "no-more-pads", G_CALLBACK(checkForSound), branch);
    return gst_element_link(file, decoder) != FALSE;
}

} // namespace media
