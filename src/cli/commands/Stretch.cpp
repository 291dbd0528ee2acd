// SPDX-License-Identifier: MIT
#include "lyrics/Stretch.h"

#include "cli/Commands.h"
#include "cli/TimeText.h"
#include "cli/Transform.h"

#include <optional>
#include <vector>

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Moves the times so that each anchor FROM stands at TO; between anchors the times
follow evenly, and before the first and after the last as between the nearest
two. That is what a lyric needs that was made for another recording: it drifts.
Anchors are times of the lyric as it is: 0:12.00=0:12.50, or 12s=12.5s. One
anchor alone is a shift. A time that changes is written anew: [01:02.30], or
[01:02.305] where it is no whole hundredth; the others keep their spelling.
)";
constexpr std::string_view kExamples = R"(  # the first line is half a second late, the last one two seconds
  lrctool stretch -a 0:12.00=0:12.50 -a 3:40.00=3:42.00 song.lrc
)";
constexpr Option kOptions[]
    = {Option::Anchor, Option::InPlace, Option::DryRun, Option::Json, Option::Encoding, Option::GuessEncoding,
        Option::FilesFrom, Option::Null, Option::Jobs, Option::Quiet, Option::Color};

std::optional<lyrics::Anchor> parseAnchor(std::string_view text)
{
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos)
        return std::nullopt;
    const auto from = parsePosition(text.substr(0, equals));
    const auto to = parsePosition(text.substr(equals + 1));
    return from && to ? std::optional(lyrics::Anchor{*from, *to}) : std::nullopt;
}

std::string faultOf(lyrics::StretchResult result)
{
    switch (result) {
    case lyrics::StretchResult::Done:
        return {};
    case lyrics::StretchResult::NoAnchor:
        return "Give at least one --anchor FROM=TO, as 0:12.00=0:12.50.";
    case lyrics::StretchResult::AnchorNegative:
        return "An anchor cannot stand below zero.";
    case lyrics::StretchResult::AnchorsCollide:
        break;
    }
    return "Two anchors begin at one time, or turn the order of times round.";
}

Verdict run(const Invocation &invocation)
{
    std::vector<lyrics::Anchor> anchors;
    for (const std::string_view text : invocation.values(Option::Anchor)) {
        const auto anchor = parseAnchor(text);
        if (!anchor)
            return wrongUse(
                invocation, "'" + std::string(text) + "' is no anchor; write FROM=TO, as 0:12.00=0:12.50.");
        anchors.push_back(*anchor);
    }
    if (const std::string fault = faultOf(lyrics::checkAnchors(anchors)); !fault.empty())
        return wrongUse(invocation, fault);
    return transform(invocation, invocation.operands(), [&anchors](RBEditSong &song, Report &) {
        return lyrics::stretchTimes(song, anchors) == lyrics::StretchResult::Done;
    });
}

} // namespace

const CommandInfo kStretch{"stretch", "--anchor FROM=TO… [FILE…]",
    "moves the times between two or more anchors", kDescription, kExamples, kOptions, 0, kAnyNumber, run};

} // namespace cli
