// SPDX-License-Identifier: MIT
#include "cli/AudioFields.h"

#include "cli/LineDiff.h"
#include "cli/Utf8.h"
#include "media/tags/SaveLyric.h"

#include <algorithm>
#include <utility>

namespace cli {
namespace {

constexpr std::string_view kEveryField = "all";

void writeJson(const std::vector<tags::FieldSet::Change> &changes, bool isWritten, Report &report)
{
    JsonWriter json = report.beginJson();
    json.key("changed").boolean(!changes.empty()).key("written").boolean(isWritten);
    json.key("changes").beginArray();
    for (const tags::FieldSet::Change &change : changes) {
        json.beginObject().key("name").string(change.field.name);
        json.key("language").string(change.field.language);
        json.key("description").string(change.field.description);
        json.key("is_new").boolean(change.isNew).key("is_removed").boolean(change.after.empty());
        json.key("before").string(change.field.text).key("after").string(change.after).endObject();
    }
    json.endArray();
    report.endJson(json);
}

void show(const std::vector<tags::FieldSet::Change> &changes, Report &report)
{
    std::string &out = report.out();
    if (report.isSeveral() && !changes.empty())
        out += "=== " + shown(report.input().label()) + "\n";
    for (const tags::FieldSet::Change &change : changes) {
        out += shown(tags::labelOf(change.field));
        out += change.isNew ? ", a new field\n" : change.after.empty() ? ", taken out\n" : "\n";
        out += changesShown(change.field.text, change.after, report.invocation().usesColor());
    }
}

/// More than one field is more than the user may think of.
std::string summaryOf(const std::vector<tags::FieldSet::Change> &changes)
{
    std::string out;
    for (const tags::FieldSet::Change &change : changes) {
        out += (out.empty() ? "" : "; ") + shown(tags::labelOf(change.field));
        out += change.isNew ? " added" : change.after.empty() ? " taken out" : " written";
    }
    return out + '.';
}

} // namespace

std::optional<AudioFields> readAudioFields(Report &report)
{
    tags::Outcome<tags::AudioTags> audio = tags::read(report.input().path);
    if (!audio.ok()) {
        report.refuse(audio.failure().message.english());
        return std::nullopt;
    }
    tags::FieldSet fields(audio.value().lyricFields, audio.value().newFieldNames);
    audio.value().cover = std::string(); // may be large, and nobody here looks at it
    return AudioFields{std::move(audio.value()), std::move(fields)};
}

std::optional<std::vector<tags::LyricPlace>> placesNamedBy(
    Option option, const tags::FieldSet &fields, Report &report)
{
    std::vector<tags::LyricPlace> places;
    const auto add = [&places](const tags::LyricPlace &place) {
        if (std::find(places.begin(), places.end(), place) == places.end())
            places.push_back(place);
    };
    for (const std::string_view name : report.invocation().values(option)) {
        if (name == kEveryField) {
            for (std::size_t i = 0; i < fields.entries().size(); ++i)
                add({i, {}});
            continue;
        }
        const tags::Outcome<tags::LyricPlace> place = fields.find(name);
        if (!place.ok()) {
            report.refuse(place.failure().message.english());
            return std::nullopt;
        }
        add(place.value());
    }
    return places;
}

void editFields(const AudioFields &file, const std::vector<tags::FieldEdit> &edits, Report &report)
{
    const bool isJson = report.invocation().has(Option::Json);
    const bool isDry = report.invocation().has(Option::DryRun);
    const auto changes = file.fields.changes(edits);
    const std::string &path = report.input().path;
    const auto saved = isDry ? tags::tryFields(path, edits, file.audio.state)
                             : tags::saveFields(path, edits, file.audio.state);
    if (!saved.ok())
        return report.refuse(saved.failure().message.english());
    if (!saved.value().remark.empty())
        report.remark(saved.value().remark.english());
    if (isJson)
        return writeJson(changes, !isDry && saved.value().written, report);
    if (isDry && changes.empty())
        report.remark("nothing would change.");
    else if (isDry)
        show(changes, report);
    else if (changes.size() > 1)
        report.remark(summaryOf(changes));
}

std::string lyricPathBeside(const std::string &audioPath)
{
    const std::string ending = endingOf(audioPath);
    return (ending.empty() ? audioPath : audioPath.substr(0, audioPath.size() - ending.size() - 1)) + ".lrc";
}

} // namespace cli
