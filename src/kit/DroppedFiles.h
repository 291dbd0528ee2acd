// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QStringList>

class QMimeData;

namespace kit {

/// Paths of the local files in a `text/uri-list`, in its order; empty for anything else.
/// Nothing is asked of the disk.
[[nodiscard]] QStringList droppedFiles(const QMimeData *data);

} // namespace kit
