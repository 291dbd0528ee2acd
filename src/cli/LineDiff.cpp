// SPDX-License-Identifier: MIT
#include "cli/LineDiff.h"

#include "cli/Utf8.h"
#include "lyrics/LineEnds.h"

#include <algorithm>

namespace cli {
namespace {

// Texts further apart are not compared line by line.
constexpr std::ptrdiff_t kFarthest = 1000;

/// Myers' greedy algorithm: how far each diagonal reaches with ever more differences.
class Comparison
{
public:
    Comparison(std::span<const std::string_view> left, std::span<const std::string_view> right)
        : m_left(left), m_right(right), m_n(std::ssize(left)), m_m(std::ssize(right))
    { }

    std::vector<DiffBlock> blocks()
    {
        const std::ptrdiff_t most = std::min(m_n + m_m, kFarthest);
        for (std::ptrdiff_t d = 0; d <= most; ++d) {
            if (advance(d))
                return walkBack(d);
        }
        return {{0, m_left.size(), 0, m_right.size()}};
    }

private:
    /// The farthest x of diagonal k after d − 1 differences; the rows have room for −d … d.
    [[nodiscard]] std::ptrdiff_t reach(std::ptrdiff_t d, std::ptrdiff_t k) const
    {
        return m_reach[static_cast<std::size_t>(d)][static_cast<std::size_t>(k + d)];
    }

    [[nodiscard]] bool comesFromAbove(std::ptrdiff_t d, std::ptrdiff_t k) const
    {
        return k == -d || (k != d && reach(d - 1, k - 1) < reach(d - 1, k + 1));
    }

    bool advance(std::ptrdiff_t d)
    {
        m_reach.emplace_back(static_cast<std::size_t>(2 * d + 1));
        for (std::ptrdiff_t k = -d; k <= d; k += 2) {
            std::ptrdiff_t x = 0;
            if (d > 0)
                x = comesFromAbove(d, k) ? reach(d - 1, k + 1) : reach(d - 1, k - 1) + 1;
            while (x < m_n && x - k < m_m && x - k >= 0
                && m_left[static_cast<std::size_t>(x)] == m_right[static_cast<std::size_t>(x - k)])
                ++x;
            m_reach.back()[static_cast<std::size_t>(k + d)] = x;
            if (x >= m_n && x - k >= m_m)
                return true;
        }
        return false;
    }

    [[nodiscard]] std::vector<DiffBlock> walkBack(std::ptrdiff_t d) const
    {
        std::vector<DiffBlock> blocks;
        std::ptrdiff_t x = m_n;
        std::ptrdiff_t y = m_m;
        for (; d > 0; --d) {
            const bool isFromAbove = comesFromAbove(d, x - y);
            const std::ptrdiff_t k = x - y + (isFromAbove ? 1 : -1);
            const std::ptrdiff_t fromX = reach(d - 1, k);
            const std::ptrdiff_t fromY = fromX - k;
            addBefore(blocks, fromX, fromX + (isFromAbove ? 0 : 1), fromY, fromY + (isFromAbove ? 1 : 0));
            x = fromX;
            y = fromY;
        }
        std::ranges::reverse(blocks);
        return blocks;
    }

    static void addBefore(std::vector<DiffBlock> &blocks, std::ptrdiff_t leftBegin, std::ptrdiff_t leftEnd,
        std::ptrdiff_t rightBegin, std::ptrdiff_t rightEnd)
    {
        const DiffBlock block{
            std::size_t(leftBegin), std::size_t(leftEnd), std::size_t(rightBegin), std::size_t(rightEnd)};
        if (!blocks.empty() && blocks.back().leftBegin == block.leftEnd
            && blocks.back().rightBegin == block.rightEnd) {
            blocks.back().leftBegin = block.leftBegin;
            blocks.back().rightBegin = block.rightBegin;
        } else {
            blocks.push_back(block);
        }
    }

    std::span<const std::string_view> m_left;
    std::span<const std::string_view> m_right;
    std::ptrdiff_t m_n;
    std::ptrdiff_t m_m;
    std::vector<std::vector<std::ptrdiff_t>> m_reach;
};

std::string_view nameOfLineEnd(std::string_view lineEnd)
{
    if (lineEnd.empty())
        return "no line end";
    return lineEnd == "\n" ? "LF" : lineEnd == "\r" ? "CR" : "CRLF";
}

void addShownLine(std::string &out, char sign, std::string_view line, bool namesLineEnd, bool inColor)
{
    const std::string_view lineEnd = lyrics::lineEndOf(line);
    if (inColor)
        out += sign == '-' ? "\x1B[31m" : "\x1B[32m";
    out += sign;
    appendShown(out, line.substr(0, line.size() - lineEnd.size()));
    if (namesLineEnd)
        out.append(" (").append(nameOfLineEnd(lineEnd)).append(")");
    out += inColor ? "\x1B[m\n" : "\n";
}

bool differInLineEndAlone(std::span<const std::string_view> left, std::span<const std::string_view> right)
{
    const auto bare
        = [](std::string_view line) { return line.substr(0, line.size() - lyrics::lineEndOf(line).size()); };
    return std::ranges::equal(left, right, {}, bare, bare);
}

} // namespace

std::vector<DiffBlock> diffLines(
    std::span<const std::string_view> left, std::span<const std::string_view> right)
{
    const std::size_t shorter = std::min(left.size(), right.size());
    std::size_t begin = 0;
    while (begin < shorter && left[begin] == right[begin])
        ++begin;
    std::size_t end = 0;
    while (end < shorter - begin && left[left.size() - 1 - end] == right[right.size() - 1 - end])
        ++end;
    left = left.subspan(begin, left.size() - begin - end);
    right = right.subspan(begin, right.size() - begin - end);
    if (left.empty() && right.empty())
        return {};
    std::vector<DiffBlock> blocks = Comparison(left, right).blocks();
    for (DiffBlock &block : blocks) {
        block.leftBegin += begin;
        block.leftEnd += begin;
        block.rightBegin += begin;
        block.rightEnd += begin;
    }
    return blocks;
}

std::vector<std::string_view> physicalLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    const char *end = text.data() + text.size();
    lyrics::LineEndFinder finder(text.data(), end);
    for (const char *p = text.data(); p < end;) {
        const char *next = finder.lineEnd(finder.textEnd(p));
        lines.emplace_back(p, static_cast<std::size_t>(next - p));
        p = next;
    }
    return lines;
}

std::string changesShown(std::string_view before, std::string_view after, bool inColor)
{
    const auto left = physicalLines(before);
    const auto right = physicalLines(after);
    std::string out;
    for (const DiffBlock &block : diffLines(left, right)) {
        const auto goes = std::span(left).subspan(block.leftBegin, block.leftEnd - block.leftBegin);
        const auto comes = std::span(right).subspan(block.rightBegin, block.rightEnd - block.rightBegin);
        const bool namesLineEnds = differInLineEndAlone(goes, comes);
        out += "@@ line " + std::to_string(block.leftBegin + 1) + "\n";
        // Line for line where as many come as go: it is read more easily.
        const bool isPaired = goes.size() == comes.size();
        for (std::size_t i = 0; i < goes.size(); ++i) {
            addShownLine(out, '-', goes[i], namesLineEnds, inColor);
            if (isPaired)
                addShownLine(out, '+', comes[i], namesLineEnds, inColor);
        }
        for (std::size_t i = isPaired ? comes.size() : 0; i < comes.size(); ++i)
            addShownLine(out, '+', comes[i], namesLineEnds, inColor);
    }
    return out;
}

std::size_t countChanges(std::span<const DiffBlock> blocks)
{
    std::size_t count = 0;
    for (const DiffBlock &block : blocks)
        count += std::max(block.leftEnd - block.leftBegin, block.rightEnd - block.rightBegin);
    return count;
}

} // namespace cli
