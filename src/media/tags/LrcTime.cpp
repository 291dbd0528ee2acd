// SPDX-License-Identifier: MIT
#include "media/tags/LrcTime.h"

#include <algorithm>

namespace tags {

namespace {

/// The digits at `at`, which moves behind them; null when there is none, or when they exceed `kMaxLrcTime`.
std::optional<std::uint64_t> takeNumber(std::string_view text, std::size_t &at)
{
    const std::size_t begin = at;
    std::uint64_t value = 0;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at)
        value = std::min(value * 10 + std::uint64_t(text[at] - '0'), kMaxLrcTime + 1);
    if (at == begin || value > kMaxLrcTime)
        return std::nullopt;
    return value;
}

/// Milliseconds of the fraction whose digits begin at `at`, which moves behind them.
std::optional<std::uint64_t> takeFraction(std::string_view text, std::size_t &at)
{
    const std::size_t begin = at;
    std::uint64_t value = 0;
    std::uint64_t unit = 100;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at, unit /= 10)
        value += unit * std::uint64_t(text[at] - '0');
    if (at == begin)
        return std::nullopt;
    return value;
}

std::string padded(std::uint64_t value, std::size_t digits)
{
    std::string text = std::to_string(value);
    return std::string(digits - std::min(digits, text.size()), '0') + text;
}

} // namespace

std::optional<LrcTime> lrcTimeAt(std::string_view text, std::size_t open, char close)
{
    std::size_t at = open + 1;
    const std::optional<std::uint64_t> minutes = takeNumber(text, at);
    if (!minutes || at == text.size() || text[at] != ':')
        return std::nullopt;
    const std::size_t colon = at++;
    const std::optional<std::uint64_t> seconds = takeNumber(text, at);
    if (!seconds || at - colon > 3)
        return std::nullopt;
    std::optional<std::uint64_t> fraction = 0;
    if (at < text.size() && text[at] == '.')
        fraction = takeFraction(text, ++at);
    if (!fraction || at == text.size() || text[at] != close)
        return std::nullopt;
    const std::uint64_t time = (*minutes * 60 + *seconds) * 1000 + *fraction;
    if (time > kMaxLrcTime)
        return std::nullopt;
    return LrcTime{time, at + 1};
}

std::string lrcTimeText(std::uint64_t milliseconds)
{
    const std::uint64_t rest = milliseconds % 1000;
    return padded(milliseconds / 60000, 2) + ':' + padded(milliseconds / 1000 % 60, 2) + '.'
        + (rest % 10 == 0 ? padded(rest / 10, 2) : padded(rest, 3));
}

} // namespace tags
