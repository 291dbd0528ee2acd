// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/LineDiff.h"
#include "cli/LineView.h"
#include "cli/Transform.h"
#include "lyrics/TagSpans.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Writes a lyric in one canonical form. It is never done unasked, and --dry-run shows
what it would change. Words, the order of lines, blank lines and all tags stay.

  times        [mm:ss.xx], or [mm:ss.xxx] where two digits would lose something; no
               blanks between them; [00:99.00] becomes [01:39.00]
  tags         [key:value], each on a line of its own; ti, ar, al, by in small letters
  blanks       none at the beginnings and ends of lines
  line ends    LF, also after the last line; no byte-order mark

Word stamps stay as they are spelled, and so does a line with a [from-to] time.
)";
constexpr std::string_view kExamples = R"(  lrctool format --dry-run song.lrc
  lrctool format --in-place ~/Music/Album
)";

/// Whether the line has a time tag that says an end, too, which the canonical form has no place for.
std::vector<bool> rowsWithRanges(const RBEditSong &song)
{
    const std::vector<std::string_view> lines = physicalLines(song.songText());
    const std::vector<std::size_t> starts = song.physicalLineStarts();
    std::vector<bool> rows(song.aryLines().size(), false);
    for (std::size_t i = 0; i < lines.size() && i < starts.size(); ++i) {
        if (lines[i].find('-') == std::string_view::npos)
            continue;
        const auto spans = lyrics::tagSpans(lines[i], true).spans;
        const bool hasRange = std::ranges::any_of(spans, [&](const lyrics::TagSpan &span) {
            const std::string_view tag = lines[i].substr(span.begin, span.end - span.begin);
            const std::size_t digit = tag.find_first_of("0123456789");
            // A dash before the digits of a field is a sign.
            const std::size_t dash = tag.find('-', digit);
            return span.kind == lyrics::TagKind::Time && dash != std::string_view::npos
                && tag[dash - 1] != ':';
        });
        // Times stand in the last line of a physical one; tags may stand before it.
        const std::size_t last = (i + 1 < starts.size() ? starts[i + 1] : rows.size()) - 1;
        rows[last] = rows[last] || hasRange;
    }
    return rows;
}

/// The line as a new one, which is written in our form.
RBSongLine canonical(const RBSongLine &line)
{
    RBSongLine fresh;
    const auto tag = tagOf(line);
    if (line.isProperty()) {
        fresh.setPropertyStr(line.propertyStr());
        fresh.setIsProperty(true);
        fresh.updateWithText(line.displayText());
    } else if (tag) {
        fresh.updateWithText("[" + std::string(tag->key) + ":" + std::string(tag->value) + "]");
    } else {
        for (const std::int64_t millis : line.aryTimes())
            fresh.appendTime(millis);
        fresh.updateWithText(line.lineText());
    }
    return fresh;
}

/// What a line says, its word stamps included.
bool saysTheSame(const RBEditSong &a, const RBEditSong &b)
{
    return std::ranges::equal(a.aryLines(), b.aryLines(), [](const RBSongLine &x, const RBSongLine &y) {
        const auto left = tagOf(x);
        const auto right = tagOf(y);
        if (left && right)
            return left->key == right->key && left->value == right->value;
        return !left && !right && x.aryTimes() == y.aryTimes() && x.lineText() == y.lineText();
    });
}

bool format(RBEditSong &song, Report &report)
{
    const std::vector<bool> ranges = rowsWithRanges(song);
    RBEditSong fresh;
    for (std::size_t row = 0; row < song.aryLines().size(); ++row) {
        const RBSongLine &line = std::as_const(song).aryLines()[row];
        fresh.insertLine_atIndex(ranges[row] ? line : canonical(line), row);
    }
    fresh.updateSongText();
    RBEditSong again;
    again.buildWithLrcText(fresh.songText());
    if (!saysTheSame(song, again)) {
        report.refuse("in canonical form it would be read as something else, so it stays as it is.");
        return false;
    }
    song = std::move(fresh);
    return true;
}

Verdict run(const Invocation &invocation)
{
    return transform(invocation, invocation.operands(), format);
}

} // namespace

const CommandInfo kFormat{"format", "[FILE…]", "writes the canonical form, on request only", kDescription,
    kExamples, kTransformOptions, 0, kAnyNumber, run};

} // namespace cli
