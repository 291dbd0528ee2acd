// SPDX-License-Identifier: MIT
#include "lyrics/OffsetTag.h"

#include "lyrics/Blanks.h"
#include "lyrics/IdTag.h"
#include "lyrics/LineAccess.h"
#include "lyrics/WordStamps.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace lyrics {
namespace {

constexpr std::string_view kMinus = "\xE2\x88\x92"; // U+2212

/// Takes `prefix` off; whether it was there.
bool take(std::string_view &text, std::string_view prefix)
{
    if (!text.starts_with(prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

/// The signs before a number.
struct Signs
{
    std::size_t count = 0;
    bool isNegative = false;
    bool isPlain = true;
};

Signs takeSigns(std::string_view &text)
{
    Signs signs;
    for (;;) {
        const bool isMinus = text.starts_with('-') || text.starts_with(kMinus);
        if (take(text, kMinus))
            signs.isPlain = false;
        else if (!take(text, "-") && !take(text, "+"))
            break;
        signs.isNegative = signs.isNegative || isMinus;
        ++signs.count;
    }
    const std::string_view bare = trimmed(text);
    signs.isPlain = signs.isPlain && signs.count <= 1 && (signs.count == 0 || bare.data() == text.data());
    text = bare;
    return signs;
}

std::optional<std::int64_t> takeNumber(std::string_view &text)
{
    std::int64_t number = 0;
    std::size_t digits = 0;
    for (; digits < text.size() && text[digits] >= '0' && text[digits] <= '9'; ++digits) {
        if (__builtin_mul_overflow(number, 10, &number)
            || __builtin_add_overflow(number, text[digits] - '0', &number))
            return std::nullopt;
    }
    text.remove_prefix(digits);
    return digits > 0 ? std::optional(number) : std::nullopt;
}

bool isUnit(std::string_view text)
{
    return text.size() == 2 && (text[0] | 0x20) == 'm' && (text[1] | 0x20) == 's';
}

/// "0.5", "3", "61.234".
std::string secondsInWords(std::int64_t millis)
{
    std::string words = std::to_string(millis / 1000);
    std::string fraction = std::to_string(1000 + millis % 1000).substr(1);
    fraction.erase(fraction.find_last_not_of('0') + 1);
    if (!fraction.empty())
        words += "." + fraction;
    return words;
}

} // namespace

std::optional<OffsetValue> parseOffset(std::string_view value)
{
    value = trimmed(value);
    const Signs signs = takeSigns(value);
    const std::optional<std::int64_t> number = takeNumber(value);
    const std::string_view unit = trimmed(value);
    if (!number || signs.count > 2 || !(unit.empty() || isUnit(unit)))
        return std::nullopt;
    return OffsetValue{signs.isNegative ? -*number : *number, signs.isPlain && unit.empty()};
}

std::vector<OffsetTag> offsetTags(const RBEditSong &song)
{
    std::vector<OffsetTag> tags;
    const auto &lines = song.aryLines();
    for (std::size_t row = 0; row < lines.size(); ++row) {
        const std::string_view text = lines[row].lineText();
        IdTag tag;
        if (!lines[row].isOtherTag() || !readIdTag(text.data(), text.data() + text.size(), tag))
            continue;
        const bool isOffset = std::equal(tag.key.begin(), tag.key.end(), std::string_view("offset").begin(),
            std::string_view("offset").end(), [](char a, char b) { return (a | 0x20) == b; });
        if (isOffset)
            tags.push_back({row, std::string(trimmed(tag.value)), parseOffset(tag.value)});
    }
    return tags;
}

std::int64_t offsetShift(std::int64_t millis, OffsetSense sense)
{
    const std::int64_t amount = std::max(millis, -std::numeric_limits<std::int64_t>::max());
    return sense == OffsetSense::PositiveIsLater ? amount : -amount;
}

std::string offsetInWords(std::int64_t millis, OffsetSense sense)
{
    const std::int64_t shift = offsetShift(millis, sense);
    if (shift == 0)
        return "nothing moves";
    return "lines appear " + secondsInWords(shift < 0 ? -shift : shift) + " s "
        + (shift < 0 ? "earlier" : "later");
}

BakeOutcome bakeOffset(RBEditSong &song, OffsetSense sense)
{
    const std::vector<OffsetTag> tags = offsetTags(song);
    BakeOutcome outcome;
    if (tags.empty())
        return outcome;
    const auto isUnread = [](const OffsetTag &tag) { return !tag.value; };
    if (std::any_of(tags.begin(), tags.end(), isUnread)) {
        outcome.result = BakeResult::NotANumber;
        return outcome;
    }
    const std::int64_t millis = tags.front().value->millis;
    const auto differs = [millis](const OffsetTag &tag) { return tag.value->millis != millis; };
    if (std::any_of(tags.begin(), tags.end(), differs)) {
        outcome.result = BakeResult::OffsetsDiffer;
        return outcome;
    }
    outcome = {BakeResult::Baked, offsetShift(millis, sense), 0};
    for (RBSongLine &line : song.aryLines()) {
        if (LineAccess::isTagLine(line))
            continue;
        const auto isClamped = [shift = outcome.shift](std::int64_t time) {
            std::int64_t sum = 0;
            return shift != 0 && !__builtin_add_overflow(time, shift, &sum) && sum < 0;
        };
        const TimeList &times = std::as_const(line).aryTimes();
        outcome.clamped += static_cast<std::size_t>(std::count_if(times.begin(), times.end(), isClamped));
        for (const WordStamp &stamp : wordStamps(line))
            outcome.clamped += isClamped(stamp.millis) ? 1 : 0;
        line.shiftAllTime(outcome.shift);
    }
    std::vector<std::size_t> rows;
    for (const OffsetTag &tag : tags)
        rows.push_back(tag.row);
    song.deleteLineAtIndexs(rows);
    return outcome;
}

} // namespace lyrics
