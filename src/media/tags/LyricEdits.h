// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FieldEdits.h"
#include "media/tags/LyricFields.h"
#include "media/tags/Outcome.h"

#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// The fields after `edits`, a new one first: where it stands in the file, the format decides.
[[nodiscard]] std::vector<LyricField> fieldsAfter(
    std::vector<LyricField> fields, const std::vector<FieldEdit> &edits);

/// The text that the field at `place` has once `text` was written to it: of a synchronised one, what it can
/// hold of it.
[[nodiscard]] std::string heldText(
    const std::vector<LyricField> &fields, const LyricPlace &place, std::string_view text);

/// What has to become of the `fields` of a file when its lyric becomes `lyric`:
///
/// - The field that is the lyric, see lyricFieldIndex(), and every copy of it get the new text, or go when it
///   is empty. A copy has the same text, byte for byte; a synchronised one, what it can hold of it, see
///   holdableText(). Where there is no lyric, the format's usual field is added.
/// - A synchronised field gets what it can hold of the text. When the lyric's field is one and that is not
///   all, the whole text goes into a new field of the usual kind too, so that nothing is lost.
/// - A fixed field stays as it is; when it is the lyric, the text goes into a new field of the usual kind.
///
/// Refused when another field would be read as the lyric then: an untimed lyric does not count where some
/// field holds times, nor behind another that holds words. An empty one leaves the others to be read.
///
/// Only edits that change something.
[[nodiscard]] Outcome<std::vector<FieldEdit>> lyricEdits(
    const std::vector<LyricField> &fields, std::string_view lyric);

} // namespace tags
