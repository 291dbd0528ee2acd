// SPDX-License-Identifier: MIT
#include "lyrics/LineOrder.h"

#include "lyrics/LineAccess.h"
#include "lyrics/PreviewOrder.h"
#include "lyrics/WordStamps.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lyrics {
namespace {

bool isTimed(const RBSongLine &line)
{
    return !isPreviewTag(line) && !line.aryTimes().empty();
}

std::int64_t startOf(const RBSongLine &line)
{
    return *std::min_element(line.aryTimes().begin(), line.aryTimes().end());
}

/// What must be equal for lines to be one: the words, and how far from the line's time each stamp is.
std::string contentOf(const RBSongLine &line)
{
    const std::vector<WordStamp> stamps = wordStamps(line);
    const std::string_view text = line.lineText();
    std::string content;
    std::size_t from = 0;
    for (const WordStamp &stamp : stamps) {
        content += text.substr(from, stamp.begin - from);
        // No text has a line end, so this is taken for no other.
        std::int64_t distance = 0;
        const bool isFar = __builtin_sub_overflow(stamp.millis, line.aryTimes()[0], &distance);
        content += isFar ? "\nfar" : "\n";
        content += std::to_string(isFar ? stamp.millis : distance);
        content += stamp.isAngle ? ">" : "]";
        from = stamp.end;
    }
    content += text.substr(from);
    return content;
}

bool canCollapse(const RBSongLine &line)
{
    return isTimed(line) && !line.lineText().empty() && (line.aryTimes().size() == 1 || !hasWordStamps(line));
}

/// For each line whether untimed text follows that belongs to it.
std::vector<bool> areFollowedByText(const std::vector<RBSongLine> &lines)
{
    std::vector<bool> followed(lines.size(), false);
    bool textBehind = false;
    for (std::size_t i = lines.size(); i-- > 0;) {
        const RBSongLine &line = lines[i];
        followed[i] = textBehind;
        if (isTimed(line))
            textBehind = false;
        else if (!isPreviewTag(line))
            textBehind = textBehind || !line.lineText().empty();
    }
    return followed;
}

} // namespace

std::size_t collapseRepeats(RBEditSong &song)
{
    auto &lines = song.aryLines();
    const std::vector<bool> isFollowed = areFollowedByText(lines);
    std::unordered_map<std::string, std::size_t> firstRows;
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < lines.size(); ++row) {
        if (!canCollapse(std::as_const(lines)[row]))
            continue;
        const auto [first, isNew] = firstRows.try_emplace(contentOf(lines[row]), row);
        if (isNew || isFollowed[row])
            continue;
        for (const std::int64_t millis : std::as_const(lines)[row].aryTimes())
            lines[first->second].appendTime(millis);
        rows.push_back(row);
    }
    song.deleteLineAtIndexs(rows);
    return rows.size();
}

bool sortByTime(RBEditSong &song)
{
    auto &lines = song.aryLines();
    // The rows that are no tags, each with the start of the timed line that it follows.
    std::vector<std::size_t> rows;
    std::vector<std::pair<bool, std::int64_t>> starts;
    std::pair<bool, std::int64_t> start{false, 0};
    for (std::size_t row = 0; row < lines.size(); ++row) {
        const RBSongLine &line = lines[row];
        if (isPreviewTag(line))
            continue;
        if (!line.aryTimes().empty())
            start = {true, startOf(line)};
        rows.push_back(row);
        starts.push_back(start);
    }
    std::vector<std::size_t> order(rows.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(),
        [&starts](std::size_t a, std::size_t b) { return starts[a] < starts[b]; });
    if (std::is_sorted(order.begin(), order.end()))
        return false;
    std::vector<RBSongLine> sorted;
    sorted.reserve(rows.size());
    for (const std::size_t from : order)
        sorted.push_back(std::move(lines[rows[from]]));
    for (std::size_t i = 0; i < rows.size(); ++i)
        lines[rows[i]] = std::move(sorted[i]);
    return true;
}

} // namespace lyrics
