// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBSongLine.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace lyrics {

/// One line of a preview: a line of the document, at one of its times or at none.
struct PreviewEntry
{
    std::size_t songLine = 0;
    std::optional<std::int64_t> millis;
};

/// Whether the preview counts `line` among the tag lines.
[[nodiscard]] bool isPreviewTag(const RBSongLine &line);

/// The lines of a document in the order of its preview; see RBPreviewSong.
/// Cost: n log n in the number of times.
[[nodiscard]] std::vector<PreviewEntry> previewOrder(std::span<const RBSongLine> lines);

} // namespace lyrics
