// SPDX-License-Identifier: MIT
#include "lyrics/Corpus.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <string_view>

namespace corpus {
namespace {

constexpr std::array<std::string_view, 16> kWords = {"love", "you", "and", "never", "the", "night", "away",
    "I", "remember", "summer", "rain", "to", "hold", "me", "again", "forever"};
constexpr std::array<std::string_view, 16> kCharacters
    = {"走", "廊", "夜", "空", "星", "光", "愛", "風", "雨", "夢", "心", "花", "君", "の", "を", "ひ"};

class Random
{
public:
    std::size_t below(std::size_t count)
    {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<std::size_t>(m_state >> 33) % count;
    }

private:
    std::uint64_t m_state = 42;
};

void appendTag(std::string &text, std::size_t millis)
{
    char tag[32];
    const int length = std::snprintf(
        tag, sizeof tag, "[%02zu:%02zu.%02zu]", millis / 60'000, millis / 1'000 % 60, millis / 10 % 100);
    text.append(tag, static_cast<std::size_t>(length));
}

std::size_t tagCount(Random &random, Times times)
{
    if (times == Times::Many)
        return 1 + random.below(5);
    const std::size_t draw = random.below(20);
    return draw < 16 ? 1 : draw - 14;
}

void appendWords(std::string &text, Random &random)
{
    if (random.below(2) == 0) {
        for (std::size_t count = 5 + random.below(9); count > 0; --count)
            text += kCharacters[random.below(kCharacters.size())];
        return;
    }
    for (std::size_t count = 4 + random.below(6); count > 0; --count) {
        text += kWords[random.below(kWords.size())];
        text += count > 1 ? " " : "";
    }
}

} // namespace

std::string song(std::size_t lines, Times times)
{
    Random random;
    std::string text = "[ti:A song]\n[ar:Somebody]\n[al:An album]\n[by:me]\n[offset:+500]\n";
    for (std::size_t line = 5; line < lines; ++line) {
        if (random.below(12) > 0) {
            for (std::size_t tag = tagCount(random, times); tag > 0; --tag)
                appendTag(text, line * 31 % 5'990'000 + tag * 60'000);
            appendWords(text, random);
        }
        text += '\n';
    }
    return text;
}

} // namespace corpus
