// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Outcome.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// One place in a file's tags that holds a lyric.
struct LyricField
{
    std::string tag; ///< which of the file's tags it stands in: "ID3v2", "Vorbis", "MP4", "APEv2", "ASF"
    std::string name; ///< as the format spells it: "USLT", "LYRICS", "©lyr" (UTF-8)
    std::string language; ///< three letters of ISO 639-2, or empty where the format has none
    std::string description; ///< the frame's own, UTF-8; empty where the format has none
    std::string text; ///< UTF-8, the bytes as stored; never a terminating NUL
    /// Whether the field holds times of its own (`SYLT`) and `text` is LRC made of them: such a field can
    /// hold timed lines and nothing else.
    bool synchronised = false;
    /// Whether the field is read alone: its times count frames of the sound, which say few of the times that
    /// a lyric may have.
    bool isFixed = false;

    friend bool operator==(const LyricField &, const LyricField &) = default;
};

/// What all lyric fields of a file may have together: no song comes near it, and a reader can be made to hold
/// a multiple of it.
inline constexpr std::size_t kMaxLyricBytes = 6U << 20;
inline constexpr std::size_t kMaxLyricFields = 1000;

/// Which field an edit is about: one that is there, or a new one.
struct LyricPlace
{
    std::optional<std::size_t> field; ///< index into the fields of the file
    std::string newName; ///< without `field`: the name of the one to add; empty: the format's usual one

    friend bool operator==(const LyricPlace &, const LyricPlace &) = default;
};

/// Whether some line of `lyric` begins with a time tag, `[mm:ss` or one of its longer forms.
/// Cost: linear, and it stops at the first one.
[[nodiscard]] bool holdsTimeTags(std::string_view lyric);

/// Whether a new field of this name holds times of its own, see LyricField::synchronised.
[[nodiscard]] bool isSynchronisedName(std::string_view name);

/// The refusal of a new synchronised field for a lyric without times.
[[nodiscard]] Failure nothingTimed();

/// Why a file cannot have these fields: they are more than `kMaxLyricFields`, or longer than
/// `kMaxLyricBytes`. Null when it can.
[[nodiscard]] std::optional<Failure> tooMuchLyric(const std::vector<LyricField> &fields);

/// The field that is *the* lyric of a file: the first one that holds time tags, if any does;
/// otherwise the first one that holds text. Null when there is none.
///
/// `fields` are in the order in which the format prefers them. This is the only place that
/// decides it, for reading and for writing.
[[nodiscard]] std::optional<std::size_t> lyricFieldIndex(const std::vector<LyricField> &fields);

} // namespace tags
