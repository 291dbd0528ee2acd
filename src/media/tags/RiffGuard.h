// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Outcome.h"
#include "media/tags/RiffChunks.h"

#include <optional>

namespace tags {

/// The reason not to give a WAV or AIFF file to a library that reads what chunks hold at once: too many of
/// them, one with a few words that takes megabytes, a tag that hostileTag() refuses. Null when it is
/// harmless.
[[nodiscard]] std::optional<Failure> hostileRiff(const ByteSource &source, RiffOrder order);

} // namespace tags
