// SPDX-License-Identifier: MIT
#include "cli/TimeText.h"
#include "cli/formats/Formats.h"
#include "cli/formats/Markup.h"
#include "cli/formats/SheetTimes.h"
#include "cli/formats/Xml.h"
#include "lyrics/Blanks.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace cli {
namespace {

constexpr std::size_t kDeepest = 256;

/// A number with a fraction, from the beginning of `text`, which is taken off; not that of the C library,
/// which asks the locale.
std::optional<double> takeDecimal(std::string_view &text)
{
    double value = 0;
    const auto [end, error]
        = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (error != std::errc() || value < 0)
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return value;
}

/// What the root says of how times count.
struct Rates
{
    double frames = 30;
    double ticks = 1;
};

/// Reads a time expression: a clock time, with frames or a fraction, or a number with a unit.
std::optional<std::int64_t> readTime(std::string_view text, const Rates &rates)
{
    constexpr double kMost = 1e15;
    std::string_view rest = text;
    if (const auto clock = takeClockTime(rest)) {
        if (rest.empty())
            return clock;
        rest.remove_prefix(1);
        const auto frames = takeDecimal(rest);
        if (!frames || !rest.empty() || *frames > kMost)
            return std::nullopt;
        return *clock + std::llround(*frames / rates.frames * 1000.0);
    }
    rest = text;
    const auto number = takeDecimal(rest);
    double unit = 0;
    if (rest.empty() || rest == "s")
        unit = 1000;
    else if (rest == "ms")
        unit = 1;
    else if (rest == "m")
        unit = 60'000;
    else if (rest == "h")
        unit = 3'600'000;
    else if (rest == "f")
        unit = 1000 / rates.frames;
    else if (rest == "t")
        unit = 1000 / rates.ticks;
    const bool fits = number && unit > 0 && *number * unit < kMost;
    return fits ? std::optional(std::llround(*number * unit)) : std::nullopt;
}

class Reader
{
public:
    explicit Reader(Losses &losses) : m_losses(losses) { }

    Sheet read(std::string_view text)
    {
        XmlReader xml(text);
        for (XmlToken token; xml.next(token);) {
            if (token.kind == XmlToken::Kind::Text)
                addText(token.text);
            else if (token.kind == XmlToken::Kind::Close)
                close(token.name);
            else
                open(token);
        }
        sortLines(m_sheet);
        return std::move(m_sheet);
    }

private:
    /// An element that is open, where its own time begins, and whether blanks in it count.
    struct Element
    {
        std::string_view name;
        std::int64_t offset = 0;
        bool keepsBlanks = false;
    };

    [[nodiscard]] std::int64_t offset() const { return m_open.empty() ? 0 : m_open.back().offset; }

    void open(const XmlToken &token)
    {
        if (token.name == "tt")
            readRates(token);
        const std::string *begin = token.attribute("begin");
        // Times inside an element count from its beginning; of a line they are mostly written from the start
        // of the song, and programs agree to read them so.
        std::optional<std::int64_t> time;
        if (begin)
            time = readTime(*begin, m_rates);
        if (token.name == "p")
            openLine(token, time);
        else if (token.name == "br")
            breakLine();
        else if (token.name == "span" && m_isInLine)
            openSpan(token, time);
        std::int64_t inside = offset();
        if (time && (token.name == "body" || token.name == "div"))
            inside += *time;
        // Nothing that is meant is nested so deeply; each closing tag is looked for among those that are
        // open.
        if (token.kind == XmlToken::Kind::Open && m_open.size() < kDeepest)
            m_open.push_back({token.name, inside, keepsBlanks(token)});
        else if (token.kind == XmlToken::Kind::Empty && token.name == "p")
            finishLine();
    }

    /// What `xml:space` says, or is said further out.
    [[nodiscard]] bool keepsBlanks(const XmlToken &token) const
    {
        const std::string *space = token.attribute("space");
        return space ? *space == "preserve" : !m_open.empty() && m_open.back().keepsBlanks;
    }

    void readRates(const XmlToken &token)
    {
        const auto rate = [&token](std::string_view name, double otherwise) {
            const std::string *text = token.attribute(name);
            std::string_view rest = text ? std::string_view(*text) : std::string_view();
            const auto value = text ? takeDecimal(rest) : std::nullopt;
            return value && *value > 0 ? *value : otherwise;
        };
        m_rates.frames = rate("frameRate", m_rates.frames);
        m_rates.ticks = rate("tickRate", m_rates.ticks);
    }

    void openLine(const XmlToken &token, std::optional<std::int64_t> begin)
    {
        finishLine();
        m_isInLine = true;
        m_endsInBlank = true;
        m_line = {token.line, {}, {}, {{}}};
        if (begin)
            m_line.start = *begin + offset();
        if (const std::string *end = token.attribute("end")) {
            if (const auto time = readTime(*end, m_rates))
                m_line.end = *time + offset();
        } else if (const std::string *duration = token.attribute("dur"); duration && m_line.start) {
            if (const auto time = readTime(*duration, m_rates))
                m_line.end = *m_line.start + *time;
        }
        if (!begin)
            m_losses.add(token.line, "the line has no time that can be read.");
    }

    void openSpan(const XmlToken &token, std::optional<std::int64_t> begin)
    {
        if (begin)
            m_line.words.push_back({*begin + offset(), {}});
        else
            m_losses.add(token.line, "marks of style, voice or place are left out.");
    }

    /// What follows stands in a line of its own, at the same time.
    void breakLine()
    {
        if (!m_isInLine)
            return;
        const SheetLine next{m_line.source, m_line.start, m_line.end, {{}}};
        finishLine();
        m_line = next;
        m_isInLine = true;
        m_endsInBlank = true;
    }

    /// Line ends of the file and the blanks round them are one blank, and other blanks too unless they count.
    void addText(std::string_view text)
    {
        if (!m_open.empty() && m_open.back().name == "title")
            m_title += text;
        if (!m_isInLine)
            return;
        std::string &out = m_line.words.back().text;
        const bool keepsBlanks = !m_open.empty() && m_open.back().keepsBlanks;
        for (const char c : text) {
            const bool isBreak = c == '\n' || c == '\r';
            const bool isBlank = c == ' ' || c == '\t';
            if (!isBreak && !isBlank)
                out += c;
            else if (!m_endsInBlank)
                out += keepsBlanks && isBlank ? c : ' ';
            m_endsInBlank = isBreak || (isBlank && (m_endsInBlank || !keepsBlanks));
        }
    }

    void close(std::string_view name)
    {
        if (name == "p")
            finishLine();
        if (name == "title" && !lyrics::trimmed(m_title).empty())
            m_sheet.tags.push_back({1, "ti", std::string(lyrics::trimmed(m_title))});
        const auto opened = std::find_if(
            m_open.rbegin(), m_open.rend(), [name](const Element &element) { return element.name == name; });
        if (opened != m_open.rend())
            m_open.erase(opened.base() - 1, m_open.end());
    }

    void finishLine()
    {
        if (!std::exchange(m_isInLine, false))
            return;
        if (m_line.words.size() > 1 && m_line.words.front().text.empty())
            m_line.words.erase(m_line.words.begin());
        m_sheet.lines.push_back(std::move(m_line));
    }

    Losses &m_losses;
    Sheet m_sheet;
    Rates m_rates;
    std::vector<Element> m_open;
    SheetLine m_line;
    std::string m_title;
    bool m_isInLine = false;
    bool m_endsInBlank = true;
};

Sheet read(std::string_view text, Losses &losses)
{
    return Reader(losses).read(text);
}

void appendWords(std::string &out, const SheetLine &line)
{
    if (!line.hasWordTimes())
        return appendEscapedMarkup(out, lyrics::trimmed(line.text()));
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        const SheetWord &word = line.words[i];
        if (!word.millis) {
            appendEscapedMarkup(out, word.text);
            continue;
        }
        const auto next = i + 1 < line.words.size() ? line.words[i + 1].millis : line.end;
        out += "<span begin=\"" + clockTime(*word.millis, {}) + "\"";
        if (next && *next > *word.millis)
            out += " end=\"" + clockTime(*next, {}) + "\"";
        out += ">";
        appendEscapedMarkup(out, word.text);
        out += "</span>";
    }
}

/// Whether readers, who may take any blanks for one, have to be told to keep them.
bool blanksCount(std::string_view text)
{
    text = lyrics::trimmed(text);
    return text.find("  ") != std::string_view::npos || text.find('\t') != std::string_view::npos;
}

std::string write(const Sheet &sheet, Losses &losses)
{
    noteTags(sheet, "ti", "ttml", losses);
    std::string out
        = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
          "<tt xmlns=\"http://www.w3.org/ns/ttml\" xmlns:ttm=\"http://www.w3.org/ns/ttml#metadata\">\n";
    if (const std::string title = tagValue(sheet, "ti"); !title.empty()) {
        out += "  <head>\n    <metadata>\n      <ttm:title>";
        appendEscapedMarkup(out, title);
        out += "</ttm:title>\n    </metadata>\n  </head>\n";
    }
    out += "  <body>\n    <div>\n";
    for (const SheetLine &line : shownLines(sheet, losses)) {
        out += "      <p begin=\"" + clockTime(*line.start, {}) + "\" end=\"" + clockTime(*line.end, {})
            + (blanksCount(line.text()) ? "\" xml:space=\"preserve\">" : "\">");
        appendWords(out, line);
        out += "</p>\n";
    }
    return out + "    </div>\n  </body>\n</tt>\n";
}

} // namespace

const LyricFormat kTtmlFormat{"ttml", "ttml", "xml dfxp", read, write, true};

} // namespace cli
