// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/AudioTags.h"
#include "media/tags/FieldEdits.h"
#include "media/tags/Outcome.h"

#include <optional>
#include <string>
#include <vector>

namespace tags {

class ByteSource;
class Container;
class WorkProgress;

/// Compares `edited` with `old`, whose edits have texts that their fields can hold: the lyrics of `edits`
/// read back as meant, every other lyric field and every other field is the same, and so is the audio, both
/// as the containers read it and as TagLib does. Null when all of that holds.
[[nodiscard]] std::optional<Failure> differsFrom(const ByteSource &old, const Container &oldContainer,
    const ByteSource &edited, Format format, const std::vector<FieldEdit> &edits, const std::string &name,
    WorkProgress &progress);

} // namespace tags
