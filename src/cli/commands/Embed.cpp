// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/LineDiff.h"
#include "cli/Run.h"
#include "media/tags/AudioTags.h"
#include "media/tags/SaveLyric.h"

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Puts a lyric into the tags of an audio file, byte for byte: into the field that
holds its lyric now, or the usual one of its format. No other field and no byte of
the sound changes; the new file is made beside the old one, read back and compared,
and only then takes its place. An empty lyric, which takes the field away, is refused
without --force: it is what a pipeline leaves whose first part failed.

Choosing another field, and several fields at once, is not there yet.
)";
constexpr std::string_view kExamples = R"(  lrctool embed song.mp3 song.lrc

  # what would it change?
  lrctool embed --dry-run song.mp3 song.lrc

  # a song's own lyric, half a second later
  lrctool extract song.mp3 | lrctool shift +0.5s | lrctool embed song.mp3 -
)";
constexpr Option kOptions[] = {Option::DryRun, Option::Force, Option::Json, Option::Encoding,
    Option::GuessEncoding, Option::Quiet, Option::Color};

void answer(Report &report, bool isChanged, bool isWritten)
{
    if (!report.invocation().has(Option::Json))
        return;
    JsonWriter json = report.beginJson();
    json.key("changed").boolean(isChanged).key("written").boolean(isWritten);
    report.endJson(json);
}

void showChange(const std::string &before, const std::string &after, Report &report)
{
    if (before == after)
        report.remark("nothing would change.");
    else if (!report.invocation().has(Option::Json))
        report.out() += changesShown(before, after, report.invocation().usesColor());
    answer(report, before != after, false);
}

void embed(const std::string &lyric, Report &report)
{
    const std::string &path = report.input().path;
    const tags::Outcome<tags::AudioTags> audio = tags::read(path);
    if (!audio.ok())
        return report.refuse(audio.failure().message);
    if (report.invocation().has(Option::DryRun))
        return showChange(audio.value().lyric.value_or(""), lyric, report);
    const tags::Outcome<tags::Saved> saved = tags::saveLyric(path, lyric, audio.value().state);
    if (!saved.ok())
        return report.refuse(saved.failure().message);
    if (!saved.value().remark.empty())
        report.remark(saved.value().remark);
    answer(report, saved.value().written, saved.value().written);
}

Verdict run(const Invocation &invocation)
{
    const std::string &name = invocation.operands().back();
    const Input source{name, name == "-", false};
    if (const std::string fault = faultOfEncoding(invocation); !fault.empty())
        return wrongUse(invocation, fault);
    InputList list;
    list.inputs.push_back({invocation.operands().front(), false, false});
    return forEachInput(invocation, list, [&](Report &report) {
        const Lyric lyric = readLyric(invocation, source);
        if (!lyric.refusal.empty())
            return report.refuse(source.label(), lyric.refusal);
        if (!lyric.remark.empty())
            report.remark(source.label(), lyric.remark);
        if (lyric.text.empty() && !invocation.has(Option::Force))
            return report.refuse(source.label(), "the lyric is empty; --force takes the song's lyric out.");
        embed(lyric.text, report);
    });
}

} // namespace

const CommandInfo kEmbed{"embed", "AUDIO LYRIC", "puts a lyric into the tags of an audio file", kDescription,
    kExamples, kOptions, 2, 2, run};

} // namespace cli
