// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/Run.h"
#include "cli/Saver.h"
#include "cli/formats/EnhancedLrc.h"
#include "cli/formats/Formats.h"
#include "lyrics/Blanks.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <vector>

namespace cli {
namespace {

constexpr std::string_view kDescription = R"(Reads one format and writes another:

  lrc        lines with times          srt, vtt   subtitles
  enhanced   lrc with word stamps      ass        subtitles with karaoke
  text       words alone               ttml       subtitles in XML

What the target cannot hold is said on standard error, line by line, with the line
of the source: tags, word stamps, untimed lines, marks of style. The lines of one
subtitle become lines of one time, as originals and translations are written. From
lrc to lrc or enhanced only the word stamps are touched.

The lines of a lyric have no ends, but for ranges such as [00:01.20-00:02.30]: in a
subtitle each other line is shown until the next begins, the last one for five
seconds. The other way round, a subtitle that ends before the next one begins is
followed by an empty line at that time.
)";
constexpr std::string_view kExamples = R"(  lrctool convert --to srt song.lrc > song.srt
  lrctool convert --to lrc --output song.lrc song.ass

  # a folder of subtitles as lyrics, into another folder
  lrctool convert --to lrc --into lyrics/ subtitles/

  # the words alone, without a word about what is lost
  lrctool convert --to text --quiet song.lrc
)";
constexpr Option kOptions[] = {Option::To, Option::From, Option::Output, Option::Into, Option::Force,
    Option::DryRun, Option::Json, Option::Encoding, Option::GuessEncoding, Option::FilesFrom, Option::Null,
    Option::Jobs, Option::Quiet, Option::Color};
constexpr std::string_view kEndings[] = {"lrc", "elrc", "srt", "vtt", "ass", "ssa", "ttml"};

/// A conversion as it was asked for.
struct Task
{
    const LyricFormat *from = nullptr; ///< null: each file tells
    const LyricFormat *to = nullptr;
    std::string output; ///< a file; empty for none
    std::string into; ///< a folder; empty for none
};

bool isLrc(const LyricFormat &format)
{
    return &format == &kLrcFormat || &format == &kEnhancedFormat;
}

const LyricFormat &sourceFormat(const Task &task, const Input &input, std::string_view text)
{
    if (task.from)
        return *task.from;
    const LyricFormat *byName = input.isStandardInput ? nullptr : formatOfPath(input.path);
    return byName ? *byName : formatOfText(text);
}

/// Why the target has nothing to show; empty when it has something.
std::string refusalOf(const Task &task, const LyricFormat &from, const Sheet &sheet)
{
    const auto hasTime = [](const SheetLine &line) { return line.start.has_value(); };
    const auto isShown
        = [](const SheetLine &line) { return line.start && !lyrics::trimmed(line.text()).empty(); };
    if (!isLrc(from) && from.needsTimes && sheet.lines.empty())
        return "nothing in it can be read as " + std::string(from.name)
            + "; name its format with --from, or its encoding with --encoding.";
    if (!task.to->needsTimes || std::ranges::any_of(sheet.lines, isShown))
        return {};
    const std::string nothing = ", so " + std::string(task.to->name) + " has nothing to show";
    return std::ranges::any_of(sheet.lines, hasTime)
        ? "no line that has a time has words" + nothing + "."
        : "no line of it has a time" + nothing + "; stamp it first.";
}

/// The text in the target; absent, with a refusal, when there is nothing to show there.
std::optional<std::string> converted(const Task &task, std::string_view text, Losses &losses, Report &report)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    const LyricFormat &from = sourceFormat(task, report.input(), text);
    if (isLrc(from) && isLrc(*task.to))
        return task.to == &kEnhancedFormat ? withAngleStamps(text) : withoutStamps(text, losses);
    if (text.starts_with(kMark) && !isLrc(from))
        text.remove_prefix(kMark.size());
    const Sheet sheet = from.read(text, losses);
    if (const std::string refusal = refusalOf(task, from, sheet); !refusal.empty()) {
        report.refuse(refusal);
        return std::nullopt;
    }
    return task.to->write(sheet, losses);
}

std::string targetPath(const Task &task, const std::string &source)
{
    if (!task.output.empty())
        return task.output;
    const std::size_t slash = source.rfind('/');
    std::string name = slash == std::string::npos ? source : source.substr(slash + 1);
    if (const std::string ending = endingOf(name); !ending.empty() && formatOfPath(name))
        name.resize(name.size() - ending.size() - 1);
    return task.into + (task.into.ends_with('/') ? "" : "/") + name + "." + std::string(task.to->ending);
}

void save(const Task &task, const std::string &text, Report &report, Saver &saver)
{
    const std::string path = targetPath(task, report.input().path);
    if (report.invocation().has(Option::DryRun))
        return report.remark("would be written to " + path + ".");
    const SaveAnswer answer = saver.create(path, text, report.invocation().has(Option::Force));
    if (!answer.ok())
        report.refuse(path, answer.refusal);
    else if (!answer.remark.empty())
        report.remark(path, answer.remark);
}

void writeJson(const std::string &text, const Losses &losses, Report &report)
{
    JsonWriter json = report.beginJson();
    json.key("text").string(text).key("losses").beginArray();
    for (const Losses::Loss &loss : losses.all()) {
        json.beginObject().key("line").number(static_cast<std::int64_t>(loss.source));
        json.key("text").string(loss.sentence).endObject();
    }
    json.endArray();
    report.endJson(json);
}

void convert(const Task &task, const Lyric &lyric, Report &report, Saver &saver)
{
    if (const std::string refusal = refusalOfUtf16(lyric); !refusal.empty())
        return report.refuse(refusal);
    Losses losses;
    const std::optional<std::string> text = converted(task, lyric.text, losses, report);
    if (!text)
        return;
    std::vector<Losses::Loss> said = losses.all();
    std::ranges::stable_sort(said, {}, &Losses::Loss::source);
    const bool isFile = !task.output.empty() || !task.into.empty();
    const bool isJson = report.invocation().has(Option::Json);
    if (!isJson) {
        for (const Losses::Loss &loss : said)
            report.remarkAt(loss.source, loss.sentence);
    }
    if (isFile)
        save(task, *text, report, saver);
    if (isJson)
        writeJson(*text, losses, report);
    else if (!isFile)
        report.out() += *text;
}

/// What is wrong with the call; empty when nothing is.
std::string faultOf(const Invocation &invocation, const InputList &list, const Task &task)
{
    const bool hasInput
        = std::ranges::any_of(list.inputs, [](const Input &input) { return input.isStandardInput; });
    if (!list.wrongUse.empty())
        return list.wrongUse;
    if (!task.to)
        return "Say the format of the result: --to lrc, enhanced, srt, vtt, ass, text or ttml.";
    if (!task.output.empty() && !task.into.empty())
        return "--output is one file and --into a folder; give one of them.";
    if (list.isSeveral && !task.output.empty())
        return "--output is for one lyric; --into FOLDER is for many.";
    if (list.isSeveral && task.into.empty() && !invocation.has(Option::Json))
        return "Several results one behind the other are of no use; add --into FOLDER or --json.";
    if (hasInput && !task.into.empty())
        return "Standard input has no name to be written under; --output FILE gives it one.";
    if (invocation.has(Option::DryRun) && task.output.empty() && task.into.empty())
        return "--dry-run is for --output and --into; nothing else is written.";
    return {};
}

/// Two sources that would be written under one name.
std::string clashOf(const Task &task, const InputList &list)
{
    if (task.into.empty())
        return {};
    std::vector<std::string> paths;
    for (const Input &input : list.inputs)
        paths.push_back(targetPath(task, input.path));
    std::ranges::sort(paths);
    const auto clash = std::ranges::adjacent_find(paths);
    return clash == paths.end() ? std::string() : "Two of the files would both be written to " + *clash + ".";
}

/// The folder that results would be written into; empty when that is there, or is the current one.
std::string missingFolder(const Task &task)
{
    const std::string folder
        = task.into.empty() ? std::filesystem::path(task.output).parent_path().string() : task.into;
    std::error_code unknown;
    return folder.empty() || std::filesystem::is_directory(folder, unknown) ? std::string() : folder;
}

Verdict run(const Invocation &invocation)
{
    InputList list = findInputs(invocation, invocation.operands(), kEndings);
    Task task;
    task.output = invocation.value(Option::Output);
    task.into = invocation.value(Option::Into);
    task.from = formatNamed(invocation.value(Option::From));
    task.to
        = invocation.has(Option::To) ? formatNamed(invocation.value(Option::To)) : formatOfPath(task.output);
    list.wrongUse = faultOf(invocation, list, task);
    if (list.wrongUse.empty())
        list.wrongUse = clashOf(task, list);
    if (const std::string folder = missingFolder(task); list.wrongUse.empty() && !folder.empty()) {
        complain(invocation.around(), folder + ": there is no such folder; make it first.");
        return Verdict::Findings;
    }
    Saver saver;
    return forEachLyric(
        invocation, list, [&](const Lyric &lyric, Report &report) { convert(task, lyric, report, saver); });
}

} // namespace

const CommandInfo kConvert{"convert", "--to FORMAT [FILE…]",
    "to and from srt, vtt, ass, ttml, plain text, enhanced lrc", kDescription, kExamples, kOptions, 0,
    kAnyNumber, run};

} // namespace cli
