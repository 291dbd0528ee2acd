// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/TimeText.h"
#include "cli/Transform.h"
#include "lyrics/WordStamps.h"

#include <algorithm>

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Moves every time of a lyric by AMOUNT, word stamps and ends of ranges included. A
plus (or nothing) is later, a minus earlier. AMOUNT is 500ms, 0.5s or 0:01.50. A
time that would fall below zero stops there, and is told. A time that changes is
written anew: [01:02.30], or [01:02.305] where it is no whole hundredth.
)";
constexpr std::string_view kExamples = R"(  # half a second later, shown; then over the file
  lrctool shift +0.5s song.lrc
  lrctool shift +0.5s --in-place song.lrc

  # 120 ms earlier, in a whole folder; first only what would change
  lrctool shift -120ms --dry-run ~/Music/Album
  lrctool shift -120ms --in-place ~/Music/Album
)";

/// How many of the lines stop at zero.
std::size_t shiftAll(RBEditSong &song, std::int64_t amount)
{
    std::size_t cut = 0;
    for (RBSongLine &line : song.aryLines()) {
        cut += lyrics::isShiftCut(line, amount) ? 1 : 0;
        line.shiftAllTime(amount);
    }
    return cut;
}

Verdict run(const Invocation &invocation)
{
    const auto amount = parseAmount(invocation.operands().front());
    if (!amount) {
        return wrongUse(invocation,
            "'" + invocation.operands().front() + "' is no amount of time; write 500ms, -0.5s or 0:01.50.");
    }
    const auto files = std::span(invocation.operands()).subspan(1);
    return transform(invocation, files, [amount = *amount](RBEditSong &song, Report &report) {
        if (const std::size_t cut = shiftAll(song, amount); cut > 0) {
            report.remark("in " + std::to_string(cut) + (cut == 1 ? " line" : " lines")
                + " a time stops at zero, so shifting back does not restore it.");
        }
        return true;
    });
}

} // namespace

const CommandInfo kShift{"shift", "AMOUNT [FILE…]", "moves all times by an amount", kDescription, kExamples,
    kTransformOptions, 1, kAnyNumber, run};

} // namespace cli
