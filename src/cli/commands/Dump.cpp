// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/IssueText.h"
#include "cli/LineView.h"
#include "cli/Run.h"
#include "cli/TimeText.h"
#include "cli/Utf8.h"
#include "lyrics/RBEditSong.h"

#include <algorithm>
#include <vector>

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Shows a lyric as it is read: every line in order, blank ones included, with its
times, its text (word stamps are part of it) or its tag, and what is to be said
about it. Several tags on one line are shown one by one.

With --json: {"lines":[…],"issues":[…]}. A line is {"times_ms":[12340],"text":"…"}
or {"tag":["ti","…"]}; an issue has severity, line and column (from 1), code, text.
)";
constexpr std::string_view kExamples = R"(  lrctool dump song.lrc

  # all the texts, by a program that reads JSON
  lrctool dump --json song.lrc | jq -r '.lines[].text // empty'

  # a library, one JSON object a line, each with the name of its "file"
  lrctool dump --json ~/Music > library.jsonl
)";
constexpr Option kOptions[] = {Option::Json, Option::Encoding, Option::GuessEncoding, Option::FilesFrom,
    Option::Null, Option::Jobs, Option::Quiet, Option::Color};

void addLine(JsonWriter &json, const RBSongLine &line)
{
    json.beginObject();
    if (const auto tag = tagOf(line)) {
        json.key("tag").beginArray().string(tag->key).string(tag->value).endArray();
    } else {
        json.key("times_ms").beginArray();
        for (const std::int64_t millis : line.aryTimes())
            json.number(millis);
        json.endArray().key("text").string(line.lineText());
    }
    json.endObject();
}

void dumpJson(const RBEditSong &song, std::string_view text, Report &report)
{
    JsonWriter json = report.beginJson();
    json.key("lines").beginArray();
    for (const RBSongLine &line : song.aryLines())
        addLine(json, line);
    json.endArray().key("issues");
    addIssues(json, lyrics::issuesOf(text));
    report.endJson(json);
}

std::string timesShown(const RBSongLine &line)
{
    std::string times;
    for (const std::int64_t millis : line.aryTimes())
        times += (times.empty() ? "" : " ") + exactTime(millis);
    return times;
}

void showLine(std::string &out, const RBSongLine &line, std::size_t number)
{
    constexpr std::size_t kNumberWidth = 5;
    constexpr std::size_t kTimesWidth = 11;
    const auto tag = tagOf(line);
    const std::string left = tag ? "[" + std::string(tag->key) + "]" : timesShown(line);
    const std::string digits = std::to_string(number);
    std::string row(kNumberWidth - std::min(kNumberWidth, digits.size()), ' ');
    row += digits + "  " + shown(left);
    row.append(std::max(left.size() + 1, kTimesWidth) - left.size(), ' ');
    appendShown(row, tag ? tag->value : line.lineText());
    row.erase(row.find_last_not_of(' ') + 1);
    out += row + '\n';
}

void dumpText(const RBEditSong &song, std::string_view text, Report &report)
{
    if (report.isSeveral())
        report.out() += "=== " + shown(report.input().label()) + "\n";
    const std::vector<std::size_t> starts = song.physicalLineStarts();
    std::size_t physical = 0;
    for (std::size_t row = 0; row < song.aryLines().size(); ++row) {
        while (physical < starts.size() && starts[physical] <= row)
            ++physical;
        showLine(report.out(), song.aryLines()[row], physical);
    }
    for (const lyrics::Issue &issue : lyrics::issuesOf(text))
        report.out() += issueShown(issue, report.input().label(), report.invocation().usesColor());
}

Verdict run(const Invocation &invocation)
{
    const InputList list = findInputs(invocation, invocation.operands(), kLyricEndings);
    return forEachLyric(invocation, list, [](const Lyric &lyric, Report &report) {
        RBEditSong song;
        song.buildWithLrcText(lyric.text);
        if (report.invocation().has(Option::Json))
            dumpJson(song, lyric.text, report);
        else
            dumpText(song, lyric.text, report);
    });
}

} // namespace

const CommandInfo kDump{"dump", "[FILE…]", "shows the document as it is read", kDescription, kExamples,
    kOptions, 0, kAnyNumber, run};

} // namespace cli
