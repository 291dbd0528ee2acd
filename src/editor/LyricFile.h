// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace editor {

/// The bytes of the lyric file at `path`, if they are valid UTF-8; empty for an empty or
/// unreadable file, for any other encoding, for what is not a regular file (a device or a pipe
/// would be read without end) and for a file no lyric is as large as.
[[nodiscard]] QByteArray readUtf8File(const QString &path);

/// Whether a file of this name is taken for a lyric where it would replace one.
[[nodiscard]] bool isLyricFileName(const QString &name);

} // namespace editor
