// SPDX-License-Identifier: MIT
#include "cli/TimeText.h"
#include "cli/formats/CueBlocks.h"
#include "cli/formats/Formats.h"
#include "cli/formats/Markup.h"
#include "cli/formats/SheetTimes.h"
#include "lyrics/Blanks.h"

/// SRT and WebVTT, which differ in their heads, their points and their marks.
namespace cli {
namespace {

void addCue(const CueBlock &cue, MarkedLine (*readText)(std::string_view), Sheet &sheet, Losses &losses)
{
    bool hadMarkup = !cue.settings.empty();
    std::size_t number = cue.source;
    if (cue.text.empty())
        sheet.lines.push_back({number, cue.start, cue.end, {}});
    // The lines of a cue are sung at once: an original and its translation, or two voices.
    for (const std::string_view text : cue.text) {
        MarkedLine line = readText(text);
        hadMarkup = hadMarkup || line.hadMarkup;
        sheet.lines.push_back({++number, cue.start, cue.end, std::move(line.words)});
    }
    if (hadMarkup)
        losses.add(cue.source, "marks of slant, colour, voice or place are left out.");
}

Sheet readSrt(std::string_view text, Losses &losses)
{
    const CueFile file = readCues(text);
    Sheet sheet;
    for (const CueBlock &cue : file.cues)
        addCue(cue, readSrtText, sheet, losses);
    for (const auto &[source, line] : file.others)
        losses.add(source, "the line belongs to no cue and is left out.");
    sortLines(sheet);
    return sheet;
}

Sheet readVtt(std::string_view text, Losses &losses)
{
    const CueFile file = readCues(text);
    Sheet sheet;
    for (const CueBlock &cue : file.cues)
        addCue(cue, readVttText, sheet, losses);
    for (const auto &[source, line] : file.others) {
        if (source > 1 || lyrics::trimmed(line) != "WEBVTT")
            losses.add(source, "the line belongs to no cue and is left out.");
    }
    sortLines(sheet);
    return sheet;
}

std::string writeSrt(const Sheet &sheet, Losses &losses)
{
    constexpr ClockForm kForm{2, 3, ','};
    noteTags(sheet, {}, "srt", losses);
    const std::vector<SheetLine> lines = shownLines(sheet, losses);
    noteWordTimes(lines, "srt", losses);
    std::string out;
    std::size_t number = 0;
    for (const SheetLine &line : lines) {
        out += std::to_string(++number) + "\n" + clockTime(*line.start, kForm) + " --> "
            + clockTime(*line.end, kForm) + "\n";
        const std::string text = line.text();
        if (readSrtText(text).hadMarkup)
            losses.add(line.source,
                "<…> or {\\…} in it is taken for a mark and not shown; srt has no way to spell it out.");
        out.append(lyrics::trimmed(text)).append("\n\n");
    }
    return out;
}

/// The words with `<00:00:01.000>` before each that begins later than the line.
std::string vttText(const SheetLine &line)
{
    std::string out;
    for (const SheetWord &word : line.words) {
        if (word.millis && *word.millis > *line.start)
            out += "<" + clockTime(*word.millis, {}) + ">";
        appendEscapedMarkup(out, word.text);
    }
    return std::string(lyrics::trimmed(out));
}

std::string writeVtt(const Sheet &sheet, Losses &losses)
{
    noteTags(sheet, {}, "vtt", losses);
    std::string out = "WEBVTT\n";
    for (const SheetLine &line : shownLines(sheet, losses)) {
        out += "\n" + clockTime(*line.start, {}) + " --> " + clockTime(*line.end, {}) + "\n" + vttText(line)
            + "\n";
    }
    return out;
}

} // namespace

const LyricFormat kSrtFormat{"srt", "srt", "", readSrt, writeSrt, true};
const LyricFormat kVttFormat{"vtt", "vtt", "webvtt", readVtt, writeVtt, true};

} // namespace cli
