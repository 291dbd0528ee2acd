// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace cli {

/// A piece of a line that is sung from `millis` on; nothing for what stands before the first such time.
struct SheetWord
{
    std::optional<std::int64_t> millis;
    std::string text;
};

/// One line at one time, as every format can be read into it. Times in milliseconds.
struct SheetLine
{
    std::size_t source = 1; ///< the physical line that it was read from, from 1
    std::optional<std::int64_t> start;
    std::optional<std::int64_t> end;
    std::vector<SheetWord> words;

    [[nodiscard]] std::string text() const
    {
        std::string text;
        for (const SheetWord &word : words)
            text += word.text;
        return text;
    }
    [[nodiscard]] bool hasWordTimes() const
    {
        for (const SheetWord &word : words) {
            if (word.millis)
                return true;
        }
        return false;
    }
};

struct SheetTag
{
    std::size_t source = 1;
    std::string key;
    std::string value;
};

/// A lyric between two formats: what both may have.
struct Sheet
{
    std::vector<SheetTag> tags;
    /// In the order in which they are sung; an untimed line stays with the one that it follows.
    std::vector<SheetLine> lines;
};

/// What does not survive, said line by line.
class Losses
{
public:
    struct Loss
    {
        std::size_t source; ///< the physical line of the source, from 1
        std::string sentence;
    };

    void add(std::size_t source, std::string sentence) { m_all.push_back({source, std::move(sentence)}); }
    [[nodiscard]] const std::vector<Loss> &all() const { return m_all; }

private:
    std::vector<Loss> m_all;
};

} // namespace cli
