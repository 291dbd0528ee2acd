// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/Transform.h"
#include "lyrics/OffsetTag.h"

namespace cli {
namespace {

using lyrics::BakeResult;
using lyrics::OffsetSense;

constexpr std::string_view kDescription
    = R"(Moves all times as the tag [offset:…] says and takes the tag out, which is the
only form that every player agrees on. Players differ in what a positive offset
does, so you have to say it: --positive earlier, as the best-known description
has it, or --positive later. Without it both are shown in words, and nothing is
changed.
)";
constexpr std::string_view kExamples = R"(  # what would it do?
  lrctool bake-offset song.lrc

  # the lines come too late in players that ignore the tag
  lrctool bake-offset --positive earlier --in-place song.lrc
)";
constexpr Option kOptions[] = {Option::Sense, Option::InPlace, Option::DryRun, Option::Json, Option::Encoding,
    Option::GuessEncoding, Option::FilesFrom, Option::Null, Option::Jobs, Option::Quiet, Option::Color};

void sayBoth(const RBEditSong &song, Report &report)
{
    for (const lyrics::OffsetTag &tag : lyrics::offsetTags(song)) {
        if (!tag.value)
            continue;
        const auto words
            = [&tag](OffsetSense sense) { return lyrics::offsetInWords(tag.value->millis, sense); };
        report.remark("[offset:" + tag.spelling
            + "]: --positive earlier: " + words(OffsetSense::PositiveIsEarlier)
            + "; --positive later: " + words(OffsetSense::PositiveIsLater) + ".");
    }
}

bool bake(RBEditSong &song, OffsetSense sense, Report &report)
{
    const lyrics::BakeOutcome outcome = lyrics::bakeOffset(song, sense);
    switch (outcome.result) {
    case BakeResult::Baked:
        if (outcome.clamped > 0)
            report.remark(std::to_string(outcome.clamped) + " times stop at zero.");
        return true;
    case BakeResult::NoOffset:
        report.remark("there is no offset tag; the lyric stays as it is.");
        return true;
    case BakeResult::NotANumber:
        report.refuse("its offset tag says no number; correct it or take it out first.");
        return false;
    case BakeResult::OffsetsDiffer:
        break;
    }
    report.refuse("it has offset tags of different values; take out those that do not hold.");
    return false;
}

/// Without a sense there is nothing to do but to tell.
bool refuseWithoutSense(const RBEditSong &song, Report &report)
{
    if (lyrics::offsetTags(song).empty()) {
        report.remark("there is no offset tag; the lyric stays as it is.");
        return true;
    }
    sayBoth(song, report);
    report.refuse("nothing is changed until you choose the sense with --positive.");
    return false;
}

Verdict run(const Invocation &invocation)
{
    const std::string_view sense = invocation.value(Option::Sense);
    return transform(invocation, invocation.operands(), [sense](RBEditSong &song, Report &report) {
        if (sense.empty())
            return refuseWithoutSense(song, report);
        return bake(
            song, sense == "earlier" ? OffsetSense::PositiveIsEarlier : OffsetSense::PositiveIsLater, report);
    });
}

} // namespace

const CommandInfo kBakeOffset{"bake-offset", "--positive SENSE [FILE…]",
    "moves the times as the offset tag says, and takes it out", kDescription, kExamples, kOptions, 0,
    kAnyNumber, run};

} // namespace cli
