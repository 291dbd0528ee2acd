// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FileState.h"
#include "media/tags/Outcome.h"
#include "shell/contracts/WXEAudioFile.h"

#include <QtCore/QString>

#include <functional>
#include <memory>
#include <optional>

namespace tags {
struct AudioTags;
struct Saved;
} // namespace tags

namespace media {

class SaveTask;

/// An audio file on disk, as the component and the host see it: its tags, its lyric, and
/// whether the lyric is saved.
///
/// Used on the GUI thread. An empty lyric and none are the same: both mean "no lyric", and
/// `lyric()` answers null for either.
class TaggedAudioFile final : public WXEAudioFile
{
public:
    /// What `open()` answers: an item, or a sentence that says why there is none.
    struct OpenResult
    {
        std::shared_ptr<TaggedAudioFile> item; ///< null when it could not be opened
        QString message; ///< in the user's language, ready to be shown; empty when it could
    };
    /// What `save()` answers.
    struct SaveResult
    {
        bool ok = false;
        /// In the user's language, ready to be shown: why it failed, or a remark on a save that succeeded
        /// (most have none).
        QString message;
        bool cancelled = false; ///< it failed because of cancelSave()
    };

    /// Reads the file at `path`. Nothing stays open: a file may be renamed, removed or changed
    /// while its item lives, and `save()` notices.
    [[nodiscard]] static OpenResult open(const QString &path);
    /// Makes `open()` the way in which WXEAudioFileMgr makes items.
    static void registerAsFactory();

    ~TaggedAudioFile() override;

    [[nodiscard]] QString path() const { return m_path; }
    [[nodiscard]] QString title() const override { return m_title; }
    [[nodiscard]] QString artist() const override { return m_artist; }
    [[nodiscard]] QString album() const override { return m_album; }
    /// Decoded on first use, and no larger than 1024 pixels a side; null when there is none or
    /// its data are unusable.
    [[nodiscard]] QImage frontCoverImg() const override;
    /// Seconds; the headers' word until `setKnownDuration()`.
    [[nodiscard]] double duration() const override { return m_duration; }
    [[nodiscard]] QByteArray lyric() const override { return m_lyric; }

    void setLyric(const QByteArray &lyric) override;
    void refreshIsDirty() override;
    /// Whether the lyric differs from the one that was last read or saved. Constant cost: it is
    /// worked out by `setLyric()`, `refreshIsDirty()` and `save()`.
    [[nodiscard]] bool isDirty() const { return m_dirty; }

    /// The length that a player found, in seconds. From then on it is `duration()`. Ignored
    /// unless it is finite and above 0.
    void setKnownDuration(double seconds);

    /// Writes the lyric into the file's tags; nothing else in the file changes.
    ///
    /// When it fails, the file is as it was, and the item keeps the lyric and stays dirty. When
    /// there is nothing to save it succeeds without touching the file. Blocks while it writes, and while a
    /// save that was begun is at work.
    [[nodiscard]] SaveResult save();

    /// Called on the GUI thread, from its event loop, while the item lives.
    struct SaveObserver
    {
        std::function<void(double done)> progressed; ///< `done` rises from 0 to 1
        std::function<void(const SaveResult &result)> finished; ///< once
    };
    /// The same on a thread of its own: it saves the lyric of this moment, and what is set meanwhile stays to
    /// be saved. False, and nobody is called, when one is at work already. A save goes on to its end when
    /// the item goes.
    bool beginSave(SaveObserver observer);
    [[nodiscard]] bool isSaving() const { return m_saving != nullptr; }
    /// Asks a save at work to give up: it fails, with the file as it was, unless it is too late for that.
    void cancelSave();

private:
    TaggedAudioFile(const QString &path, const tags::AudioTags &tags);

    SaveResult take(const tags::Outcome<tags::Saved> &outcome, const QByteArray &lyric);
    SaveResult endSave(const SaveTask *task, const tags::Outcome<tags::Saved> &outcome);

    QString m_path;
    QString m_title;
    QString m_artist;
    QString m_album;
    QByteArray m_coverData;
    mutable std::optional<QImage> m_cover; ///< absent until it was asked for
    double m_duration = 0;
    QByteArray m_lyric;
    QByteArray m_savedLyric;
    bool m_dirty = false;
    tags::FileState m_state;
    std::shared_ptr<SaveTask> m_saving; ///< null when none is at work
    /// What comes from a thread finds by it whether the item still lives.
    std::shared_ptr<TaggedAudioFile *> m_self = std::make_shared<TaggedAudioFile *>(this);
};

} // namespace media
