// SPDX-License-Identifier: MIT
#include "lyrics/StampText.h"

#include "lyrics/Blanks.h"

#include <algorithm>
#include <cstddef>

namespace lyrics {
namespace {

/// How a time is spelled, field by field.
struct Shape
{
    std::size_t leadingDigits = 0;
    bool hasHours = false;
    /// What stands before the fraction; a colon in `mm:ss:xx`.
    char point = '.';
    std::string_view fraction;
};

Shape shapeOf(std::string_view time, ColonReading reading)
{
    const std::size_t first = time.find_first_not_of('-');
    const std::size_t colon = time.find(':');
    const std::size_t second = time.find(':', colon + 1);
    const std::size_t point = time.find('.');
    Shape shape;
    shape.leadingDigits = colon - first;
    shape.hasHours = second != std::string_view::npos;
    if (point != std::string_view::npos) {
        shape.fraction = time.substr(point + 1);
        return shape;
    }
    if (!shape.hasHours)
        return shape;
    const std::string_view third = time.substr(second + 1);
    const bool canBeHours = third.size() == 2 && time[second - 2] <= '5';
    if (reading == ColonReading::Hours && canBeHours)
        return shape;
    shape.hasHours = false;
    shape.point = ':';
    shape.fraction = third;
    return shape;
}

/// At least `digits` digits.
void appendNumber(std::string &out, std::uint64_t value, std::size_t digits)
{
    const std::string number = std::to_string(value);
    out.append(digits > number.size() ? digits - number.size() : 0, '0');
    out += number;
}

void appendFraction(std::string &out, const Shape &shape, std::uint64_t millis)
{
    std::size_t digits = std::min<std::size_t>(shape.fraction.size(), 3);
    const std::size_t needed = millis % 10 != 0 ? 3 : millis % 100 != 0 ? 2 : millis != 0 ? 1 : 0;
    // A fraction that is new has two digits, as everywhere.
    digits = std::max(digits, digits == 0 && needed == 1 ? 2 : needed);
    if (digits == 0)
        return;
    out += shape.point;
    const std::uint64_t unit = digits == 1 ? 100 : digits == 2 ? 10 : 1;
    appendNumber(out, millis / unit, digits);
}

} // namespace

bool readStamp(const char *p, const char *end, ColonReading reading, StampSpelling &stamp)
{
    TimeSpelling time;
    const char *inner = skipBlanks(p + 1, end);
    if (!readTime(inner, end, reading, time) || !time.hasColon)
        return false;
    const char *closing = skipBlanks(time.end, end);
    if (closing == end || *closing != (*p == '<' ? '>' : ']'))
        return false;
    stamp = {p, closing + 1, {inner, static_cast<std::size_t>(time.end - inner)}, time.millis};
    return true;
}

bool findStamp(const char *p, const char *end, ColonReading reading, StampSpelling &stamp)
{
    for (; p < end; ++p) {
        if ((*p == '<' || *p == '[') && readStamp(p, end, reading, stamp))
            return true;
    }
    return false;
}

void appendRespelled(std::string &out, const StampSpelling &stamp, std::int64_t millis, ColonReading reading)
{
    if (millis == stamp.millis) {
        out.append(stamp.begin, stamp.end);
        return;
    }
    const Shape shape = shapeOf(stamp.time, reading);
    const std::uint64_t amount
        = millis < 0 ? 0 - static_cast<std::uint64_t>(millis) : static_cast<std::uint64_t>(millis);
    out.append(stamp.begin, stamp.time.data());
    if (millis < 0)
        out += '-';
    if (shape.hasHours) {
        appendNumber(out, amount / 3'600'000, shape.leadingDigits);
        out += ':';
        appendNumber(out, amount / 60'000 % 60, 2);
    } else {
        appendNumber(out, amount / 60'000, shape.leadingDigits);
    }
    out += ':';
    appendNumber(out, amount / 1'000 % 60, 2);
    appendFraction(out, shape, amount % 1'000);
    // What is finer than a millisecond moves along, unless the time was stopped at 0 or changed its sign.
    if (shape.fraction.size() > 3 && millis != 0 && (millis < 0) == (stamp.millis < 0))
        out += shape.fraction.substr(3);
    out.append(stamp.time.data() + stamp.time.size(), stamp.end);
}

} // namespace lyrics
