// SPDX-License-Identifier: MIT
#include "cli/AudioFields.h"
#include "cli/Commands.h"
#include "cli/ReadFile.h"
#include "cli/Run.h"
#include "cli/Saver.h"

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Writes the lyric of an audio file to standard output, byte for byte as it stands in
the file's tags. Which field that is, 'fields' tells; --field chooses another.

--beside writes it to the .lrc file of the same name beside the song instead, for a
folder at once if you like. A song without a lyric in a folder is passed over, and
a file that is there and differs is left alone without --force.
)";
constexpr std::string_view kExamples = R"(  lrctool extract song.mp3 > song.lrc
  lrctool extract song.mp3 | lrctool check
  lrctool extract --field SYLT song.mp3

  # every song of an album
  lrctool extract --beside ~/Music/Album
)";
constexpr Option kOptions[] = {Option::Field, Option::Beside, Option::Force, Option::DryRun, Option::Json,
    Option::FilesFrom, Option::Null, Option::Jobs, Option::Quiet};

/// The text that was asked for; refused, or absent without a word where a folder holds a song without one.
std::optional<std::string> wantedText(const AudioFields &file, Report &report)
{
    if (!report.invocation().has(Option::Field)) {
        if (file.audio.lyric)
            return file.audio.lyric;
        if (!report.input().isFound)
            report.refuse("there is no lyric in it; 'lrctool embed' puts one in.");
        return std::nullopt;
    }
    const auto place = file.fields.find(report.invocation().value(Option::Field));
    if (place.ok() && place.value().field)
        return file.fields.entries()[*place.value().field].field.text;
    if (!report.input().isFound || !place.ok())
        report.refuse(place.ok() ? "it has no field " + place.value().newName + "."
                                 : place.failure().message.english());
    return std::nullopt;
}

void writeBeside(const std::string &text, Saver &saver, Report &report)
{
    const std::string path = lyricPathBeside(report.input().path);
    const bool isJson = report.invocation().has(Option::Json);
    const bool isDry = report.invocation().has(Option::DryRun);
    const FileText old = readFile(path);
    const bool isSame = old.ok() && old.bytes == text;
    if (!isDry && !isSame) {
        const SaveAnswer answer = saver.create(path, text, report.invocation().has(Option::Force));
        if (!answer.ok())
            return report.refuse(path, answer.refusal);
        if (!answer.remark.empty())
            report.remark(path, answer.remark);
    } else if (isDry && !isJson) {
        report.remark(isSame ? "nothing would change." : "would be written to " + path + ".");
    }
    if (isJson) {
        JsonWriter json = report.beginJson();
        json.key("lyric").string(path).key("written").boolean(!isDry && !isSame);
        report.endJson(json);
    }
}

void write(const std::string &text, Report &report)
{
    if (!report.invocation().has(Option::Json)) {
        report.out() += text;
        return;
    }
    JsonWriter json = report.beginJson();
    json.key("text").string(text);
    report.endJson(json);
}

Verdict run(const Invocation &invocation)
{
    InputList list = findInputs(invocation, invocation.operands(), kAudioEndings);
    const bool isBeside = invocation.has(Option::Beside);
    for (const Input &input : list.inputs) {
        if (input.isStandardInput)
            list.wrongUse = "Name an audio file; it cannot come from standard input.";
    }
    if (list.isSeveral && !isBeside && !invocation.has(Option::Json))
        list.wrongUse
            = "Several lyrics on standard output would run into each other; use --beside or --json.";
    if (!isBeside && (invocation.has(Option::Force) || invocation.has(Option::DryRun)))
        list.wrongUse = "Nothing is written over here; --force and --dry-run go with --beside.";
    Saver saver;
    return forEachInput(invocation, list, [&saver, isBeside](Report &report) {
        const auto file = readAudioFields(report);
        const auto text = file ? wantedText(*file, report) : std::nullopt;
        if (!text)
            return;
        if (isBeside)
            writeBeside(*text, saver, report);
        else
            write(*text, report);
    });
}

} // namespace

const CommandInfo kExtract{"extract", "AUDIO…", "writes the lyric of an audio file to standard output",
    kDescription, kExamples, kOptions, 0, kAnyNumber, run};

} // namespace cli
