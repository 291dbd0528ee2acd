// SPDX-License-Identifier: MIT
#pragma once

#include "host/LyricSearch.h"
#include "media/items/TaggedAudioFile.h"

#include <QtCore/QTimer>
#include <QtWidgets/QMainWindow>

#include <memory>

class PeakProvider;
class QMimeData;
class TQWLRCEditorViewCtl;

namespace media {
class Player;
struct PlayerOutput;
} // namespace media

namespace desk {

class DeskSaving;
class DeskSearch;
class Playback;

/// lyricdesk's window: the editor for one song, with what a program has around it.
///
/// Nothing replaces what is being edited before it is known to be readable and the user has been
/// asked about unsaved changes.
class DeskWindow final : public QMainWindow
{
    Q_OBJECT

public:
    /// \param search  where lyrics are searched for.
    explicit DeskWindow(
        std::shared_ptr<media::Player> player, const LyricSearch::Settings &search = LyricSearch::Settings());
    ~DeskWindow() override;

    /// Opens the song at `path` and begins to play it. False, with nothing changed, when it
    /// cannot be read (the user has been told) or the user keeps what is open.
    bool open(const QString &path);
    /// Opens the demonstration song.
    bool openDemonstration();
    /// Writes the lyric into the file, beside the window. False when there is none.
    bool beginSave();
    /// The same, and waits. False when it could not be written (the user has been told).
    bool save();
    /// Whether the text differs from what was last saved.
    [[nodiscard]] bool hasUnsavedChanges() const;

    [[nodiscard]] std::shared_ptr<TQWLRCEditorViewCtl> component() const { return m_component; }
    [[nodiscard]] std::shared_ptr<media::TaggedAudioFile> song() const { return m_song; }

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildFileMenu();
    void buildEditMenu();
    void buildViewMenu();
    void buildPlaybackMenu();
    void buildHelpMenu();
    [[nodiscard]] std::unique_ptr<DeskSearch> newSearch(const LyricSearch::Settings &settings);
    void wirePlayer();
    void chooseSong();
    void playOrPause();
    void showAbout();
    [[nodiscard]] QString nameOfSong() const;
    void updateTitle();
    void updateModified();
    void showSaved(const QString &name, const media::TaggedAudioFile::SaveResult &result);
    enum class Leave { Stay, WithoutLyric, WithLyric };

    [[nodiscard]] Leave askToLeaveSong();
    [[nodiscard]] Leave askToTakeLyricTo(const media::TaggedAudioFile &next);
    [[nodiscard]] bool mayClose();
    [[nodiscard]] std::shared_ptr<media::TaggedAudioFile> readable(const QString &path);
    [[nodiscard]] bool isSongDrop(QObject *watched, const QMimeData *dragged) const;
    void tell(const QString &what, const QString &message);

    std::shared_ptr<media::Player> m_player;
    /// One for all windows; the last one takes it along.
    std::shared_ptr<PeakProvider> m_peaks;
    std::shared_ptr<Playback> m_playback;
    std::shared_ptr<TQWLRCEditorViewCtl> m_component;
    std::shared_ptr<media::TaggedAudioFile> m_song;
    std::unique_ptr<DeskSearch> m_search;
    std::unique_ptr<DeskSaving> m_saving;
    /// Once per turn of the event loop: comparing texts is not a part of a stamp.
    QTimer m_compareSoon;
};

} // namespace desk
