// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

class RBEditSong;

namespace editor {

/// How long nothing comes after `time` of the line at `row`, in milliseconds, where that is longer
/// than a listener expects; nothing where it is not, see problemsOf.
///
/// Cost: the rows that `rowsNear` names.
[[nodiscard]] std::optional<std::int64_t> gapAfter(
    const RBEditSong &song, std::size_t row, std::int64_t time);

} // namespace editor
