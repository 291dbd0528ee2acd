// SPDX-License-Identifier: MIT
#pragma once

#include "host/StatusWork.h"
#include "media/items/TaggedAudioFile.h"

#include <QtCore/QTimer>

#include <memory>

namespace desk {

/// The saving of lyrics in lyricdesk's window. It goes on beside the window, which can be worked in; a save
/// that takes its time is shown in the status bar, where it can be cancelled.
class DeskSaving final : public QObject
{
    Q_OBJECT

public:
    /// \param window  outlives this.
    explicit DeskSaving(QMainWindow &window);

    /// Saves the lyric that `song` has now. When its last save is still at work, once more after that. The
    /// song is kept until it is done.
    void begin(const std::shared_ptr<media::TaggedAudioFile> &song);
    /// Waits for what is at work; the window takes no input meanwhile. Whether the last save succeeded.
    bool wait();
    [[nodiscard]] bool isAtWork() const { return m_song != nullptr; }

Q_SIGNALS:
    void progressed(double done);
    /// \param name  the file's.
    void ended(const QString &name, const media::TaggedAudioFile::SaveResult &result);

private:
    void showSaving();
    void end(const media::TaggedAudioFile::SaveResult &result);

    QMainWindow &m_window;
    StatusWork m_status;
    QTimer m_showSoon;
    std::shared_ptr<media::TaggedAudioFile> m_song; ///< null when nothing is at work
    bool m_onceMore = false;
    bool m_lastSucceeded = true;
};

} // namespace desk
