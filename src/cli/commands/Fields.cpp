// SPDX-License-Identifier: MIT
#include "cli/AudioFields.h"
#include "cli/Commands.h"
#include "cli/Run.h"
#include "cli/Utf8.h"
#include "lyrics/Millis.h"

#include <algorithm>

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Shows the lyric fields of audio files: their names, languages and descriptions, how
long each is, whether it holds time tags, and whether it is stale: whether it says
something else than the lyric. The one with the asterisk is the lyric of the file:
'extract' writes it, and 'embed' replaces it. The content tells what kind of file
it is, not the name.

Players often read one field alone. --equal brings the stale ones to what the lyric
says: fields with times get the whole lyric, the others its words. --clear takes one
out. Both change nothing else in the file; --dry-run shows what they would do.
)";
constexpr std::string_view kExamples = R"(  lrctool fields song.mp3

  # which songs have no lyric?
  lrctool fields --json ~/Music | jq -r 'select(.fields == []) | .file'

  # what would have to change for every player to show the same?
  lrctool fields --equal --dry-run ~/Music

  lrctool fields --clear UNSYNCEDLYRICS song.flac
)";
constexpr Option kOptions[] = {Option::Equal, Option::Clear, Option::DryRun, Option::Json, Option::FilesFrom,
    Option::Null, Option::Jobs, Option::Quiet, Option::Color};

std::size_t countLines(std::string_view text)
{
    const auto ends = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    return ends + (text.empty() || text.ends_with('\n') ? 0 : 1);
}

void write(const AudioFields &file, Report &report)
{
    JsonWriter json = report.beginJson();
    json.key("duration_ms").number(lyrics::millisFromSeconds(file.audio.duration));
    json.key("fields").beginArray();
    int number = 0;
    for (const tags::FieldSet::Entry &entry : file.fields.entries()) {
        const tags::LyricField &field = entry.field;
        json.beginObject().key("number").number(++number).key("tag").string(field.tag).key("name").string(
            field.name);
        json.key("language").string(field.language).key("description").string(field.description);
        json.key("is_lyric").boolean(entry.isLyric).key("has_times").boolean(entry.hasTimes);
        json.key("is_synchronised").boolean(field.synchronised).key("is_stale").boolean(entry.isStale);
        json.key("text").string(field.text).endObject();
    }
    json.endArray().key("could_be_added").beginArray();
    for (const std::string &name : file.fields.newNames())
        json.string(name);
    json.endArray();
    report.endJson(json);
}

std::string rowOf(const tags::FieldSet::Entry &entry, std::size_t number)
{
    const std::size_t lines = countLines(entry.field.text);
    std::string row
        = (entry.isLyric ? "* " : "  ") + std::to_string(number) + ' ' + tags::labelOf(entry.field);
    row += ": " + std::to_string(lines) + (lines == 1 ? " line" : " lines");
    row += entry.field.synchronised ? ", synchronised"
        : entry.hasTimes            ? ", with time tags"
                                    : ", no time tags";
    return row + (entry.isStale ? ", stale" : "");
}

void show(const AudioFields &file, Report &report)
{
    std::string &out = report.out();
    if (report.isSeveral())
        out += "=== " + shown(report.input().label()) + "\n";
    if (file.fields.entries().empty())
        out += "no lyric fields\n";
    std::size_t number = 0;
    for (const tags::FieldSet::Entry &entry : file.fields.entries())
        out += shown(rowOf(entry, ++number)) + "\n";
}

/// What --clear and --equal ask for; a field that goes need not be made equal.
void change(const AudioFields &file, Report &report)
{
    const auto cleared = placesNamedBy(Option::Clear, file.fields, report);
    if (!cleared)
        return;
    std::vector<tags::FieldEdit> edits;
    for (const tags::LyricPlace &place : *cleared) {
        if (!place.field)
            return report.refuse("it has no field " + place.newName + " that could be taken out.");
        edits.push_back({place, {}});
    }
    if (report.invocation().has(Option::Equal)) {
        for (tags::FieldEdit &edit : file.fields.madeEqual()) {
            if (std::find(cleared->begin(), cleared->end(), edit.place) == cleared->end())
                edits.push_back(std::move(edit));
        }
    }
    editFields(file, edits, report);
}

Verdict run(const Invocation &invocation)
{
    InputList list = findInputs(invocation, invocation.operands(), kAudioEndings);
    for (const Input &input : list.inputs) {
        if (input.isStandardInput)
            list.wrongUse = "Name an audio file; it cannot come from standard input.";
    }
    const bool isChange = invocation.has(Option::Equal) || invocation.has(Option::Clear);
    if (invocation.has(Option::DryRun) && !isChange)
        list.wrongUse = "--dry-run goes with --equal or --clear; without them nothing is written.";
    return forEachInput(invocation, list, [isChange](Report &report) {
        const auto file = readAudioFields(report);
        if (!file)
            return;
        if (isChange)
            change(*file, report);
        else if (report.invocation().has(Option::Json))
            write(*file, report);
        else
            show(*file, report);
    });
}

} // namespace

const CommandInfo kFields{"fields", "AUDIO…", "shows the lyric fields of audio files, and makes them equal",
    kDescription, kExamples, kOptions, 0, kAnyNumber, run};

} // namespace cli
