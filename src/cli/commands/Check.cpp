// SPDX-License-Identifier: MIT
#include "cli/AudioLength.h"
#include "cli/Commands.h"
#include "cli/IssueText.h"
#include "cli/Run.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Tells what is wrong with a lyric, or read differently by different players: one
line each, as compilers write them, with the line, the column (in characters) and
a word for the kind. Nothing is changed. Errors and warnings make the exit status
1; hints alone do not. A file without a finding is passed over in silence.

With --audio, lines that are sung after the end of the audio are told, too. The
length is what the file's headers say. With --beside-audio, an audio file that tells
none, and a lyric that was named and has no song beside it, are refused; in a folder
a lyric without a song is only checked in itself.
)";
constexpr std::string_view kExamples = R"(  lrctool check song.lrc

  # a whole library, on all cores; how often is which kind met?
  lrctool check ~/Music | grep -o '\[[a-z-]*\]$' | sort | uniq -c

  # against the song
  lrctool check --audio song.mp3 song.lrc
  lrctool check --beside-audio ~/Music

  # on many machines, and one JSON object a line
  find /music -name '*.lrc' | parallel --pipe -S host1,host2 lrctool check --json --files-from -
)";
constexpr Option kOptions[] = {Option::Audio, Option::BesideAudio, Option::Json, Option::Encoding,
    Option::GuessEncoding, Option::FilesFrom, Option::Null, Option::Jobs, Option::Quiet, Option::Color};

void addPastEnd(std::vector<lyrics::Issue> &issues, std::string_view text, std::int64_t audioMillis)
{
    std::vector<lyrics::Issue> late = issuesPastEnd(text, audioMillis);
    std::move(late.begin(), late.end(), std::back_inserter(issues));
    std::ranges::stable_sort(issues, {}, &lyrics::Issue::line);
}

/// Adds what the audio file beside the lyric tells. \return why it could not, as a sentence; empty when it
/// did.
std::string compareWithAudioBeside(std::vector<lyrics::Issue> &issues, std::string_view text, Report &report)
{
    const std::string path = audioBeside(report.input().path);
    if (path.empty()) {
        const std::string reason = "not compared: there is no audio file of the same name beside it.";
        if (!report.input().isFound)
            report.refuse(reason);
        return reason;
    }
    const AudioLength audio = lengthOfAudio(path);
    if (audio.refusal.empty()) {
        addPastEnd(issues, text, audio.millis);
        return {};
    }
    const std::string reason = "not compared with " + path + ": " + audio.refusal;
    report.refuse(reason);
    return reason;
}

void tell(const std::vector<lyrics::Issue> &issues, const std::string &notCompared, Report &report)
{
    const bool isFinding = std::ranges::any_of(
        issues, [](const lyrics::Issue &issue) { return issue.severity != lyrics::IssueSeverity::Hint; });
    if (isFinding)
        report.noteFindings();
    if (report.invocation().has(Option::Json)) {
        JsonWriter json = report.beginJson();
        json.key("issues");
        addIssues(json, issues);
        if (!notCompared.empty())
            json.key("not_compared").string(notCompared);
        report.endJson(json);
        return;
    }
    const bool inColor = report.invocation().usesColor();
    for (const lyrics::Issue &issue : issues)
        report.out() += issueShown(issue, report.input().label(), inColor);
}

Verdict run(const Invocation &invocation)
{
    InputList list = findInputs(invocation, invocation.operands(), kLyricEndings);
    const bool hasInput = std::ranges::any_of(list.inputs, &Input::isStandardInput);
    if (hasInput && invocation.has(Option::BesideAudio))
        list.wrongUse = "Standard input has nothing beside it; --audio FILE names the song.";
    AudioLength audio;
    if (invocation.has(Option::Audio)) {
        const std::string path(invocation.value(Option::Audio));
        if (list.wrongUse.empty() && (list.isSeveral || invocation.has(Option::BesideAudio)))
            return wrongUse(invocation, "--audio is for one lyric; --beside-audio is for many.");
        audio = lengthOfAudio(path);
        if (!audio.refusal.empty()) {
            complain(invocation.around(), path + ": " + audio.refusal);
            return Verdict::Findings;
        }
    }
    return forEachLyric(invocation, list, [&audio](const Lyric &lyric, Report &report) {
        std::vector<lyrics::Issue> issues = lyrics::issuesOf(lyric.text);
        std::string notCompared;
        if (audio.millis > 0)
            addPastEnd(issues, lyric.text, audio.millis);
        else if (report.invocation().has(Option::BesideAudio))
            notCompared = compareWithAudioBeside(issues, lyric.text, report);
        tell(issues, notCompared, report);
    });
}

} // namespace

const CommandInfo kCheck{"check", "[FILE…]", "tells what is wrong, also in a whole library", kDescription,
    kExamples, kOptions, 0, kAnyNumber, run};

} // namespace cli
