// SPDX-License-Identifier: MIT
#include "media/player/BusRelay.h"

#include "media/player/GstPointers.h"
#include "media/player/Pipeline.h"

#include <QtCore/QFile>
#include <QtCore/QMetaObject>

#include <gst/pbutils/pbutils.h>

#include <filesystem>
#include <string_view>
#include <utility>

namespace media {

namespace {

using Cause = PipelineFailure::Cause;

/// Whether `source` decides what kind of file it is, and does not yet read what is in it.
bool isJudgeOfKind(GstObject *source)
{
    if (source == nullptr || GST_IS_ELEMENT(source) == FALSE) {
        return false;
    }
    GstElementFactory *factory = gst_element_get_factory(GST_ELEMENT_CAST(source));
    const std::string_view name = factory != nullptr ? GST_OBJECT_NAME(factory) : "";
    return name == "decodebin" || name == "typefind";
}

Cause causeOf(const GError &error, GstObject *source)
{
    const auto is = [&](GQuark domain, int code) { return g_error_matches(&error, domain, code) != FALSE; };
    if (is(GST_STREAM_ERROR, GST_STREAM_ERROR_CODEC_NOT_FOUND)
        || is(GST_CORE_ERROR, GST_CORE_ERROR_MISSING_PLUGIN)) {
        return Cause::DecoderMissing;
    }
    if (is(GST_STREAM_ERROR, GST_STREAM_ERROR_TYPE_NOT_FOUND)
        || (is(GST_STREAM_ERROR, GST_STREAM_ERROR_WRONG_TYPE) && isJudgeOfKind(source))) {
        return Cause::NotAudio;
    }
    return error.domain == GST_RESOURCE_ERROR ? Cause::Unreadable : Cause::Damaged;
}

} // namespace

BusRelay::BusRelay(Pipeline *target, QString path) : m_target(target), m_path(std::move(path))
{ }

void BusRelay::attach(GstElement *pipeline, GstElement *sink)
{
    m_pipeline = pipeline;
    m_sink = sink;
    const GstPointer<GstBus> bus(gst_element_get_bus(pipeline));
    auto *reference = new std::shared_ptr<BusRelay>(shared_from_this());
    gst_bus_set_sync_handler(bus.get(), &BusRelay::onMessage, reference,
        [](gpointer data) { delete static_cast<std::shared_ptr<BusRelay> *>(data); });
}

void BusRelay::detach()
{
    const std::lock_guard lock(m_mutex);
    m_target = nullptr;
}

template <typename Function>
void BusRelay::post(Function function)
{
    const std::lock_guard lock(m_mutex);
    if (m_target != nullptr) {
        QMetaObject::invokeMethod(
            m_target, [target = m_target, function] { function(*target); }, Qt::QueuedConnection);
    }
}

GstBusSyncReply BusRelay::onMessage(GstBus * /*bus*/, GstMessage *message, gpointer relay)
{
    (*static_cast<std::shared_ptr<BusRelay> *>(relay))->handle(message);
    gst_message_unref(message);
    return GST_BUS_DROP;
}

void BusRelay::handle(GstMessage *message)
{
    const bool fromPipeline = GST_MESSAGE_SRC(message) == GST_OBJECT_CAST(m_pipeline);
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_ASYNC_DONE:
        if (fromPipeline) {
            handleArrival();
        }
        break;
    case GST_MESSAGE_EOS:
        if (fromPipeline) {
            post([](Pipeline &pipeline) { pipeline.onEnded(); });
        }
        break;
    case GST_MESSAGE_ERROR:
        handleError(message);
        break;
    case GST_MESSAGE_ELEMENT:
        if (gst_is_missing_plugin_message(message) != FALSE) {
            const GString8 what(gst_missing_plugin_message_get_description(message));
            const std::lock_guard lock(m_mutex);
            m_missingDecoder = QString::fromUtf8(what.get());
        }
        break;
    case GST_MESSAGE_DURATION_CHANGED:
        post([](Pipeline &pipeline) { Q_EMIT pipeline.durationChanged(); });
        break;
    case GST_MESSAGE_CLOCK_LOST:
        post([](Pipeline &pipeline) { pipeline.onClockLost(); });
        break;
    default:
        break;
    }
}

void BusRelay::handleArrival()
{
    // Here, because this thread may wait for a disk and the GUI thread may not.
    std::call_once(m_delayOnce,
        [this] { m_delay = encoderDelayOf(std::filesystem::path(QFile::encodeName(m_path).toStdString())); });
    const unsigned seeks = m_seeks;
    post([seeks, delay = m_delay](Pipeline &pipeline) { pipeline.onSettled(seeks, delay); });
}

void BusRelay::handleError(GstMessage *message)
{
    GError *raw = nullptr;
    gst_message_parse_error(message, &raw, nullptr);
    const GErrorPointer error(raw);
    GstObject *source = GST_MESSAGE_SRC(message);
    PipelineFailure failure{causeOf(*error, source), QString::fromUtf8(error->message)};
    if (source != nullptr && gst_object_has_as_ancestor(source, GST_OBJECT_CAST(m_sink)) != FALSE) {
        failure.cause = Cause::Output;
    } else if (const std::lock_guard lock(m_mutex); !m_missingDecoder.isEmpty()) {
        failure = {Cause::DecoderMissing, m_missingDecoder};
    }
    report(failure);
}

void BusRelay::report(const PipelineFailure &failure)
{
    post([failure](Pipeline &pipeline) { pipeline.onFailed(failure); });
}

} // namespace media
