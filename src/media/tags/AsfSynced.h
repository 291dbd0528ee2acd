// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/SyncedLyrics.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// What the value of a binary `WM/Lyrics_Synchronised` attribute says: a byte for the unit, one for the kind,
/// four for the length of the pieces, a description, then each piece with its time behind it. Numbers have
/// their least significant byte first, texts are UTF-16 and terminated.
///
/// Source: "ASF_FLAT_SYNCHRONISED_LYRICS structure" and "WM_SYNCHRONISED_LYRICS structure", documentation of
/// Windows Media.
struct AsfSynced
{
    char contentType = 1; ///< 1: lyrics, 2: a transcription; others are no lyric
    std::string description; ///< as it stands, without its terminator
    std::vector<SyncedEntry> entries; ///< in milliseconds

    /// Null when `value` is no lyric, when its parts do not fit it, or when its times count frames, whose
    /// length the file does not say.
    [[nodiscard]] static std::optional<AsfSynced> parse(std::string_view value);
    [[nodiscard]] std::string render() const;
};

} // namespace tags
