// SPDX-License-Identifier: MIT
#include "cli/LyricDiff.h"

#include "cli/LineDiff.h"
#include "cli/LineView.h"
#include "lyrics/WordStamps.h"

#include <algorithm>
#include <array>
#include <string>

namespace cli {
namespace {

using Kind = LyricDifference::Kind;

bool isTag(const RBSongLine &line)
{
    return tagOf(line).has_value();
}

/// By what lines of two lyrics are found to be the same: their words, or the key of a tag.
std::vector<std::string> keysOf(const RBEditSong &song)
{
    std::vector<std::string> keys;
    keys.reserve(song.aryLines().size());
    for (const RBSongLine &line : song.aryLines()) {
        const auto tag = tagOf(line);
        keys.push_back(tag ? "[" + std::string(tag->key) + ":" : " " + lyrics::wordsOf(line));
    }
    return keys;
}

class Comparison
{
public:
    Comparison(const RBEditSong &left, const RBEditSong &right) : m_left(left), m_right(right) { }

    std::vector<LyricDifference> compare()
    {
        const std::vector<std::string> leftKeys = keysOf(m_left);
        const std::vector<std::string> rightKeys = keysOf(m_right);
        const std::vector<std::string_view> leftViews(leftKeys.begin(), leftKeys.end());
        const std::vector<std::string_view> rightViews(rightKeys.begin(), rightKeys.end());
        std::size_t left = 0;
        std::size_t right = 0;
        for (const DiffBlock &block : diffLines(leftViews, rightViews)) {
            for (; left < block.leftBegin; ++left, ++right)
                compareLines(left, right);
            compareBlock(block);
            left = block.leftEnd;
            right = block.rightEnd;
        }
        for (; left < leftKeys.size(); ++left, ++right)
            compareLines(left, right);
        return std::move(m_found);
    }

private:
    /// Two lines of the same words, or two tags of one key.
    void compareLines(std::size_t left, std::size_t right)
    {
        const RBSongLine &a = m_left.aryLines()[left];
        const RBSongLine &b = m_right.aryLines()[right];
        if (const auto tag = tagOf(a)) {
            if (tag->value != tagOf(b)->value)
                m_found.push_back({Kind::Tag, left, right});
        } else if (!(a.aryTimes() == b.aryTimes())) {
            m_found.push_back({Kind::Times, left, right});
        } else if (a.lineText() != b.lineText()) {
            m_found.push_back({Kind::Stamps, left, right});
        }
    }

    /// Lines without a counterpart. Where as many come as go, each stands for the other.
    void compareBlock(const DiffBlock &block)
    {
        const std::size_t goes = block.leftEnd - block.leftBegin;
        const std::size_t comes = block.rightEnd - block.rightBegin;
        for (std::size_t i = 0; i < std::max(goes, comes); ++i) {
            const bool arePair = goes == comes
                && isTag(m_left.aryLines()[block.leftBegin + i])
                    == isTag(m_right.aryLines()[block.rightBegin + i]);
            if (arePair) {
                addPair(block.leftBegin + i, block.rightBegin + i);
                continue;
            }
            if (i < goes)
                m_found.push_back({Kind::OnlyLeft, block.leftBegin + i, std::nullopt});
            if (i < comes)
                m_found.push_back({Kind::OnlyRight, std::nullopt, block.rightBegin + i});
        }
    }

    void addPair(std::size_t left, std::size_t right)
    {
        const RBSongLine &a = m_left.aryLines()[left];
        const RBSongLine &b = m_right.aryLines()[right];
        const bool sameTimes = a.aryTimes() == b.aryTimes();
        m_found.push_back({isTag(a) ? Kind::Tag : sameTimes ? Kind::Words : Kind::Both, left, right});
    }

    const RBEditSong &m_left;
    const RBEditSong &m_right;
    std::vector<LyricDifference> m_found;
};

} // namespace

std::string_view nameOf(LyricDifference::Kind kind)
{
    constexpr std::array<std::string_view, 7> kNames
        = {"only-left", "only-right", "times", "words", "words-and-times", "tag", "word-stamps"};
    return kNames[static_cast<std::size_t>(kind)];
}

std::vector<LyricDifference> differences(const RBEditSong &left, const RBEditSong &right)
{
    return Comparison(left, right).compare();
}

std::optional<std::int64_t> commonShift(
    const RBEditSong &left, const RBEditSong &right, const std::vector<LyricDifference> &found)
{
    const auto timed = std::ranges::count_if(
        left.aryLines(), [](const RBSongLine &line) { return !isTag(line) && !line.aryTimes().empty(); });
    if (found.empty() || timed != std::ssize(found))
        return std::nullopt;
    std::optional<std::int64_t> shift;
    for (const LyricDifference &difference : found) {
        if (difference.kind != Kind::Times)
            return std::nullopt;
        const lyrics::TimeList &a = left.aryLines()[*difference.left].aryTimes();
        const lyrics::TimeList &b = right.aryLines()[*difference.right].aryTimes();
        for (std::size_t i = 0; i < a.size(); ++i) {
            std::int64_t moved = 0;
            const bool fits = a.size() == b.size() && !__builtin_sub_overflow(b[i], a[i], &moved);
            if (!fits || moved != shift.value_or(moved))
                return std::nullopt;
            shift = moved;
        }
    }
    return shift;
}

} // namespace cli
