// SPDX-License-Identifier: MIT
#pragma once

#include "editor/SourceText.h"

#include <QtCore/QString>

#include <optional>

namespace editor {

/// An edit of a shown text: `removed` UTF-16 units from `position` on gave way to `added`.
struct SourceEdit
{
    qsizetype position = 0;
    qsizetype removed = 0;
    QString added;
};

/// The bytes `now` with an edit in them that was made in `base`; nothing when they differ from it where the
/// edit was made. An edit of an empty line is known by the line before it too: an empty line is in every
/// text.
///
/// Cost: linear in the bytes.
[[nodiscard]] std::optional<QByteArray> withEdit(
    const SourceText &base, const QByteArray &now, const SourceEdit &edit);

} // namespace editor
