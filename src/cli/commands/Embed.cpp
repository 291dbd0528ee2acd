// SPDX-License-Identifier: MIT
#include "cli/AudioFields.h"
#include "cli/Commands.h"
#include "cli/Run.h"
#include "cli/Utf8.h"
#include "media/tags/LyricEdits.h"

#include <unistd.h>

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Puts a lyric into the tags of an audio file, byte for byte: into the field that
holds its lyric now and its copies, or the usual one of its format; --field chooses
others. No
other field and no byte of the sound changes; the new file is made beside the old
one, read back and compared, and only then takes its place. An empty lyric, which
takes the field away, is refused without --force: it is what a pipeline leaves whose
first part failed.

With --beside every operand is an audio file, or a folder of them, and each gets the
lyric of the .lrc file of the same name beside it; in a folder, a song without one is
passed over.

A field that holds times of its own, SYLT, can hold timed lines and nothing else:
when it is the lyric's field, and the lyric says more, the whole lyric goes into the
usual field besides.
)";
constexpr std::string_view kExamples = R"(  lrctool embed song.mp3 song.lrc

  # what would it change?
  lrctool embed --dry-run song.mp3 song.lrc

  # into the fields that two kinds of players read
  lrctool embed --field LYRICS --field SYNCEDLYRICS song.flac song.lrc

  # a whole library
  lrctool embed --beside ~/Music

  # a song's own lyric, half a second later
  lrctool extract song.mp3 | lrctool shift +0.5s | lrctool embed song.mp3 -
)";
constexpr Option kOptions[]
    = {Option::Field, Option::Beside, Option::DryRun, Option::Force, Option::Json, Option::Encoding,
        Option::GuessEncoding, Option::FilesFrom, Option::Null, Option::Jobs, Option::Quiet, Option::Color};

tags::Outcome<std::vector<tags::FieldEdit>> editsFor(
    const AudioFields &file, const std::vector<tags::LyricPlace> &places, const std::string &lyric)
{
    if (places.empty())
        return tags::lyricEdits(file.audio.lyricFields, lyric);
    std::vector<tags::FieldEdit> edits;
    for (const tags::LyricPlace &place : places)
        edits.push_back({place, lyric});
    return edits;
}

/// Reads the lyric from `source` and puts it in.
void embed(const Input &source, Report &report)
{
    const Invocation &invocation = report.invocation();
    const Lyric lyric = readLyric(invocation, source);
    if (!lyric.refusal.empty())
        return report.refuse(source.label(), lyric.refusal);
    if (!lyric.remark.empty())
        report.remark(source.label(), lyric.remark);
    if (!invocation.has(Option::Force)
        && (!isUtf8(lyric.text) || lyric.text.find('\0') != std::string::npos)) {
        return report.refuse(source.label(),
            "this is no lyric in UTF-8; --guess-encoding or --encoding reads other encodings, --force takes "
            "the "
            "bytes as they are.");
    }
    if (lyric.text.empty() && !invocation.has(Option::Force))
        return report.refuse(source.label(), "the lyric is empty; --force takes the song's lyric out.");
    const auto file = readAudioFields(report);
    if (!file)
        return;
    const auto places = placesNamedBy(Option::Field, file->fields, report);
    if (!places)
        return;
    const auto edits = editsFor(*file, *places, lyric.text);
    if (edits.ok())
        editFields(*file, edits.value(), report);
    else
        report.refuse(edits.failure().message.english());
}

Verdict embedOne(const Invocation &invocation)
{
    if (invocation.operands().size() != 2)
        return wrongUse(invocation, "Name an audio file and a lyric; with --beside, audio files alone.");
    const std::string &name = invocation.operands().back();
    const Input source{name, name == "-", false};
    InputList list;
    list.inputs.push_back({invocation.operands().front(), false, false});
    if (invocation.has(Option::FilesFrom) || invocation.has(Option::Null))
        list.wrongUse = "A list of files goes with --beside.";
    return forEachInput(invocation, list, [&source](Report &report) { embed(source, report); });
}

Verdict embedBeside(const Invocation &invocation)
{
    InputList list = findInputs(invocation, invocation.operands(), kAudioEndings);
    for (const Input &input : list.inputs) {
        if (input.isStandardInput)
            list.wrongUse = "Name an audio file or a folder; they cannot come from standard input.";
    }
    return forEachInput(invocation, list, [](Report &report) {
        const Input source{lyricPathBeside(report.input().path), false, false};
        const bool isThere = access(source.path.c_str(), F_OK) == 0;
        if (isThere || !report.input().isFound)
            embed(source, report);
    });
}

Verdict run(const Invocation &invocation)
{
    if (const std::string fault = faultOfEncoding(invocation); !fault.empty())
        return wrongUse(invocation, fault);
    return invocation.has(Option::Beside) ? embedBeside(invocation) : embedOne(invocation);
}

} // namespace

const CommandInfo kEmbed{"embed", "AUDIO LYRIC | --beside AUDIO…",
    "puts a lyric into the tags of an audio file", kDescription, kExamples, kOptions, 0, kAnyNumber, run};

} // namespace cli
