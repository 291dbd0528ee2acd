// SPDX-License-Identifier: MIT
#pragma once

#include "media/player/EncoderDelay.h"

#include <QtCore/QString>

#include <gst/gst.h>

#include <atomic>
#include <memory>
#include <mutex>

namespace media {

class Pipeline;
struct PipelineFailure;

/// Carries what a pipeline says from the library's threads to the GUI thread.
///
/// It outlives the `Pipeline` for as long as the library may still call, and is then deaf.
/// Queued calls, and not the library's own watch: that one is only delivered where Qt runs on
/// GLib's main loop.
class BusRelay : public std::enable_shared_from_this<BusRelay>
{
public:
    BusRelay(Pipeline *target, QString path);

    /// Takes over the bus of `pipeline`, whose output is `sink`.
    void attach(GstElement *pipeline, GstElement *sink);
    /// From the return of this call on nothing reaches the pipeline.
    void detach();

    /// From any thread: that it is over.
    void report(const PipelineFailure &failure);

    /// Each arrival that was under way before the call is late from now on.
    void countSeek() { ++m_seeks; }
    [[nodiscard]] unsigned seeks() const { return m_seeks; }

private:
    static GstBusSyncReply onMessage(GstBus *bus, GstMessage *message, gpointer relay);
    void handle(GstMessage *message);
    void handleError(GstMessage *message);
    void handleArrival();

    template <typename Function>
    void post(Function function);

    std::mutex m_mutex;
    Pipeline *m_target;
    QString m_missingDecoder;
    std::once_flag m_delayOnce;
    EncoderDelay m_delay;

    const QString m_path;
    GstElement *m_pipeline = nullptr;
    GstElement *m_sink = nullptr;
    std::atomic<unsigned> m_seeks = 0;
};

} // namespace media
