// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/LineView.h"
#include "cli/LyricDiff.h"
#include "cli/Run.h"
#include "cli/TimeText.h"
#include "cli/Utf8.h"

#include <algorithm>
#include <array>

namespace cli {
namespace {

using Kind = LyricDifference::Kind;

constexpr std::string_view kDescription
    = R"(Compares what two lyrics say, line by line: words, times, tags. How a time is
spelled, line ends and blanks round a text do not count. When one is the other but
for a shift, that is said in one line. The exit status is 1 when they differ.
)";
constexpr std::string_view kExamples = R"(  lrctool diff mine.lrc theirs.lrc

  # has the song the lyric that lies beside it?
  lrctool extract song.mp3 | lrctool diff - song.lrc
)";
constexpr Option kOptions[]
    = {Option::Json, Option::Encoding, Option::GuessEncoding, Option::Quiet, Option::Color};

/// One side of a comparison: the lyric, and on which physical line each of its lines stands.
struct Side
{
    RBEditSong song;
    std::vector<std::size_t> starts;

    void read(std::string_view text)
    {
        song.buildWithLrcText(text);
        starts = song.physicalLineStarts();
    }
    [[nodiscard]] std::size_t physicalLine(std::size_t row) const
    {
        return static_cast<std::size_t>(std::upper_bound(starts.begin(), starts.end(), row) - starts.begin());
    }
};

std::string timesOf(const RBSongLine &line)
{
    std::string times;
    for (const std::int64_t millis : line.aryTimes())
        times += "[" + exactTime(millis) + "]";
    return times;
}

std::string said(const RBSongLine &line)
{
    if (const auto tag = tagOf(line))
        return "[" + std::string(tag->key) + ":" + std::string(tag->value) + "]";
    return timesOf(line) + std::string(line.lineText());
}

class Teller
{
public:
    Teller(const Side &left, const Side &right, Report &report)
        : m_left(left), m_right(right), m_report(report), m_inColor(report.invocation().usesColor())
    { }

    void show(const std::vector<LyricDifference> &found)
    {
        if (const auto shift = commonShift(m_left.song, m_right.song, found)) {
            m_report.out() += "the same, every time moved by " + amountInWords(*shift) + "\n";
            return;
        }
        for (const LyricDifference &difference : found) {
            std::string head(nameOf(difference.kind));
            if (difference.left)
                head += ", line " + std::to_string(m_left.physicalLine(*difference.left));
            if (difference.right)
                head += (difference.left ? " / " : ", line ")
                    + std::to_string(m_right.physicalLine(*difference.right));
            m_report.out() += head + "\n";
            showSide('-', m_left, difference.left);
            showSide('+', m_right, difference.right);
        }
    }

    void write(const std::vector<LyricDifference> &found)
    {
        JsonWriter json = m_report.beginJson();
        json.key("equal").boolean(found.empty());
        if (const auto shift = commonShift(m_left.song, m_right.song, found))
            json.key("shift_ms").number(*shift);
        json.key("differences").beginArray();
        for (const LyricDifference &difference : found) {
            json.beginObject().key("kind").string(nameOf(difference.kind));
            writeSide(json, "left", m_left, difference.left);
            writeSide(json, "right", m_right, difference.right);
            json.endObject();
        }
        json.endArray();
        m_report.endJson(json);
    }

private:
    void showSide(char sign, const Side &side, std::optional<std::size_t> row)
    {
        if (!row)
            return;
        std::string &out = m_report.out();
        if (m_inColor)
            out += sign == '-' ? "\x1B[31m" : "\x1B[32m";
        out += sign;
        appendShown(out, said(side.song.aryLines()[*row]));
        out += m_inColor ? "\x1B[m\n" : "\n";
    }

    static void writeSide(
        JsonWriter &json, std::string_view name, const Side &side, std::optional<std::size_t> row)
    {
        if (!row)
            return;
        const RBSongLine &line = side.song.aryLines()[*row];
        json.key(name).beginObject().key("line").number(static_cast<std::int64_t>(side.physicalLine(*row)));
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

    const Side &m_left;
    const Side &m_right;
    Report &m_report;
    bool m_inColor;
};

Verdict run(const Invocation &invocation)
{
    InputList list = findInputs(invocation, invocation.operands(), kLyricEndings);
    if (list.wrongUse.empty() && list.inputs.size() != 2)
        list.wrongUse = "It takes two lyrics, no folders.";
    if (!list.wrongUse.empty())
        return wrongUse(invocation, list.wrongUse);
    if (const std::string fault = faultOfEncoding(invocation); !fault.empty())
        return wrongUse(invocation, fault);
    // The comparison is one job on two files; what is said names them itself.
    InputList pair;
    pair.inputs.push_back({"", false, false});
    return forEachInput(invocation, pair, [&](Report &report) {
        std::array<Side, 2> sides;
        for (std::size_t i = 0; i < 2; ++i) {
            const Lyric lyric = readLyric(invocation, list.inputs[i]);
            if (!lyric.refusal.empty())
                return report.refuse(list.inputs[i].label(), lyric.refusal);
            if (!lyric.remark.empty())
                report.remark(list.inputs[i].label(), lyric.remark);
            sides[i].read(lyric.text);
        }
        const auto found = differences(sides[0].song, sides[1].song);
        if (!found.empty())
            report.noteFindings();
        Teller teller(sides[0], sides[1], report);
        if (invocation.has(Option::Json))
            teller.write(found);
        else
            teller.show(found);
    });
}

} // namespace

const CommandInfo kDiff{"diff", "LEFT RIGHT", "two lyrics line by line: words, times, tags", kDescription,
    kExamples, kOptions, 2, 2, run};

} // namespace cli
