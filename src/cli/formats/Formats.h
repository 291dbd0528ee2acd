// SPDX-License-Identifier: MIT
#pragma once

#include "cli/formats/Sheet.h"

#include <span>
#include <string>
#include <string_view>

namespace cli {

/// A format that lyrics are kept in. Texts are UTF-8, without a byte-order mark when they are handed to
/// `read`.
struct LyricFormat
{
    std::string_view name; ///< as options call it
    std::string_view ending; ///< of a file's name, without the point
    std::string_view otherEndings; ///< one blank between
    Sheet (*read)(std::string_view text, Losses &losses);
    std::string (*write)(const Sheet &sheet, Losses &losses);
    bool needsTimes; ///< a lyric without any has nothing to show there
};

[[nodiscard]] std::span<const LyricFormat *const> allFormats();
/// Null when there is none.
[[nodiscard]] const LyricFormat *formatNamed(std::string_view name);
/// By a file's name; null when its ending says nothing.
[[nodiscard]] const LyricFormat *formatOfPath(std::string_view path);
/// By how a text begins; LRC when nothing speaks for another.
[[nodiscard]] const LyricFormat &formatOfText(std::string_view text);

extern const LyricFormat kLrcFormat;
extern const LyricFormat kEnhancedFormat;
extern const LyricFormat kSrtFormat;
extern const LyricFormat kVttFormat;
extern const LyricFormat kAssFormat;
extern const LyricFormat kTextFormat;
extern const LyricFormat kTtmlFormat;

} // namespace cli
