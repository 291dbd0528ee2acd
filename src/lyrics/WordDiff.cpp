// SPDX-License-Identifier: MIT
#include "lyrics/WordDiff.h"

#include "lyrics/Blanks.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace lyrics {
namespace {

using Tokens = std::vector<std::string_view>;

constexpr std::size_t kMostComparisons = 1'000'000;

bool isContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
}

/// Ideographs, kana and what stands between them: U+2E80 and up in three bytes, and all of four bytes.
bool isWordOfItsOwn(const char *p, const char *end)
{
    const auto lead = static_cast<unsigned char>(*p);
    if (lead == 0xE2)
        return end - p >= 2 && static_cast<unsigned char>(p[1]) >= 0xBA;
    return lead >= 0xE3 && lead <= 0xF4;
}

const char *characterEnd(const char *p, const char *end)
{
    for (++p; p < end && isContinuation(*p); ++p) { }
    return p;
}

const char *wordEnd(const char *p, const char *end)
{
    if (isWordOfItsOwn(p, end))
        return characterEnd(p, end);
    while (p < end && blankAt(p, end) == 0 && !isWordOfItsOwn(p, end))
        ++p;
    return p;
}

/// Words and runs of blanks, which together are the text.
Tokens tokensOf(std::string_view text)
{
    Tokens tokens;
    const char *const end = text.data() + text.size();
    for (const char *p = text.data(); p < end;) {
        const char *const begin = p;
        p = blankAt(p, end) > 0 ? skipBlanks(p, end) : wordEnd(p, end);
        tokens.emplace_back(begin, static_cast<std::size_t>(p - begin));
    }
    return tokens;
}

bool isBlank(std::string_view token)
{
    return blankAt(token.data(), token.data() + token.size()) > 0;
}

/// How much a token counts that both texts have.
unsigned weightOf(std::string_view token)
{
    return isBlank(token) ? 1 : 4;
}

/// The weights of the heaviest common rows of what follows each pair of places.
class CommonRows
{
public:
    CommonRows(std::span<const std::string_view> a, std::span<const std::string_view> b)
        : m_width(b.size() + 1), m_weights((a.size() + 1) * m_width, 0)
    {
        for (std::size_t i = a.size(); i-- > 0;) {
            for (std::size_t j = b.size(); j-- > 0;) {
                std::uint16_t best = std::max(at(i + 1, j), at(i, j + 1));
                if (a[i] == b[j])
                    best = std::max(best, static_cast<std::uint16_t>(at(i + 1, j + 1) + weightOf(a[i])));
                m_weights[i * m_width + j] = best;
            }
        }
    }
    [[nodiscard]] std::uint16_t at(std::size_t i, std::size_t j) const { return m_weights[i * m_width + j]; }

private:
    std::size_t m_width;
    std::vector<std::uint16_t> m_weights;
};

/// Collects replacements; one that begins where the last ended is the same.
class Replacements
{
public:
    Replacements(std::size_t oldAt, std::size_t newAt) : m_old(oldAt), m_new(newAt) { }

    void keep(std::string_view token)
    {
        m_old += token.size();
        m_new += token.size();
        m_isOpen = false;
    }
    void takeOut(std::string_view token)
    {
        open();
        m_old += token.size();
        m_all.back().oldEnd = m_old;
    }
    void putIn(std::string_view token)
    {
        open();
        m_new += token.size();
        m_all.back().newEnd = m_new;
    }
    [[nodiscard]] std::vector<Replacement> take() { return std::move(m_all); }

private:
    void open()
    {
        if (!m_isOpen)
            m_all.push_back({m_old, m_old, m_new, m_new});
        m_isOpen = true;
    }

    std::vector<Replacement> m_all;
    std::size_t m_old;
    std::size_t m_new;
    bool m_isOpen = false;
};

} // namespace

CommonEnds commonEnds(std::string_view before, std::string_view after)
{
    const std::size_t most = std::min(before.size(), after.size());
    CommonEnds ends;
    while (ends.prefix < most && before[ends.prefix] == after[ends.prefix])
        ++ends.prefix;
    const auto isTorn
        = [](std::string_view text, std::size_t at) { return at < text.size() && isContinuation(text[at]); };
    while (ends.prefix > 0 && (isTorn(before, ends.prefix) || isTorn(after, ends.prefix)))
        --ends.prefix;
    while (ends.suffix < most - ends.prefix
        && before[before.size() - 1 - ends.suffix] == after[after.size() - 1 - ends.suffix])
        ++ends.suffix;
    while (ends.suffix > 0 && isContinuation(before[before.size() - ends.suffix]))
        --ends.suffix;
    return ends;
}

std::vector<std::string_view> wordsIn(std::string_view text)
{
    Tokens words = tokensOf(text);
    words.erase(std::remove_if(words.begin(), words.end(), isBlank), words.end());
    return words;
}

std::vector<Replacement> wordDiff(std::string_view before, std::string_view after)
{
    const Tokens oldTokens = tokensOf(before);
    const Tokens newTokens = tokensOf(after);
    std::span<const std::string_view> a(oldTokens);
    std::span<const std::string_view> b(newTokens);
    std::size_t prefix = 0;
    while (!a.empty() && !b.empty() && a.front() == b.front()) {
        prefix += a.front().size();
        a = a.subspan(1);
        b = b.subspan(1);
    }
    while (!a.empty() && !b.empty() && a.back() == b.back()) {
        a = a.first(a.size() - 1);
        b = b.first(b.size() - 1);
    }
    Replacements found(prefix, prefix);
    const bool canCompare = a.empty() || b.size() <= kMostComparisons / a.size();
    const bool isWorthIt = canCompare && !a.empty() && !b.empty();
    const CommonRows rows(isWorthIt ? a : a.first(0), isWorthIt ? b : b.first(0));
    std::size_t i = 0;
    std::size_t j = 0;
    while (isWorthIt && i < a.size() && j < b.size()) {
        if (a[i] == b[j] && rows.at(i, j) == rows.at(i + 1, j + 1) + weightOf(a[i])) {
            found.keep(a[i++]);
            ++j;
        } else if (rows.at(i + 1, j) >= rows.at(i, j + 1)) {
            found.takeOut(a[i++]);
        } else {
            found.putIn(b[j++]);
        }
    }
    while (i < a.size())
        found.takeOut(a[i++]);
    while (j < b.size())
        found.putIn(b[j++]);
    return found.take();
}

} // namespace lyrics
