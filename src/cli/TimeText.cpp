// SPDX-License-Identifier: MIT
#include "cli/TimeText.h"

#include <algorithm>
#include <limits>

namespace cli {
namespace {

constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// A run of digits at the beginning, which is taken off. Absent when there is none or it is too large.
std::optional<std::int64_t> takeNumber(std::string_view &text)
{
    std::int64_t value = 0;
    std::size_t i = 0;
    for (; i < text.size() && isDigit(text[i]); ++i) {
        if (value > (kLargest - 9) / 10)
            return std::nullopt;
        value = value * 10 + (text[i] - '0');
    }
    if (i == 0)
        return std::nullopt;
    text.remove_prefix(i);
    return value;
}

/// The milliseconds of the digits behind a point, which are taken off.
std::int64_t takeFraction(std::string_view &text)
{
    std::int64_t millis = 0;
    std::int64_t unit = 100;
    std::size_t i = 0;
    for (; i < text.size() && isDigit(text[i]); ++i, unit /= 10)
        millis += unit * (text[i] - '0');
    text.remove_prefix(i);
    return millis;
}

std::optional<std::int64_t> sumOf(std::int64_t seconds, std::int64_t millis)
{
    if (seconds > kLargest / 1000 - 1)
        return std::nullopt;
    return seconds * 1000 + millis;
}

bool isPoint(std::string_view text)
{
    return text.size() > 1 && (text[0] == '.' || text[0] == ',') && isDigit(text[1]);
}

std::optional<std::int64_t> parseUnits(std::string_view text)
{
    if (text.ends_with("ms")) {
        text.remove_suffix(2);
        const auto millis = takeNumber(text);
        return text.empty() ? millis : std::nullopt;
    }
    if (!text.ends_with("s"))
        return std::nullopt;
    text.remove_suffix(1);
    const bool hasDigits = !text.empty() && isDigit(text[0]);
    const auto seconds = hasDigits ? takeNumber(text) : std::optional<std::int64_t>(0);
    std::int64_t millis = 0;
    if (!hasDigits && !isPoint(text))
        return std::nullopt;
    if (isPoint(text)) {
        text.remove_prefix(1);
        millis = takeFraction(text);
    }
    return seconds && text.empty() ? sumOf(*seconds, millis) : std::nullopt;
}

void appendPadded(std::string &out, std::int64_t value, int digits)
{
    const std::string text = std::to_string(value);
    out.append(static_cast<std::size_t>(std::max(0, digits - static_cast<int>(text.size()))), '0')
        .append(text);
}

} // namespace

std::optional<std::int64_t> parsePosition(std::string_view text)
{
    std::string_view rest = text;
    if (const auto millis = takeClockTime(rest); millis && rest.empty())
        return millis;
    return parseUnits(text);
}

std::optional<std::int64_t> parseAmount(std::string_view text)
{
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    const auto amount = parsePosition(text);
    return amount && isNegative ? -*amount : amount;
}

std::string exactTime(std::int64_t millis)
{
    std::string out = millis < 0 ? "-" : "";
    const std::int64_t amount = millis < 0 ? -std::max(millis, -kLargest) : millis;
    appendPadded(out, amount / 60'000, 2);
    out += ':';
    appendPadded(out, amount / 1000 % 60, 2);
    out += '.';
    const bool isWhole = amount % 10 == 0;
    appendPadded(out, amount % 1000 / (isWhole ? 10 : 1), isWhole ? 2 : 3);
    return out;
}

std::string amountInWords(std::int64_t millis)
{
    std::string out = millis < 0 ? "-" : "+";
    const std::int64_t amount = millis < 0 ? -std::max(millis, -kLargest) : millis;
    if (amount % 100 != 0)
        return out + std::to_string(amount) + " ms";
    out += std::to_string(amount / 1000);
    if (amount % 1000 != 0)
        out += "." + std::to_string(amount % 1000 / 100);
    return out + " s";
}

std::string clockTime(std::int64_t millis, ClockForm form)
{
    const std::int64_t amount = std::max<std::int64_t>(millis, 0);
    std::string out;
    appendPadded(out, amount / 3'600'000, form.hourDigits);
    out += ':';
    appendPadded(out, amount / 60'000 % 60, 2);
    out += ':';
    appendPadded(out, amount / 1000 % 60, 2);
    out += form.point;
    appendPadded(out, form.fractionDigits == 2 ? amount % 1000 / 10 : amount % 1000, form.fractionDigits);
    return out;
}

std::optional<std::int64_t> takeClockTime(std::string_view &text)
{
    std::string_view rest = text;
    std::int64_t seconds = 0;
    int fields = 0;
    for (; fields < 3; ++fields) {
        if (fields > 0) {
            if (!rest.starts_with(':'))
                break;
            rest.remove_prefix(1);
        }
        const std::size_t before = rest.size();
        const auto field = takeNumber(rest);
        if (!field || (fields > 0 && (before - rest.size() > 2 || *field > 59))
            || seconds > kLargest / 60 - 60 || *field > kLargest / 4000)
            return std::nullopt;
        seconds = seconds * 60 + *field;
    }
    if (fields < 2)
        return std::nullopt;
    std::int64_t millis = 0;
    if (isPoint(rest)) {
        rest.remove_prefix(1);
        millis = takeFraction(rest);
    }
    const auto sum = sumOf(seconds, millis);
    if (!sum || *sum > kLargestClockMillis)
        return std::nullopt;
    text = rest;
    return sum;
}

} // namespace cli
