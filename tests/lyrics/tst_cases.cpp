// SPDX-License-Identifier: MIT
//
// Cases from other projects' test suites, where their folder is present. They agree in one thing, and that
// is compared: the pairs of time and text, sorted by time.

#include "lyrics/Blanks.h"
#include "lyrics/Json.h"
#include "lyrics/SongSupport.h"
#include "lyrics/TimeTag.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Pairs = std::vector<std::pair<std::int64_t, std::string>>;

/// Where our rule is another one, and why.
const std::map<std::string, std::string> &deviations()
{
    static const std::string kOffset = "an offset tag is kept and not applied";
    static const std::string kWords = "word stamps belong to the text of the line";
    static const std::string kBytes = "the component keeps to UTF-8; other encodings are kept byte for byte";
    static const std::map<std::string, std::string> table = {
        {"rmpc/offset-earlier", kOffset},
        {"rmpc/offset-later", kOffset},
        {"rmpc/offset-var-1", kOffset},
        {"rmpc/offset-var-2", kOffset},
        {"vibrance/int64--offset-saturates-1", kOffset},
        {"vibrance/int64--offset-saturates-3", kOffset},
        {"vibrance/offset--negative", kOffset},
        {"vibrance/offset--never-below-zero", kOffset},
        {"vibrance/offset--between-the-lines", kOffset},
        {"vibrance/offset--spaces", kOffset},
        {"vibrance/offset--on-the-line-of-a-stamp", kOffset},
        {"vibrance/offset--bom-and-crlf", kOffset},
        {"vibrance/word--enhanced", kWords},
        {"vibrance/word--open-before-tag", kWords},
        {"vibrance/word--square-tags-stay", kWords},
        {"foo_openlyrics_mac/inline-words", kWords},
        {"foo_openlyrics_mac/trailing-stamp", kWords},
        {"leejkee-lyric-parser/normal-gbk", kBytes},
        {"foo_lyricus/utf16le", kBytes},
        {"foo_lyricus/gbk", kBytes},
        {"vibrance/not-utf8--timed", kBytes},
        {"vibrance/not-utf8--truncated", kBytes},
        {"vibrance/dirty--everything-at-once", "offset and word stamps as above, and [00:99.00] is 99 s"},
        {"vibrance/plain--invalid-times", "seconds above 59 are a time tag in a file: [00:75.00] is 75 s"},
        {"vibrance/not-a-stamp--a-sign",
            "a sign is what writers leave that rewound past zero: a negative time"},
        {"vibrance/bom--twice", "a second mark is a blank, so that joined files are read"},
        {"magiclen-lrc/tag-after-stamp",
            "what follows the time tags is the text, also what looks like a tag"},
        {"magiclen-lrc/comment-after-stamp",
            "what follows the time tags is the text, also what looks like a comment"},
        {"liricle/enhanced-indented", "the source makes one blank of several when it takes word stamps out"},
        {"lrc-kit/combine", "the source tells only what it joins lines into; we join none"},
        {"lrcmux/word-file", "the source tells nothing of the lines"},
    };
    return table;
}

std::string decoded(std::string_view base64)
{
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    unsigned bits = 0;
    int count = 0;
    for (const char c : base64) {
        const std::size_t digit = kDigits.find(c);
        if (digit == std::string_view::npos)
            break;
        bits = bits << 6 | static_cast<unsigned>(digit);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += static_cast<char>(bits >> count & 0xFFU);
        }
    }
    return bytes;
}

/// Without word stamps of either form, and without the blanks round it.
std::string withoutWordStamps(std::string_view text, bool squareToo)
{
    std::string plain;
    const char *end = text.data() + text.size();
    for (const char *p = text.data(); p < end; ++p) {
        lyrics::TimeSpelling time;
        const char closing = *p == '<' ? '>' : *p == '[' && squareToo ? ']' : '\0';
        if (closing && lyrics::readTime(p + 1, end, lyrics::ColonReading::Fraction, time) && time.end < end
            && *time.end == closing)
            p = time.end;
        else
            plain += *p;
    }
    return std::string(lyrics::trimmed(plain));
}

void sortByTime(Pairs &pairs)
{
    std::stable_sort(
        pairs.begin(), pairs.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
}

Pairs pairsOf(const RBEditSong &song)
{
    Pairs pairs;
    for (const RBSongLine &line : song.aryLines()) {
        for (const std::int64_t millis : line.aryTimes())
            pairs.emplace_back(millis, std::string(line.lineText()));
    }
    sortByTime(pairs);
    return pairs;
}

Pairs pairsExpected(const json::Value &expected)
{
    Pairs pairs;
    for (const json::Value &line : expected["lines"].array) {
        if (!line.has("times_ms"))
            continue;
        for (const json::Value &millis : line["times_ms"].array)
            pairs.emplace_back(millis.integer(), std::string(lyrics::trimmed(line["text"].text)));
    }
    sortByTime(pairs);
    return pairs;
}

std::vector<json::Value> cases()
{
    std::vector<json::Value> all;
    const char *folder = std::getenv("TQLRC_CASES");
    std::ifstream file(std::string(folder ? folder : "") + "/lrc/cases.jsonl");
    for (std::string line; std::getline(file, line);)
        all.push_back(json::Parser(line).value());
    return all;
}

class Cases : public testing::Test
{
protected:
    void SetUp() override
    {
        if (m_cases.empty())
            GTEST_SKIP() << "the folder of cases (TQLRC_CASES) is not here";
    }
    std::vector<json::Value> m_cases = cases();
};

/// What is to be compared of a case, as far as the source says so.
void compare(const json::Value &one, Pairs &ours, Pairs &theirs)
{
    const json::Value &expected = one["expected"];
    // A source that tells no line tells at least how many it found.
    if (expected["lines"].array.empty() && expected.has("count"))
        theirs.assign(static_cast<std::size_t>(expected["count"].integer()), {});
    if (expected["lines"].array.empty() && expected.has("min_count")) {
        EXPECT_GE(static_cast<long long>(ours.size()), expected["min_count"].integer()) << one["id"].text;
        theirs.assign(ours.size(), {});
    }
    const bool hasLines = !expected["lines"].array.empty();
    bool hasWords = false;
    for (const json::Value &line : expected["lines"].array)
        hasWords = hasWords || line.has("words");
    const bool hasTexts = hasLines && !expected.has("texts_not_asserted");
    const bool hasTimes = hasLines && !expected.has("times_not_asserted");
    for (auto &[millis, text] : ours) {
        text = hasTexts ? hasWords ? withoutWordStamps(text, true) : text : std::string();
        millis = hasTimes ? millis : 0;
    }
    for (auto &[millis, text] : theirs) {
        text = hasTexts ? text : std::string();
        millis = hasTimes ? millis : 0;
    }
}

TEST_F(Cases, AgreeWithUsOrAreListedWithAReason)
{
    std::size_t agreed = 0;
    for (const json::Value &one : m_cases) {
        const std::string id = one["id"].text;
        RBEditSong song = songs::built(decoded(one["input_b64"].text));
        Pairs ours = pairsOf(song);
        Pairs theirs = pairsExpected(one["expected"]);
        compare(one, ours, theirs);
        const auto deviation = deviations().find(id);
        if (deviation == deviations().end()) {
            EXPECT_THAT(ours, testing::ContainerEq(theirs)) << id;
            ++agreed;
        } else {
            EXPECT_NE(ours, theirs) << id << " agrees now: take it from the list";
        }
    }
    EXPECT_EQ(agreed + deviations().size(), m_cases.size());
    RecordProperty("agreed", static_cast<int>(agreed));
}

TEST_F(Cases, AreAllWrittenBackByteForByte)
{
    for (const json::Value &one : m_cases) {
        const std::string text = decoded(one["input_b64"].text);
        RBEditSong song = songs::built(text);
        songs::touchAll(song);
        EXPECT_EQ(songs::written(song), text) << one["id"].text;
    }
}

} // namespace
