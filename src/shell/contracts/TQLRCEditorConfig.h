// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QUrl>

#include <memory>

/// The settings through which a host tunes the component. Not kept between runs.
class TQLRCEditorConfig
{
public:
    /// When an item already carries a lyric: true asks the user before editing it, false loads
    /// it silently. Read at each `flushWithAudioItem`.
    [[nodiscard]] bool promptForMetaLrc() const { return m_promptForMetaLrc; }
    void setPromptForMetaLrc(bool prompt) { m_promptForMetaLrc = prompt; }

    /// Whether audio files may be dropped onto the player strip. Read when the strip's view loads.
    [[nodiscard]] bool supportDragAudioInto() const { return m_supportDragAudioInto; }
    void setSupportDragAudioInto(bool support) { m_supportDragAudioInto = support; }

    /// The page that the help command and the help button open; an empty address for none, and then neither
    /// can be used. Read when the line editor's view loads, for its button, and at each use.
    [[nodiscard]] QUrl helpUrl() const { return m_helpUrl; }
    void setHelpUrl(const QUrl &url) { m_helpUrl = url; }

private:
    QUrl m_helpUrl;
    bool m_promptForMetaLrc = false;
    bool m_supportDragAudioInto = false;
};

/// The one instance that all containers and player strips of the process share; null until
/// `TQWLRCEditorViewCtl::initialize()` has run.
extern std::shared_ptr<TQLRCEditorConfig> gEditorConfig;
