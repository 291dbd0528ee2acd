// SPDX-License-Identifier: MIT
#include "lyrics/RBUtils.h"

#include "lyrics/Blanks.h"
#include "lyrics/TimeTag.h"

#include <algorithm>

std::string RBUtils::getTimeIntervalPeerStr(std::int64_t millis)
{
    char text[lyrics::kLongestTime];
    return {text, lyrics::writeTime(text, millis, lyrics::Fraction::Rounded)};
}

std::string RBUtils::getTimeIntervalMMSSMSStr(std::int64_t millis)
{
    return getTimeIntervalPeerStr(millis);
}

std::int64_t RBUtils::getTimeInterval(std::string_view text)
{
    text = lyrics::trimmed(text);
    const char *end = text.data() + text.size();
    if (text.empty())
        return 0;
    if (text.front() == '[') {
        lyrics::TimeTag tag;
        const bool isTag = lyrics::readTimeTag(text.data(), end, lyrics::ColonReading::Fraction, tag);
        return isTag && tag.end == end ? tag.millis : 0;
    }
    lyrics::TimeSpelling time;
    const bool isTime = lyrics::readTime(text.data(), end, lyrics::ColonReading::Fraction, time);
    return isTime && time.end == end ? time.millis : 0;
}

bool RBUtils::isTimeString(std::string_view text)
{
    constexpr std::size_t kShortest = 8; // 00:00.00
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (text.size() < kShortest)
        return false;
    const std::string_view minutes = text.substr(0, text.size() - 6);
    const std::string_view rest = text.substr(minutes.size());
    const bool hasShape = std::all_of(minutes.begin(), minutes.end(), isDigit) && rest[0] == ':'
        && rest[1] >= '0' && rest[1] <= '5' && isDigit(rest[2]) && rest[3] == '.' && isDigit(rest[4])
        && isDigit(rest[5]);
    lyrics::TimeSpelling time;
    return hasShape
        && lyrics::readTime(text.data(), text.data() + text.size(), lyrics::ColonReading::Fraction, time);
}
