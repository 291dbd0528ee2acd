// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBSongLine.h"

#include <cstdint>
#include <span>
#include <vector>

namespace lyrics {

/// One line of a preview: a line of the document, at one of its times or at none.
struct PreviewEntry
{
    std::uint32_t songLine = 0;
    bool isTimed = false;
    /// Milliseconds; 0 without a time.
    std::int64_t millis = 0;
};

/// What an order of lines is made of.
enum class PreviewPart {
    Whole,
    /// The beginning of more lines: without what may stand behind them.
    Beginning
};

/// Whether the preview counts `line` among the tag lines.
[[nodiscard]] bool isPreviewTag(const RBSongLine &line);

/// The lines of a document in the order of its preview; see RBPreviewSong. The order of a beginning is a
/// beginning of the order.
/// Cost: one pass, and log n for each further time of a line, with n such times that are still to come.
[[nodiscard]] std::vector<PreviewEntry> previewOrder(
    std::span<const RBSongLine> lines, PreviewPart part = PreviewPart::Whole);

} // namespace lyrics
