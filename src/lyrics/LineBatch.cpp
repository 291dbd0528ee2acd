// SPDX-License-Identifier: MIT
#include "lyrics/LineBatch.h"

#include "lyrics/LineAccess.h"

#include <algorithm>
#include <cstring>

namespace lyrics {
namespace {

/// Behind the last line of the run from `first` that refers to the same block.
std::size_t sameBlockEnd(std::span<const RBSongLine> lines, std::size_t first)
{
    const TextBlock *block = LineAccess::block(lines[first]);
    std::size_t last = first + 1;
    while (last < lines.size() && LineAccess::block(lines[last]) == block)
        ++last;
    return last;
}

/// Behind the last line of the run from `first` in which both sides are as they were read and of one piece,
/// cut in the same places and read in the same way.
std::size_t sameCutEnd(std::span<const RBSongLine> a, std::span<const RBSongLine> b, std::size_t first)
{
    const std::size_t beginA = LineAccess::begin(a[first]);
    const std::size_t beginB = LineAccess::begin(b[first]);
    std::size_t last = first;
    std::size_t length = 0;
    while (last < a.size() && LineAccess::isUntouched(a[last]) && LineAccess::isUntouched(b[last])
        && LineAccess::block(a[last]) == LineAccess::block(a[first])
        && LineAccess::block(b[last]) == LineAccess::block(b[first])
        && LineAccess::begin(a[last]) - beginA == length && LineAccess::begin(b[last]) - beginB == length
        && LineAccess::isReadAlike(a[last], b[last])) {
        length += LineAccess::spelling(a[last]).size();
        ++last;
    }
    return last;
}

bool haveSameBytes(std::span<const RBSongLine> a, std::span<const RBSongLine> b)
{
    const std::size_t length = LineAccess::end(a.back()) - LineAccess::begin(a.front());
    return std::memcmp(LineAccess::spelling(a.front()).data(), LineAccess::spelling(b.front()).data(), length)
        == 0;
}

} // namespace

std::vector<RBSongLine> copyTogether(std::span<const RBSongLine> lines)
{
    std::vector<RBSongLine> copies;
    copies.reserve(lines.size());
    for (std::size_t i = 0; i < lines.size();) {
        const std::size_t last = sameBlockEnd(lines, i);
        LineAccess::appendCopies(copies, lines.subspan(i, last - i));
        i = last;
    }
    return copies;
}

void releaseTogether(std::span<RBSongLine> lines) noexcept
{
    TextBlock *block = nullptr;
    std::size_t count = 0;
    for (RBSongLine &line : lines) {
        TextBlock *next = LineAccess::takeBlock(line);
        if (next != block) {
            if (block)
                block->release(count);
            block = next;
            count = 0;
        }
        ++count;
    }
    if (block)
        block->release(count);
}

bool equalTogether(std::span<const RBSongLine> a, std::span<const RBSongLine> b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size();) {
        const std::size_t last = sameCutEnd(a, b, i);
        if (last > i && haveSameBytes(a.subspan(i, last - i), b.subspan(i, last - i))) {
            i = last;
            continue;
        }
        const std::size_t end = std::max(last, i + 1);
        for (; i < end; ++i) {
            if (!(a[i] == b[i]))
                return false;
        }
    }
    return true;
}

} // namespace lyrics
