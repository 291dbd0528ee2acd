// SPDX-License-Identifier: MIT
#pragma once

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

private:
    bool m_promptForMetaLrc = false;
    bool m_supportDragAudioInto = false;
};

/// The one instance that all containers and player strips of the process share; null until
/// `TQWLRCEditorViewCtl::initialize()` has run.
extern std::shared_ptr<TQLRCEditorConfig> gEditorConfig;
