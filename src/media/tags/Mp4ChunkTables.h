// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Outcome.h"
#include "media/tags/Patch.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tags {

class ByteSource;
struct Mp4Atom;

/// Why the chunk tables of `file` are not to be looked at: room for more than two million offsets, which no
/// recording has. Null when they are harmless.
[[nodiscard]] std::optional<Failure> hostileTables(const Mp4Atom &file);

/// The patches that keep the chunk tables (`stco`, `co64`, `tfhd`) of `file` right when
/// everything from `from` on moves by `delta` bytes (modulo 2^64).
[[nodiscard]] Outcome<Edit> movedChunks(
    const ByteSource &source, const Mp4Atom &file, std::uint64_t from, std::uint64_t delta);

/// What a chunk table of `file` points at, independent of where that stands: a digest of the first bytes at
/// each of its offsets. Null when `atom` is no chunk table.
[[nodiscard]] std::optional<std::string> chunkTarget(
    const ByteSource &source, const Mp4Atom &file, const Mp4Atom &atom);

} // namespace tags
