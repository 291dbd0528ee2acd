// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/Transform.h"
#include "lyrics/LineOrder.h"

namespace cli {
namespace {

constexpr std::string_view kExpandDescription
    = R"(Makes each line of several times as many lines of one time. The line stays where
it stands with its earliest time; each further time becomes a line before the
first later line that starts after it.
)";
constexpr std::string_view kExpandExamples = R"(  # [00:10.00][00:40.00]chorus becomes two lines
  lrctool expand song.lrc
  lrctool expand --dry-run ~/Music
)";
constexpr std::string_view kCollapseDescription
    = R"(Makes lines of equal words one line that has the times of all of them, where the
first of them stood. Only timed lines with words take part; a line that untimed
text follows stays where it is. A time that joins another line is written anew,
[01:02.30] or [01:02.305]; those that stood there keep their spelling.
)";
constexpr std::string_view kCollapseExamples
    = R"(  # a chorus sung three times becomes one line with three times
  lrctool collapse song.lrc
)";
constexpr std::string_view kSortDescription
    = R"(Sorts the lines by their earliest times. Lines of one time keep their order, so
that a translation stays below its original; untimed text and blank lines stay
with the line that they follow, and tags keep their rows.
)";
constexpr std::string_view kSortExamples = R"(  # see what would move, then do it
  lrctool sort --dry-run song.lrc
  lrctool sort --in-place song.lrc
)";

Verdict runExpand(const Invocation &invocation)
{
    return transform(invocation, invocation.operands(), [](RBEditSong &song, Report &) {
        lyrics::expandRepeats(song);
        return true;
    });
}

Verdict runCollapse(const Invocation &invocation)
{
    return transform(invocation, invocation.operands(), [](RBEditSong &song, Report &) {
        lyrics::collapseRepeats(song);
        return true;
    });
}

Verdict runSort(const Invocation &invocation)
{
    return transform(invocation, invocation.operands(), [](RBEditSong &song, Report &) {
        lyrics::sortByTime(song);
        return true;
    });
}

} // namespace

const CommandInfo kExpand{"expand", "[FILE…]", "gives each repeat a line of its own", kExpandDescription,
    kExpandExamples, kTransformOptions, 0, kAnyNumber, runExpand};
const CommandInfo kCollapse{"collapse", "[FILE…]", "makes one line of repeats", kCollapseDescription,
    kCollapseExamples, kTransformOptions, 0, kAnyNumber, runCollapse};
const CommandInfo kSort{"sort", "[FILE…]", "sorts the lines by time", kSortDescription, kSortExamples,
    kTransformOptions, 0, kAnyNumber, runSort};

} // namespace cli
