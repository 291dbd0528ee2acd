// SPDX-License-Identifier: MIT
//
// Of RBSongLine, what moves the word stamps in its text.

#include "lyrics/LineAccess.h"
#include "lyrics/RBSongLine.h"
#include "lyrics/StampText.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>

namespace {

constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();

/// The sum, at the end of the range where it would leave it. The least number has no spelling.
std::int64_t sumOf(std::int64_t a, std::int64_t b)
{
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        return b > 0 ? kLargest : -kLargest;
    return sum < -kLargest ? -kLargest : sum;
}

bool isSumLost(std::int64_t a, std::int64_t b)
{
    std::int64_t sum = 0;
    return __builtin_add_overflow(a, b, &sum) || sum < -kLargest;
}

/// Whether a byte of `bytes` is `byte`, repeated in all of its own.
bool hasByte(std::uint64_t bytes, std::uint64_t byte)
{
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    const std::uint64_t zeros = bytes ^ byte;
    return ((zeros - kOnes) & ~zeros & kOnes << 7) != 0;
}

/// Whether a stamp may begin somewhere in `text`: at the first shift of a document each line is asked, and
/// few have one. Eight bytes are looked at at once.
bool hasBracket(std::string_view text)
{
    const auto isBracket = [](char c) { return c == '<' || c == '['; };
    if (text.size() < sizeof(std::uint64_t))
        return std::any_of(text.begin(), text.end(), isBracket);
    const auto hasOneAt = [text](std::size_t at) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text.data() + at, sizeof bytes);
        return hasByte(bytes, 0x3C3C3C3C3C3C3C3C) || hasByte(bytes, 0x5B5B5B5B5B5B5B5B);
    };
    const std::size_t last = text.size() - sizeof(std::uint64_t);
    for (std::size_t at = 0; at < last; at += sizeof(std::uint64_t)) {
        if (hasOneAt(at))
            return true;
    }
    return hasOneAt(last);
}

} // namespace

void RBSongLine::shiftBack(std::int64_t millis)
{
    if (millis == 0)
        return;
    if (!m_times.empty()) {
        for (std::int64_t &time : m_times)
            static_cast<void>(__builtin_sub_overflow(time, millis, &time));
    }
    if (m_flags.stamps != Stamps::None)
        shiftStamps(millis, Direction::Back);
}

void RBSongLine::lookForStamps()
{
    if (m_flags.stamps != Stamps::Unknown)
        return;
    const std::string_view words = text();
    lyrics::StampSpelling stamp;
    const bool has = hasBracket(words) && lyrics::LineAccess::canHaveStamps(*this)
        && lyrics::findStamp(
            words.data(), words.data() + words.size(), lyrics::LineAccess::colonReading(*this), stamp);
    m_flags.stamps = has ? Stamps::Some : Stamps::None;
}

/// A text whose stamps were moved lies in a block with the amount before the spelling, and the text from
/// which they were moved behind it: moving on begins there, so that a stamp that needed more digits has them
/// no longer once it is back. A stamp that was stopped begins anew where it is.
void RBSongLine::shiftStamps(std::int64_t millis, Direction direction)
{
    if (millis == 0)
        return;
    lookForStamps();
    if (m_flags.stamps == Stamps::None || isTagLine())
        return;
    std::int64_t before = 0;
    std::string_view origin = text();
    if (m_flags.stamps == Stamps::Shifted) {
        std::memcpy(&before, m_block.text().data(), sizeof before);
        origin = m_block.text().substr(m_place.begin + m_place.length);
    }
    // That of the least number is cut in any case.
    const std::int64_t amount = direction == Direction::Forth ? millis : -std::max(millis, -kLargest);
    const std::int64_t total = sumOf(before, amount);
    bool isStopped = isSumLost(before, amount);
    const std::string moved
        = lyrics::withStampsMapped(origin, lyrics::LineAccess::colonReading(*this), [&](std::int64_t stamp) {
              const std::int64_t now = sumOf(stamp, before);
              const std::int64_t next
                  = direction == Direction::Forth ? lyrics::shifted(now, amount) : sumOf(now, amount);
              isStopped = isStopped || isSumLost(now, amount) || next != now + amount;
              return next;
          });
    const bool keepsOrigin = !isStopped && total != 0;
    char head[sizeof total];
    std::memcpy(head, &total, sizeof total);
    setBlock(moved, keepsOrigin ? std::string_view(head, sizeof head) : std::string_view(),
        keepsOrigin ? origin : std::string_view());
    m_flags.stamps = keepsOrigin ? Stamps::Shifted : Stamps::Some;
}
