// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace media {

struct PipelineFailure;

/// Why the file at `path` is not even worth opening, for the user; empty when nothing speaks
/// against it. Only a regular file is opened: a pipe or a device could keep its reader for ever.
[[nodiscard]] QString obstacleTo(const QString &path);

/// What went wrong with the file at `path`, for the user.
[[nodiscard]] QString failureText(const PipelineFailure &failure, const QString &path);

/// That this installation cannot play anything.
[[nodiscard]] QString libraryMissingText();

} // namespace media
