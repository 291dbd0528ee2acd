// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Texts and choices for property tests: the same seed gives the same on every machine.
namespace generate {

/// splitmix64.
class Random
{
public:
    explicit Random(std::uint64_t seed) : m_state(seed) { }
    std::uint64_t next()
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31);
    }
    /// 0 … `count` − 1.
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(next() % count); }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    std::string_view oneOf(std::span<const std::string_view> choices)
    {
        return choices[below(choices.size())];
    }

private:
    std::uint64_t m_state;
};

inline constexpr std::array<std::string_view, 3> kLineEnds = {"\n", "\r\n", "\r"};

/// Pieces that real and broken lyrics are made of, tag by tag and byte by byte.
inline constexpr std::array<std::string_view, 58> kPieces = {"[00:12.34]", "[00:12.345]", "[0:12.3]",
    "[00:12]", "[72:04.29]", "[123:45.67]", "[1:02:03.45]", "[-00:01.00]", "[00:01.20-00:02.30]", "[ 2:00 ]",
    "[35]", "[12.5]", "[00:99.00]", "[99999999999999999999:00]", "[00:01.]", "[00:01.2a]", "[ti:x]",
    "[AR: y ]", "[al:]", "[by:a [b] c]", "[offset:+500]", "[length: 2:23]", "[x:y]", "[Chorus]",
    "[Verse 1: A]", "[ti:open", "[", "]", "[[", "<00:11.22>", "hel", "lo ", "走", "廊", "　", " ", "\t",
    "\xC2\xA0", "\xEF\xBB\xBF", "\xE2\x80\xA8", "\xC2\x85", "\xFF", "\xC0\xAF", "\xED\xA0\x80", "\xE6\x9D",
    "\x01", ":", ".", "-", "0", "12", "é", "😀", "[:]", "[#:c]", "[re:me]", "(live)", "- "};
/// The ambiguous form, for the laws that hold with it too.
inline constexpr std::array<std::string_view, 4> kColonPieces
    = {"[00:12:34]", "[01:02:03]", "[00:75:10]", "[0:10:5]"};

/// A text of up to `lines` lines of up to 6 pieces, with any line ends, mixed.
inline std::string anyText(Random &random, std::size_t lines, bool withColonForms)
{
    std::string text;
    if (random.oneIn(8))
        text += "\xEF\xBB\xBF";
    const std::string_view usual = random.oneOf(kLineEnds);
    for (std::size_t line = random.below(lines + 1); line > 0; --line) {
        for (std::size_t piece = random.below(7); piece > 0; --piece)
            text += withColonForms && random.oneIn(6) ? random.oneOf(kColonPieces) : random.oneOf(kPieces);
        if (line > 1 || !random.oneIn(3))
            text += random.oneIn(8) ? random.oneOf(kLineEnds) : usual;
    }
    if (random.oneIn(40))
        text += '\0';
    return text;
}

/// Texts that a user may type into a text cell without making a tag of it.
inline constexpr std::array<std::string_view, 8> kTypedTexts
    = {"", "hello", "  with blanks ", "走廊", "a [b] c", "two\nlines", "é😀", "(x)"};
/// Texts with brackets that are, or are nearly, tags. None of them holds a time at its beginning.
inline constexpr std::array<std::string_view, 15> kTagLikeTexts
    = {"[ti:x]", "[ti:x] y", "[al:]", "[ti:open", "[re:me]", "[re:me] x", "[x:y]", "[x:y] z", "[x:y][Chorus]",
        "[Chorus]", "[Verse 1: A]", "[", "]", "a ] b", "a [ b"};
/// Texts that begin with a time.
inline constexpr std::array<std::string_view, 4> kTimeLikeTexts
    = {"[00:20.00]x", "[00:12:34]", "[00:75:10] y", "[35][Chorus]"};

} // namespace generate
