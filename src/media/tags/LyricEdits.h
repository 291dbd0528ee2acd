// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FieldEdits.h"
#include "media/tags/LyricFields.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// The text that the field at `place` has once `text` was written to it: of a synchronised one, what it can
/// hold of it.
[[nodiscard]] std::string heldText(
    const std::vector<LyricField> &fields, const LyricPlace &place, std::string_view text);

/// The field that would be read as the lyric once `edits` made `lyric` it, although it is another: an untimed
/// lyric does not count where some field holds times. Null when there is none.
[[nodiscard]] std::optional<LyricField> rivalOf(
    std::string_view lyric, const std::vector<LyricField> &fields, const std::vector<FieldEdit> &edits);

/// What has to become of the `fields` of a file when its lyric becomes `lyric`:
///
/// - The field that is the lyric, see lyricFieldIndex(), and every copy of it get the new text, or go when it
///   is empty. A copy has the same text, byte for byte; a synchronised one, what it can hold of it, see
///   holdableText(). Where there is no lyric, the format's usual field is added.
/// - A synchronised field gets what it can hold of the text. When the lyric's field is one and that is not
///   all, the whole text goes into a new field of the usual kind too, so that nothing is lost.
///
/// Only edits that change something, those of fields that are there from the last to the first, then the new
/// one: made one after the other, none moves the place of another.
[[nodiscard]] std::vector<FieldEdit> lyricEdits(
    const std::vector<LyricField> &fields, std::string_view lyric);

} // namespace tags
