// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/AudioTags.h"
#include "media/tags/Outcome.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tags {

class ByteSource;
class Container;
class WorkProgress;

/// An edit of a lyric, as it was meant.
struct IntendedEdit
{
    LyricPlace place; ///< in the old file
    std::string_view text; ///< empty: the field goes
};

/// Compares `edited` with `old`: the lyric reads back as meant, every other lyric field and
/// every other field is the same, and so is the audio, both as the containers read it and as
/// TagLib does. Null when all of that holds.
[[nodiscard]] std::optional<Failure> differsFrom(const ByteSource &old, const Container &oldContainer,
    const ByteSource &edited, Format format, const IntendedEdit &edit, const std::string &name,
    WorkProgress &progress);

} // namespace tags
