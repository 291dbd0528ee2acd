// SPDX-License-Identifier: MIT
#pragma once

#include "editor/TQLRCEditorViewCtl.h"
#include "player/TQLRCEditorMiniPlayerViewCtl.h"
#include "preview/RBPreviewViewController.h"
#include "support/StandIns.h"

/// Children of the container that write down what it asks of them, in one log with the player
/// and the host, and then do what they always do.
namespace recording {

class Editor : public TQLRCEditorViewCtl
{
public:
    explicit Editor(standin::CallLog log) : m_log(std::move(log)) { }

    void flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item) override
    {
        m_log->append(QStringLiteral("editor.item"));
        TQLRCEditorViewCtl::flushWithAudioItem(item);
    }
    void flushWithOriginalSongText(const QByteArray &text) override
    {
        m_log->append(QStringLiteral("editor.original ") + QString::fromUtf8(text).simplified());
        TQLRCEditorViewCtl::flushWithOriginalSongText(text);
    }
    void flushWithSongText(const QByteArray &text) override
    {
        m_log->append(QStringLiteral("editor.text ") + QString::fromUtf8(text).simplified());
        TQLRCEditorViewCtl::flushWithSongText(text);
    }
    void updatePlayerProgress(double seconds) override
    {
        m_log->append(QStringLiteral("editor.progress %1").arg(seconds));
        TQLRCEditorViewCtl::updatePlayerProgress(seconds);
    }
    void resetFristResponderForTextView(QObject *sender) override
    {
        m_log->append(sender ? QStringLiteral("editor.reset by somebody") : QStringLiteral("editor.reset"));
        TQLRCEditorViewCtl::resetFristResponderForTextView(sender);
    }
    void moveForward(QObject *sender) override
    {
        Q_UNUSED(sender)
        m_log->append(QStringLiteral("editor.moveForward"));
    }

private:
    standin::CallLog m_log;
};

class Strip : public TQLRCEditorMiniPlayerViewCtl
{
public:
    Strip(standin::CallLog log, std::shared_ptr<TQAudioPlayerProtocol> player)
        : TQLRCEditorMiniPlayerViewCtl(std::move(player)), m_log(std::move(log))
    { }

    void flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item) override
    {
        m_log->append(QStringLiteral("strip.item"));
        TQLRCEditorMiniPlayerViewCtl::flushWithAudioItem(item);
    }
    void updatePlayerProgress(double seconds) override
    {
        m_log->append(QStringLiteral("strip.progress %1").arg(seconds));
        TQLRCEditorMiniPlayerViewCtl::updatePlayerProgress(seconds);
    }

private:
    standin::CallLog m_log;
};

class Preview : public RBPreviewViewController
{
public:
    explicit Preview(standin::CallLog log) : m_log(std::move(log)) { }

    void flushWithAudio_lrcText(const std::shared_ptr<WXEAudioFile> &item, const QByteArray &text) override
    {
        m_log->append(QStringLiteral("preview.item ") + QString::fromUtf8(text).simplified());
        RBPreviewViewController::flushWithAudio_lrcText(item, text);
    }
    void notifyPlayProgress(double seconds) override
    {
        m_log->append(QStringLiteral("preview.progress %1").arg(seconds));
        RBPreviewViewController::notifyPlayProgress(seconds);
    }

private:
    standin::CallLog m_log;
};

} // namespace recording
