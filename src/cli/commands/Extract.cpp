// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/Run.h"
#include "media/tags/AudioTags.h"

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Writes the lyric of an audio file to standard output, byte for byte as it stands in
the file's tags. Which field that is, 'fields' tells.
)";
constexpr std::string_view kExamples = R"(  lrctool extract song.mp3 > song.lrc
  lrctool extract song.mp3 | lrctool check
)";
constexpr Option kOptions[] = {Option::Json, Option::Quiet};

Verdict run(const Invocation &invocation)
{
    InputList list;
    list.inputs.push_back({invocation.operands().front(), false, false});
    return forEachInput(invocation, list, [](Report &report) {
        const tags::Outcome<tags::AudioTags> audio = tags::read(report.input().path);
        if (!audio.ok())
            return report.refuse(audio.failure().message);
        if (!audio.value().lyric)
            return report.refuse("there is no lyric in it; 'lrctool embed' puts one in.");
        if (!report.invocation().has(Option::Json)) {
            report.out() += *audio.value().lyric;
            return;
        }
        JsonWriter json = report.beginJson();
        json.key("text").string(*audio.value().lyric);
        report.endJson(json);
    });
}

} // namespace

const CommandInfo kExtract{"extract", "AUDIO", "writes the lyric of an audio file to standard output",
    kDescription, kExamples, kOptions, 1, 1, run};

} // namespace cli
