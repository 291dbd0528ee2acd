// SPDX-License-Identifier: MIT
#include "lyrics/TimeTag.h"

#include "lyrics/Blanks.h"

#include <array>
#include <cstring>
#include <limits>

namespace lyrics {
namespace {

constexpr std::uint64_t kLargest = std::numeric_limits<std::int64_t>::max();

bool isDigit(char c)
{
    return static_cast<unsigned char>(c - '0') <= 9;
}

/// A run of digits: what it says, and how many there are. Too large a number is marked, and read to its end.
struct Number
{
    std::uint64_t value = 0;
    std::ptrdiff_t digits = 0;
    bool tooLarge = false;
};

Number readNumber(const char *&p, const char *end)
{
    Number number;
    const char *begin = p;
    for (; p < end && isDigit(*p); ++p) {
        const auto digit = static_cast<std::uint64_t>(*p - '0');
        if (number.value > (kLargest - digit) / 10)
            number.tooLarge = true;
        else
            number.value = number.value * 10 + digit;
    }
    number.digits = p - begin;
    return number;
}

/// The milliseconds of a run of fraction digits; further digits are cut off.
std::uint64_t fractionMillis(const char *begin, const char *end)
{
    std::uint64_t millis = 0;
    std::uint64_t unit = 100;
    for (const char *p = begin; p < end && unit > 0; ++p, unit /= 10)
        millis += static_cast<std::uint64_t>(*p - '0') * unit;
    return millis;
}

/// Adds `count` units of `millisEach`; false when that leaves the range.
bool addMillis(std::uint64_t &sum, std::uint64_t count, std::uint64_t millisEach)
{
    if (count > (kLargest - sum) / millisEach)
        return false;
    sum += count * millisEach;
    return true;
}

bool skipMinus(const char *&p, const char *end)
{
    const bool minus = p < end && *p == '-';
    p += minus ? 1 : 0;
    return minus;
}

/// The digits behind the point at `p`, if there are any. Moves `p` behind them.
bool readFraction(const char *&p, const char *end, std::uint64_t &millis)
{
    if (p >= end || *p != '.')
        return false;
    const char *digits = p + 1;
    const char *last = digits;
    while (last < end && isDigit(*last))
        ++last;
    if (last == digits)
        return false;
    millis = fractionMillis(digits, last);
    p = last;
    return true;
}

/// Whether three fields are a time when the first of them counts hours.
bool fitsInHours(const Number &first, const Number &second, const Number &third)
{
    std::uint64_t sum = 0;
    return addMillis(sum, first.value, 3'600'000) && addMillis(sum, second.value, 60'000)
        && addMillis(sum, third.value, 1'000);
}

/// What follows the first two fields: `:c` or `:c.fraction`.
bool readThirdField(const char *&p, const char *end, ColonReading reading, const Number &first,
    const Number &second, TimeSpelling &time, std::uint64_t &sum)
{
    if (second.digits != 2)
        return false;
    const char *digits = ++p;
    const Number third = readNumber(p, end);
    std::uint64_t fraction = 0;
    const bool pointFollows = p < end && *p == '.';
    const bool hoursFit = third.digits == 2 && second.value <= 59;
    if (pointFollows) {
        if (!hoursFit || !readFraction(p, end, fraction))
            return false;
    } else {
        if (third.digits < 1 || third.digits > 3)
            return false;
        time.colonForm = true;
        time.canBeHours = hoursFit && third.value <= 59 && fitsInHours(first, second, third);
        if (reading == ColonReading::Fraction || !hoursFit) {
            return addMillis(sum, first.value, 60'000) && addMillis(sum, second.value, 1'000)
                && addMillis(sum, fractionMillis(digits, p), 1);
        }
    }
    return addMillis(sum, first.value, 3'600'000) && addMillis(sum, second.value, 60'000)
        && addMillis(sum, third.value, 1'000) && addMillis(sum, fraction, 1);
}

/// What follows the first field and its colon.
bool readSecondField(const char *&p, const char *end, ColonReading reading, const Number &first,
    bool &negative, TimeSpelling &time, std::uint64_t &sum)
{
    // A writer that rewound past zero puts the sign before each field.
    negative = skipMinus(p, end) || negative;
    const Number second = readNumber(p, end);
    if (p < end && *p == ':')
        return readThirdField(p, end, reading, first, second, time, sum);
    std::uint64_t fraction = 0;
    const bool pointFollows = p < end && *p == '.';
    if (pointFollows && !readFraction(p, end, fraction))
        return false;
    // One digit alone, as in [1:2], is rather a verse of a book.
    if (second.digits != 2 && !(second.digits == 1 && pointFollows))
        return false;
    return addMillis(sum, first.value, 60'000) && addMillis(sum, second.value, 1'000)
        && addMillis(sum, fraction, 1);
}

/// `ss.xx` and `ss`.
bool readSecondsAlone(const char *&p, const char *end, const Number &first, std::uint64_t &sum)
{
    std::uint64_t fraction = 0;
    if (p < end && *p == '.') {
        if (!readFraction(p, end, fraction))
            return false;
    } else if (first.digits > 3) {
        return false;
    }
    return addMillis(sum, first.value, 1'000) && addMillis(sum, fraction, 1);
}

bool readRangeEnd(const char *&p, const char *end, ColonReading reading, TimeTag &tag)
{
    // [1-2] is no range: both ends have a colon.
    TimeSpelling last;
    if (!tag.hasColon || tag.colonForm || tag.millis < 0 || !readTime(p + 1, end, reading, last))
        return false;
    if (!last.hasColon || last.colonForm || last.millis < 0)
        return false;
    tag.rangeDash = p;
    tag.rangeEndMillis = last.millis;
    p = last.end;
    return true;
}

/// "00" to "99".
constexpr auto kTwoDigits = [] {
    std::array<char, 200> digits{};
    for (std::size_t i = 0; i < 100; ++i) {
        digits[2 * i] = static_cast<char>('0' + i / 10);
        digits[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return digits;
}();

char *writeTwoDigits(char *out, std::uint64_t value)
{
    std::memcpy(out, &kTwoDigits[2 * value], 2);
    return out + 2;
}

/// At least two digits.
char *writeMinutes(char *out, std::uint64_t value)
{
    if (value < 100)
        return writeTwoDigits(out, value);
    char digits[20];
    int count = 0;
    for (; value > 0; value /= 10)
        digits[count++] = static_cast<char>('0' + value % 10);
    while (count > 0)
        *out++ = digits[--count];
    return out;
}

} // namespace

bool readTime(const char *p, const char *end, ColonReading reading, TimeSpelling &time)
{
    time.colonForm = false;
    time.canBeHours = false;
    time.hasColon = false;
    bool negative = skipMinus(p, end);
    const Number first = readNumber(p, end);
    if (first.digits == 0 || first.tooLarge)
        return false;
    std::uint64_t sum = 0;
    if (p < end && *p == ':') {
        ++p;
        time.hasColon = true;
        if (!readSecondField(p, end, reading, first, negative, time, sum))
            return false;
    } else if (negative || !readSecondsAlone(p, end, first, sum)) {
        return false;
    }
    time.millis = negative ? -static_cast<std::int64_t>(sum) : static_cast<std::int64_t>(sum);
    time.end = p;
    return true;
}

bool readUncommonTimeTag(const char *p, const char *end, ColonReading reading, TimeTag &tag)
{
    const char *inner = skipBlanks(p + 1, end);
    tag.isPlain = false;
    tag.rangeDash = nullptr;
    if (!readTime(inner, end, reading, tag))
        return false;
    const char *last = tag.end;
    if (last < end && *last == '-' && !readRangeEnd(last, end, reading, tag))
        return false;
    last = skipBlanks(last, end);
    if (last == end || *last != ']')
        return false;
    tag.end = last + 1;
    return true;
}

char *writeTime(char *out, std::int64_t millis, Fraction fraction)
{
    auto amount = static_cast<std::uint64_t>(millis);
    if (millis < 0) {
        amount = fraction == Fraction::Exact ? 0 - amount : 0;
        if (fraction == Fraction::Exact)
            *out++ = '-';
    }
    if (amount > kLargest)
        amount = kLargest; // the least number has no counterpart that could be read back
    std::uint64_t hundredths = amount / 10;
    const std::uint64_t rest = amount % 10;
    // The largest time would be rounded out of the range.
    if (fraction == Fraction::Rounded && rest >= 5 && hundredths < kLargest / 10)
        ++hundredths;
    const std::uint64_t seconds = hundredths / 100;
    out = writeMinutes(out, seconds / 60);
    *out++ = ':';
    out = writeTwoDigits(out, seconds % 60);
    *out++ = '.';
    out = writeTwoDigits(out, hundredths % 100);
    if (fraction == Fraction::Exact && rest != 0)
        *out++ = static_cast<char>('0' + rest);
    return out;
}

} // namespace lyrics
