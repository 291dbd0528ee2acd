// SPDX-License-Identifier: MIT
#include "cli/Transform.h"

#include "cli/LineDiff.h"
#include "cli/Run.h"
#include "cli/Saver.h"
#include "lyrics/LineEnds.h"

namespace cli {
namespace {

std::string lines(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " line" : " lines");
}

/// What becomes of one lyric.
struct Result
{
    const Lyric &lyric;
    std::string text;

    [[nodiscard]] bool isChanged() const { return lyric.bytes() != text; }
};

void addChanges(JsonWriter &json, const Result &result)
{
    const auto left = physicalLines(result.lyric.text);
    const auto right = physicalLines(result.text);
    const auto add = [&json](std::string_view name, std::span<const std::string_view> some) {
        json.key(name).beginArray();
        for (const std::string_view line : some)
            json.string(line.substr(0, line.size() - lyrics::lineEndOf(line).size()));
        json.endArray();
    };
    json.key("changes").beginArray();
    for (const DiffBlock &block : diffLines(left, right)) {
        json.beginObject().key("line").number(static_cast<std::int64_t>(block.leftBegin + 1));
        add("before", std::span(left).subspan(block.leftBegin, block.leftEnd - block.leftBegin));
        add("after", std::span(right).subspan(block.rightBegin, block.rightEnd - block.rightBegin));
        json.endObject();
    }
    json.endArray();
}

void showDryRun(const Result &result, Report &report)
{
    const bool inColor = report.invocation().usesColor();
    const std::string changes = changesShown(result.lyric.text, result.text, inColor);
    if (!result.isChanged()) {
        report.remark("nothing would change.");
        return;
    }
    const auto blocks = diffLines(physicalLines(result.lyric.text), physicalLines(result.text));
    report.remark(blocks.empty() ? "only the encoding would change, to UTF-8."
                                 : lines(countChanges(blocks)) + " would change.");
    if (report.isSeveral() && !changes.empty())
        report.out() += "=== " + report.input().label() + "\n";
    report.out() += changes;
}

/// \return whether the file was written.
bool saveInPlace(const Result &result, Report &report, Saver &saver)
{
    if (!result.isChanged())
        return false;
    const SaveAnswer answer = saver.replace(report.input().path, result.lyric.bytes(), result.text);
    if (!answer.ok())
        report.refuse(answer.refusal);
    else if (!answer.remark.empty())
        report.remark(answer.remark);
    return answer.ok();
}

void answerInJson(const Result &result, Report &report, Saver &saver)
{
    const Invocation &invocation = report.invocation();
    const bool isDry = invocation.has(Option::DryRun);
    const bool isInPlace = invocation.has(Option::InPlace) && !isDry;
    const bool isWritten = isInPlace && saveInPlace(result, report, saver);
    JsonWriter json = report.beginJson();
    json.key("changed").boolean(result.isChanged()).key("written").boolean(isWritten);
    if (isDry)
        addChanges(json, result);
    else if (!isInPlace)
        json.key("text").string(result.text);
    report.endJson(json);
}

void deliver(const Result &result, Report &report, Saver &saver)
{
    const Invocation &invocation = report.invocation();
    if (invocation.has(Option::Json))
        answerInJson(result, report, saver);
    else if (invocation.has(Option::DryRun))
        showDryRun(result, report);
    else if (invocation.has(Option::InPlace))
        saveInPlace(result, report, saver);
    else
        report.out() += result.text;
}

std::string faultOf(const Invocation &invocation, const InputList &list)
{
    const bool writes = invocation.has(Option::InPlace);
    for (const Input &input : list.inputs) {
        if (writes && input.isStandardInput)
            return "Standard input cannot be written in place; leave out --in-place, or name the file.";
    }
    const bool isHarmless = writes || invocation.has(Option::Json) || invocation.has(Option::DryRun)
        || invocation.command().name == "cat";
    if (list.isSeveral && !isHarmless)
        return "Several lyrics one behind the other are of no use; add --in-place, --dry-run or --json.";
    return {};
}

} // namespace

Verdict transform(const Invocation &invocation, std::span<const std::string> operands, const Change &change)
{
    InputList list = findInputs(invocation, operands, kLyricEndings);
    if (list.wrongUse.empty())
        list.wrongUse = faultOf(invocation, list);
    Saver saver;
    return forEachLyric(invocation, list, [&](const Lyric &lyric, Report &report) {
        // Without a change the bytes come back, whatever they are.
        if (const std::string refusal = refusalOfUtf16(lyric); change && !refusal.empty())
            return report.refuse(refusal);
        RBEditSong song;
        song.buildWithLrcText(lyric.text);
        if (change && !change(song, report))
            return;
        song.updateSongText();
        deliver({lyric, std::string(song.songText())}, report, saver);
    });
}

} // namespace cli
