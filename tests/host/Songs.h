// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// Real songs for tests: copies of the demonstration song, coded anew where another format is
/// asked for.
namespace songs {

/// A copy of the demonstration song at `path`, in the format that its suffix names. The lyric of
/// the copy is `lyric`; an empty one leaves none. False, with a warning, when the coder fails.
bool make(const QString &path, const QByteArray &lyric);

/// The lyric that ffprobe, which is not ours, reads in the file; line ends as they are.
[[nodiscard]] QByteArray lyricReadByAnother(const QString &path);

} // namespace songs
