// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/AudioTags.h"
#include "media/tags/MpegFrame.h"

#include <optional>

namespace tags {

class ByteSource;

/// How long each frame of the sound of a file of `format` lasts, told by its first one; null where the sound
/// does not come in frames that a tag could count.
[[nodiscard]] std::optional<FrameLength> soundFrameLength(const ByteSource &source, Format format);

/// Seconds that a file of bare AAC lasts, told from its first frames; 0 when there is none.
[[nodiscard]] double aacDuration(const ByteSource &source);

} // namespace tags
