// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/RBEditSong.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The tag `[offset:…]`. It is kept and never applied silently, since readers disagree on its sign.
namespace lyrics {

/// What a positive offset does.
enum class OffsetSense : std::uint8_t {
    PositiveIsEarlier, ///< lines appear earlier: times become smaller
    PositiveIsLater ///< lines appear later: times become larger
};

/// The value of an offset tag.
struct OffsetValue
{
    /// Never the least number: it can be negated.
    std::int64_t millis = 0;
    /// Spelled as most readers understand it: digits, at most one sign before them, blanks round that.
    bool isPlain = true;
};

/// Reads what stands behind the colon: besides the plain form two signs `--500` (which is −500: the second
/// one was put before a number that had one), blanks between sign and digits, U+2212 as a sign, and `ms`
/// behind the digits, in any case. Nothing for what is no number or does not fit.
[[nodiscard]] std::optional<OffsetValue> parseOffset(std::string_view value);

/// One offset tag of a document.
struct OffsetTag
{
    /// The line, from 0.
    std::size_t row = 0;
    /// As it is spelled behind the colon, without the blanks round it.
    std::string spelling;
    /// Nothing when it is no number.
    std::optional<OffsetValue> value;
};

/// The offset tags of `song` in order.
[[nodiscard]] std::vector<OffsetTag> offsetTags(const RBEditSong &song);

/// How far the times move when an offset of `millis` is applied in that sense.
[[nodiscard]] std::int64_t offsetShift(std::int64_t millis, OffsetSense sense);

/// What an offset of `millis` does in that sense, in English: "lines appear 0.5 s earlier", "lines appear 3 s
/// later", "nothing moves".
[[nodiscard]] std::string offsetInWords(std::int64_t millis, OffsetSense sense);

enum class BakeResult : std::uint8_t {
    Baked,
    NoOffset, ///< there is no offset tag
    NotANumber, ///< an offset tag whose value cannot be read
    OffsetsDiffer ///< several offset tags of different values: which one holds is for the user to say
};

struct BakeOutcome
{
    BakeResult result = BakeResult::NoOffset;
    /// How far the times were moved.
    std::int64_t shift = 0;
    /// How many times and word stamps would have fallen below 0, and stand at 0 now.
    std::size_t clamped = 0;
};

/// Moves all times and word stamps as the offset tag says, in the sense that the user chose, and takes the
/// tag out. Several tags of one value are one, and all are taken out. Anything but `Baked` leaves the
/// document unchanged.
BakeOutcome bakeOffset(RBEditSong &song, OffsetSense sense);

} // namespace lyrics
