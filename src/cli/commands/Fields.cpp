// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/Run.h"
#include "cli/Utf8.h"
#include "lyrics/Millis.h"
#include "media/tags/AudioTags.h"

#include <algorithm>

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Shows the lyric fields of audio files: their names, languages and descriptions, how
long each is, and whether it holds time tags. The one with the asterisk is the
lyric of the file: 'extract' writes it, and 'embed' replaces it. mp3, flac, m4a,
ogg and opus are read; the content tells which it is, not the name.

Choosing another field, and several fields at once, is not there yet.
)";
constexpr std::string_view kExamples = R"(  lrctool fields song.mp3

  # which songs have no lyric?
  lrctool fields --json ~/Music | jq -r 'select(.fields == []) | .file'
)";
constexpr Option kOptions[]
    = {Option::Json, Option::FilesFrom, Option::Null, Option::Jobs, Option::Quiet, Option::Color};

std::size_t countLines(std::string_view text)
{
    const auto ends = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    return ends + (text.empty() || text.ends_with('\n') ? 0 : 1);
}

void write(const tags::AudioTags &audio, Report &report)
{
    const auto main = tags::lyricFieldIndex(audio.lyricFields);
    JsonWriter json = report.beginJson();
    json.key("duration_ms").number(lyrics::millisFromSeconds(audio.duration));
    json.key("fields").beginArray();
    for (std::size_t i = 0; i < audio.lyricFields.size(); ++i) {
        const tags::LyricField &field = audio.lyricFields[i];
        json.beginObject().key("name").string(field.name).key("language").string(field.language);
        json.key("description").string(field.description);
        json.key("is_lyric").boolean(i == main).key("has_times").boolean(tags::holdsTimeTags(field.text));
        json.key("text").string(field.text).endObject();
    }
    json.endArray();
    report.endJson(json);
}

void show(const tags::AudioTags &audio, Report &report)
{
    const auto main = tags::lyricFieldIndex(audio.lyricFields);
    std::string &out = report.out();
    if (report.isSeveral())
        out += "=== " + shown(report.input().label()) + "\n";
    if (audio.lyricFields.empty())
        out += "no lyric fields\n";
    for (std::size_t i = 0; i < audio.lyricFields.size(); ++i) {
        const tags::LyricField &field = audio.lyricFields[i];
        std::string row = (i == main ? "* " : "  ") + field.name;
        if (!field.language.empty())
            row += " (" + field.language + ")";
        if (!field.description.empty())
            row += " \"" + field.description + "\"";
        const std::size_t lines = countLines(field.text);
        row += ": " + std::to_string(lines) + (lines == 1 ? " line" : " lines")
            + (tags::holdsTimeTags(field.text) ? ", with time tags" : ", no time tags");
        out += shown(row) + "\n";
    }
}

Verdict run(const Invocation &invocation)
{
    InputList list = findInputs(invocation, invocation.operands(), kAudioEndings);
    for (const Input &input : list.inputs) {
        if (input.isStandardInput)
            list.wrongUse = "Name an audio file; it cannot come from standard input.";
    }
    return forEachInput(invocation, list, [](Report &report) {
        const tags::Outcome<tags::AudioTags> audio = tags::read(report.input().path);
        if (!audio.ok())
            report.refuse(audio.failure().message);
        else if (report.invocation().has(Option::Json))
            write(audio.value(), report);
        else
            show(audio.value(), report);
    });
}

} // namespace

const CommandInfo kFields{"fields", "AUDIO…", "shows the lyric fields of audio files", kDescription,
    kExamples, kOptions, 0, kAnyNumber, run};

} // namespace cli
