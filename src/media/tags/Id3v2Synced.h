// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Id3v2Tag.h"
#include "media/tags/MpegFrame.h"
#include "media/tags/Outcome.h"
#include "media/tags/SyncedLyrics.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// Whether `frame` is a `SYLT` frame, or `SLT` in 2.2.
[[nodiscard]] bool isSynced(const Id3v2Frame &frame);

/// The largest body of a `SYLT` frame that is read or written, and the most that a tag holds of them: 4 MiB.
inline constexpr std::size_t kMaxSyncedBody = 4U << 20;

/// What the body of a `SYLT` frame (`SLT` in 2.2) says. Source: "ID3 tag version 2.4.0 - Native Frames", 4.9.
struct SyncedFrame
{
    enum class Unit : unsigned char { MpegFrames = 1, Milliseconds = 2 };

    std::string language = "XXX";
    Unit unit = Unit::Milliseconds; ///< of the times in the file
    char contentType = 1; ///< 1: lyrics, 2: a transcription; others are no lyric
    std::string description; ///< UTF-8
    std::vector<SyncedEntry> entries; ///< in milliseconds

    /// Null when `body` is cut off, is no lyric, or when its times cannot be told: in an unknown unit, or in
    /// frames of sound whose length nobody knows.
    [[nodiscard]] static std::optional<SyncedFrame> parse(
        std::string_view body, const std::optional<FrameLength> &frameLength);

    /// The body for a tag of `version`. Refused where the unit cannot say the times exactly.
    [[nodiscard]] Outcome<std::string> render(
        unsigned version, const std::optional<FrameLength> &frameLength) const;
};

/// The entries in the body of a `SYLT` frame, whatever their kind; counting stops above `limit`.
[[nodiscard]] std::size_t syncedEntryCount(std::string_view body, std::size_t limit);

/// Milliseconds, rounded, from the start of the first of `frames` frames to its end.
[[nodiscard]] std::uint64_t millisecondsOf(std::uint64_t frames, const FrameLength &length);

} // namespace tags
