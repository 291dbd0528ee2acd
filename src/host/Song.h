// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

class QMimeData;

/// Song files as lyricdesk meets them: dropped, chosen in a dialog, or its own.
namespace desk {

/// True for a name that ends like an audio file. Only a hint: what a file is, its content says.
[[nodiscard]] bool looksLikeSong(const QString &path);
/// The first local file of a drag; null when there is none.
[[nodiscard]] QString firstLocalFile(const QMimeData *data);
/// For a file dialog: what can be saved into.
[[nodiscard]] QString songFileFilter();

[[nodiscard]] bool isDemonstrationSong(const QString &path);
/// The path of the demonstration song, which is put into the user's own data folder the first
/// time, so that it can be stamped and saved like any other. Null, with a reason in `message`,
/// when it cannot be written there.
[[nodiscard]] QString demonstrationSong(QString *message);

} // namespace desk
