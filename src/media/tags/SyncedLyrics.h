// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// A piece of a lyric, and when it is sung: a line, a word, a syllable.
struct SyncedEntry
{
    std::uint64_t time = 0; ///< milliseconds, at most kMaxLrcTime
    std::string text; ///< UTF-8; a line break in it ends a line

    friend bool operator==(const SyncedEntry &, const SyncedEntry &) = default;
};

/// The most entries, and bytes of their texts, that a lyric has here: what lies beyond is not held. Many
/// times the longest song, and what a hostile one costs is bounded.
inline constexpr std::size_t kMaxSyncedEntries = 200000;
inline constexpr std::size_t kMaxSyncedBytes = 4U << 20;

/// How the entries of a lyric tell its lines apart.
enum class LineBreaks {
    None, ///< each entry is a line
    Leading, ///< an entry that begins a line begins with a line break: what the standard asks for
    Trailing, ///< an entry that ends a line ends with one
};

/// The way in which `entries` do.
[[nodiscard]] LineBreaks lineBreaksOf(const std::vector<SyncedEntry> &entries);

/// LRC text that says what `entries` say, a line for each of theirs in the order of their times, each ended
/// by LF: `[00:11.22]line`. A line of several entries is in the enhanced form,
/// `[00:11.22]<00:11.22>hel<00:11.60>lo`; so is one whose text would be read as a time tag. Lines between two
/// timed ones that are blank stay blank.
///
/// Always text that holdableText() leaves as it is.
[[nodiscard]] std::string lrcFromEntries(const std::vector<SyncedEntry> &entries);

/// The entries that say what the timed lines of `lrc` say, in the order of the times of their lines. A line
/// with several time tags comes once for each, its words as far from the others as from the first. Untimed
/// text, ID tags, and lines with a time tag in another shape than lrcTimeAt() knows have no place in them.
///
/// `breaks`: None where the lines allow it, otherwise Leading.
[[nodiscard]] std::vector<SyncedEntry> entriesFromLrc(
    std::string_view lrc, LineBreaks breaks = LineBreaks::Leading);

/// What reads back when `lrc` was written as entries: its timed lines in their plainest spelling. Applied
/// twice it changes nothing more. Cost: linear.
[[nodiscard]] std::string holdableText(std::string_view lrc);

} // namespace tags
