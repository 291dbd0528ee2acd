// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QImage>

/// One audio file of the host: its tags, and the lyric that they carry.
///
/// Shared between host and component, and told apart by identity: two items made for one path
/// are two items. Used on the GUI thread only.
class WXEAudioFile
{
public:
    virtual ~WXEAudioFile() = default;

    /// Null or empty when the file does not name one.
    [[nodiscard]] virtual QString title() const = 0;
    [[nodiscard]] virtual QString artist() const = 0;
    [[nodiscard]] virtual QString album() const = 0;
    /// The front cover; a null image when there is none.
    [[nodiscard]] virtual QImage frontCoverImg() const = 0;
    /// Length in seconds.
    [[nodiscard]] virtual double duration() const = 0;
    /// The lyric as it is stored, UTF-8; null when the file has none.
    [[nodiscard]] virtual QByteArray lyric() const = 0;

    /// Stores a lyric (UTF-8) in the item. Writes nothing to disk: saving is the host's business.
    virtual void setLyric(const QByteArray &lyric) = 0;
    /// Sent right after `setLyric`: the host looks again whether the item has unsaved changes.
    virtual void refreshIsDirty() = 0;

protected:
    WXEAudioFile() = default;
    WXEAudioFile(const WXEAudioFile &) = default;
    WXEAudioFile &operator=(const WXEAudioFile &) = default;
};
