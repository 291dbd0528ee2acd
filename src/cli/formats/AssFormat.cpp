// SPDX-License-Identifier: MIT
#include "cli/LineDiff.h"
#include "cli/TimeText.h"
#include "cli/formats/Formats.h"
#include "cli/formats/SheetTimes.h"
#include "lyrics/Blanks.h"
#include "lyrics/LineEnds.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace cli {
namespace {

constexpr std::int64_t kCentisecond = 10;

/// The text up to the next comma, which is taken off with it.
std::string_view takeField(std::string_view &text)
{
    const std::size_t comma = std::min(text.find(','), text.size());
    const std::string_view field = lyrics::trimmed(text.substr(0, comma));
    text.remove_prefix(std::min(comma + 1, text.size()));
    return field;
}

/// Where the fields of an event stand, as the line `Format:` says.
struct EventFields
{
    std::size_t start = 1;
    std::size_t end = 2;
    std::size_t text = 9;

    void read(std::string_view format)
    {
        for (std::size_t i = 0; !format.empty(); ++i) {
            const std::string_view name = takeField(format);
            if (name == "Start")
                start = i;
            else if (name == "End")
                end = i;
            else if (name == "Text")
                text = i;
        }
    }
};

/// How long the syllable behind an override block takes, in milliseconds; absent when the block says nothing
/// of it.
std::optional<std::int64_t> karaokeMillis(std::string_view block)
{
    for (std::size_t at = block.find('\\'); at != std::string_view::npos; at = block.find('\\', at + 1)) {
        std::string_view tag = block.substr(at + 1);
        if (tag.empty() || (tag[0] != 'k' && tag[0] != 'K'))
            continue;
        tag.remove_prefix(1);
        if (!tag.empty() && (tag[0] == 'f' || tag[0] == 'o'))
            tag.remove_prefix(1);
        std::uint32_t centiseconds = 0;
        if (std::from_chars(tag.data(), tag.data() + tag.size(), centiseconds).ec == std::errc())
            return static_cast<std::int64_t>(centiseconds) * kCentisecond;
    }
    return std::nullopt;
}

/// Whether what stands behind an override block is a drawing, `\p1` and above; absent when the block says
/// nothing of it.
std::optional<bool> startsDrawing(std::string_view block)
{
    std::optional<bool> starts;
    for (std::size_t at = block.find("\\p"); at != std::string_view::npos; at = block.find("\\p", at + 1)) {
        const std::string_view scale = block.substr(at + 2);
        // The place \pos and the border \pbo are others.
        if (!scale.empty() && scale[0] >= '0' && scale[0] <= '9')
            starts = scale[0] != '0';
    }
    return starts;
}

/// Takes the text of one event apart: syllables, line breaks, marks.
class EventReader
{
public:
    EventReader(Sheet &sheet, const SheetLine &plain) : m_sheet(sheet), m_line(plain), m_at(*plain.start) { }

    /// \return whether something of it was left out.
    bool read(std::string_view text)
    {
        m_line.words.emplace_back();
        while (!text.empty()) {
            const std::size_t closing = text.front() == '{' ? text.find('}') : std::string_view::npos;
            if (closing != std::string_view::npos) {
                readBlock(text.substr(1, closing - 1));
                text.remove_prefix(closing + 1);
            } else if (text.starts_with("\\N") || text.starts_with("\\n")) {
                finishLine();
                text.remove_prefix(2);
            } else {
                const bool isHardBlank = text.starts_with("\\h");
                if (!m_isDrawing)
                    m_line.words.back().text += isHardBlank ? "\xC2\xA0" : text.substr(0, 1);
                text.remove_prefix(isHardBlank ? 2 : 1);
            }
        }
        finishLine();
        return m_hadMarkup;
    }

private:
    void readBlock(std::string_view block)
    {
        const auto millis = karaokeMillis(block);
        m_hadMarkup = m_hadMarkup || !millis;
        m_isDrawing = startsDrawing(block).value_or(m_isDrawing);
        m_hadDrawing = m_hadDrawing || m_isDrawing;
        if (!millis)
            return;
        m_line.words.push_back({m_at, {}});
        m_at += *millis;
    }

    void finishLine()
    {
        if (m_line.words.size() > 1 && m_line.words.front().text.empty() && !m_line.words.front().millis)
            m_line.words.erase(m_line.words.begin());
        // A drawing alone is no line, not even an empty one.
        if (!m_hadDrawing || !m_line.text().empty())
            m_sheet.lines.push_back(m_line);
        m_line.words.assign(1, {});
    }

    Sheet &m_sheet;
    SheetLine m_line;
    std::int64_t m_at;
    bool m_hadMarkup = false;
    bool m_isDrawing = false;
    bool m_hadDrawing = false;
};

class Reader
{
public:
    explicit Reader(Losses &losses) : m_losses(losses) { }

    Sheet read(std::string_view text)
    {
        std::size_t number = 0;
        for (const std::string_view whole : physicalLines(text)) {
            ++number;
            readLine(
                lyrics::trimmed(whole.substr(0, whole.size() - lyrics::lineEndOf(whole).size())), number);
        }
        sortLines(m_sheet);
        return std::move(m_sheet);
    }

private:
    void readLine(std::string_view line, std::size_t number)
    {
        if (line.starts_with('[')) {
            m_isInEvents = line == "[Events]";
        } else if (!m_isInEvents && line.starts_with("Title:")) {
            const std::string_view title = lyrics::trimmed(line.substr(6));
            if (!title.empty())
                m_sheet.tags.push_back({number, "ti", std::string(title)});
        } else if (m_isInEvents && line.starts_with("Format:")) {
            m_fields.read(line.substr(7));
        } else if (m_isInEvents && line.starts_with("Dialogue:")) {
            readEvent(line.substr(9), number);
        } else if (m_isInEvents && line.starts_with("Comment:")) {
            m_losses.add(number, "the comment is left out.");
        } else if (line.starts_with("Style:") && !line.starts_with("Style: Default,")) {
            m_losses.add(number, "the style is left out.");
        }
    }

    void readEvent(std::string_view event, std::size_t number)
    {
        std::optional<std::int64_t> start;
        std::optional<std::int64_t> end;
        for (std::size_t i = 0; i < m_fields.text && !event.empty(); ++i) {
            std::string_view field = takeField(event);
            if (i == m_fields.start)
                start = takeClockTime(field);
            else if (i == m_fields.end)
                end = takeClockTime(field);
        }
        if (!start || !end) {
            m_losses.add(number, "the event has no times that can be read, and is left out.");
            return;
        }
        if (EventReader(m_sheet, {number, start, end, {}}).read(lyrics::trimmed(event)))
            m_losses.add(number, "marks of style or place, and drawings, are left out.");
    }

    Losses &m_losses;
    Sheet m_sheet;
    EventFields m_fields;
    bool m_isInEvents = false;
};

Sheet read(std::string_view text, Losses &losses)
{
    return Reader(losses).read(text);
}

/// Nothing in the format spells out a brace or a backslash, so they are replaced by what looks like them.
void appendPlain(std::string &out, std::string_view text, bool &wasReplaced)
{
    for (const char c : text) {
        if (c == '{' || c == '}')
            out += c == '{' ? "(" : ")";
        else if (c == '\\')
            out += "/";
        else
            out += c;
        wasReplaced = wasReplaced || c == '{' || c == '}' || c == '\\';
    }
}

std::int64_t rounded(std::int64_t millis)
{
    return (std::max<std::int64_t>(millis, 0) + kCentisecond / 2) / kCentisecond;
}

/// Each syllable with the hundredths until the next one, or until the line ends.
std::string karaokeText(const SheetLine &line, bool &wasReplaced)
{
    std::string out;
    std::int64_t at = rounded(*line.start);
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        const SheetWord &word = line.words[i];
        if (line.hasWordTimes()) {
            if (word.millis && rounded(*word.millis) > at) {
                out += "{\\k" + std::to_string(rounded(*word.millis) - at) + "}";
                at = rounded(*word.millis);
            }
            const auto next = i + 1 < line.words.size() ? line.words[i + 1].millis : line.end;
            const std::int64_t until = std::max(at, rounded(next.value_or(*line.end)));
            out += "{\\k" + std::to_string(until - at) + "}";
            at = until;
        }
        appendPlain(out, word.text, wasReplaced);
    }
    return out;
}

constexpr std::string_view kHead = R"(ScriptType: v4.00+

[V4+ Styles]
Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, BackColour, Bold, Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, Encoding
Style: Default,Sans,20,&H00FFFFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,100,100,0,0,1,1,1,2,10,10,10,1

[Events]
Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text
)";

std::string write(const Sheet &sheet, Losses &losses)
{
    constexpr ClockForm kForm{1, 2, '.'};
    noteTags(sheet, "ti", "ass", losses);
    std::string out = "[Script Info]\n";
    if (const std::string title = tagValue(sheet, "ti"); !title.empty())
        out += "Title: " + title + "\n";
    out += kHead;
    for (const SheetLine &line : shownLines(sheet, losses)) {
        const std::int64_t start = rounded(*line.start) * kCentisecond;
        if (start != *line.start && *line.start >= 0)
            losses.add(line.source,
                "the time [" + exactTime(*line.start) + "] becomes " + exactTime(start)
                    + "; ass counts hundredths.");
        bool wasReplaced = false;
        const std::string text = karaokeText(line, wasReplaced);
        if (wasReplaced)
            losses.add(line.source, "{, } and \\ become (, ) and /; ass has no other way for them.");
        out += "Dialogue: 0," + clockTime(start, kForm) + ","
            + clockTime(rounded(*line.end) * kCentisecond, kForm) + ",Default,,0,0,0,," + text + "\n";
    }
    return out;
}

} // namespace

const LyricFormat kAssFormat{"ass", "ass", "ssa", read, write, true};

} // namespace cli
