// SPDX-License-Identifier: MIT
#include "cli/RunTool.h"
#include "cli/formats/Formats.h"
#include "cli/formats/Markup.h"
#include "cli/formats/Xml.h"
#include "lyrics/Generator.h"
#include "lyrics/Json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using support::Folder;
using support::Ran;
using support::run;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

constexpr const char *kSong = "[ti:The Star]\n[00:01.20]Twinkle <00:01.50>twinkle\n[00:03.00]little & "
                              "<star>\n[00:03.00]petite étoile\n"
                              "[00:05.00]\n[00:08.00]How I wonder\n";

std::string convert(const std::string &to, const std::string &text, const std::string &from = {})
{
    std::vector<std::string> arguments = {"convert", "-q", "--to", to};
    if (!from.empty())
        arguments.insert(arguments.end(), {"--from", from});
    const Ran ran = run(arguments, text);
    EXPECT_EQ(ran.status, 0) << ran.err;
    return ran.out;
}

} // namespace

TEST(Srt, HasALineFromEachStartToTheNext)
{
    EXPECT_EQ(convert("srt", kSong),
        "1\n00:00:01,200 --> 00:00:03,000\nTwinkle twinkle\n\n"
        "2\n00:00:03,000 --> 00:00:05,000\nlittle & <star>\n\n"
        "3\n00:00:03,000 --> 00:00:05,000\npetite étoile\n\n"
        "4\n00:00:08,000 --> 00:00:13,000\nHow I wonder\n\n");
}

TEST(Srt, IsReadHoweverItIsWritten)
{
    EXPECT_EQ(convert("lrc",
                  "\xEF\xBB\xBF"
                  "1\r\n00:00:01,200 --> 00:00:03,000\r\n<i>one</i>\r\ntwo {\\an8}\r\n\r\n"
                  "00:03.0 --> 00:04.5 X1:5\r\nthree <3 4\r\n\r\n99\r\n1:00:00,5 --> 1:00:01\r\n42\r\n"),
        "[00:01.20]one\n[00:01.20]two\n[00:03.00]three <3 4\n[00:04.50]\n[60:00.50]42\n[60:01.00]\n");
}

TEST(Srt, WhatPlayersTakeForMarksIsTold)
{
    const Ran ran = run({"convert", "--to", "srt"},
        "[00:01.00]<bad>word\n[00:02.00]{\\an8}up\n[00:03.00]1 < 2 > {x}\n[00:04.00]a<b>c</b>\n");
    EXPECT_THAT(ran.err, HasSubstr("standard input:1: <…> or {\\…} in it is taken for a mark"));
    EXPECT_THAT(ran.err, testing::AllOf(HasSubstr("input:2:"), HasSubstr("input:4:")));
    EXPECT_THAT(ran.err, testing::Not(HasSubstr("input:3:"))) << "no reader takes that for a mark";
    EXPECT_THAT(ran.out, testing::AllOf(HasSubstr("\n<bad>word\n"), HasSubstr("\n{\\an8}up\n")));
}

TEST(Srt, ALineEndsWhereItsRangeDoes)
{
    const std::string ranges = "[00:01.20-00:02.30]a\n [00:20.00] [00:04.00-00:05.00]b\n[00:09.00]c\n";
    EXPECT_EQ(convert("srt", ranges),
        "1\n00:00:01,200 --> 00:00:02,300\na\n\n2\n00:00:04,000 --> 00:00:05,000\nb\n\n"
        "3\n00:00:09,000 --> 00:00:20,000\nc\n\n4\n00:00:20,000 --> 00:00:25,000\nb\n\n");
}

TEST(Srt, ALineThatIsShownIntoTheNextIsTold)
{
    const Ran ran = run({"convert", "--to", "lrc"},
        "1\n00:00:01,000 --> 00:00:09,000\none\n\n2\n00:00:02,000 --> 00:00:03,000\ntwo\n");
    EXPECT_EQ(ran.out, "[00:01.00]one\n[00:02.00]two\n[00:03.00]\n");
    EXPECT_THAT(ran.err, HasSubstr("standard input:3: the line was shown until 00:09.00"));
}

TEST(Vtt, KeepsTheWordsTimes)
{
    const std::string vtt = convert("vtt", kSong);
    EXPECT_THAT(vtt, StartsWith("WEBVTT\n\n00:00:01.200 --> 00:00:03.000\nTwinkle <00:00:01.500>twinkle\n"));
    EXPECT_THAT(vtt, HasSubstr("little &amp; &lt;star&gt;\n"));
    EXPECT_EQ(convert("enhanced", vtt),
        "[00:01.20]Twinkle <00:01.50>twinkle<00:03.00>\n[00:03.00]little & <star>\n"
        "[00:03.00]petite étoile\n[00:05.00]\n[00:08.00]How I wonder\n[00:13.00]\n");
}

TEST(Vtt, NotesAndVoicesAreLeftOutAndTold)
{
    const Ran ran = run({"convert", "--to", "lrc"},
        "WEBVTT - x\n\nNOTE hello\n\nid\n00:01.000 --> 00:02.000 align:start\n<v Jane>one &#x41;&nope;\n");
    EXPECT_EQ(ran.out, "[00:01.00]one A&nope;\n[00:02.00]\n");
    EXPECT_THAT(ran.err,
        testing::AllOf(HasSubstr(":1:"), HasSubstr(":3:"), HasSubstr(":5:"), HasSubstr(":6: marks")));
}

TEST(Ass, IsKaraokeAndBack)
{
    const std::string ass = convert("ass", kSong);
    EXPECT_THAT(ass, HasSubstr("Title: The Star\n"));
    EXPECT_THAT(
        ass, HasSubstr("Dialogue: 0,0:00:01.20,0:00:03.00,Default,,0,0,0,,{\\k30}Twinkle {\\k150}twinkle\n"));
    EXPECT_EQ(convert("enhanced", ass),
        "[ti:The Star]\n[00:01.20]<00:01.20>Twinkle <00:01.50>twinkle<00:03.00>\n[00:03.00]little & <star>\n"
        "[00:03.00]petite étoile\n[00:05.00]\n[00:08.00]How I wonder\n[00:13.00]\n");
}

TEST(Ass, WhatItCountsTooCoarselyIsTold)
{
    const Ran ran = run({"convert", "--to", "ass"}, "[00:01.234]a {b} \\ c\n");
    EXPECT_THAT(ran.err, testing::AllOf(HasSubstr("hundredths"), HasSubstr("become (, ) and /"))) << ran.err;
    EXPECT_THAT(ran.out, HasSubstr("0:00:01.23,0:00:06.23,Default,,0,0,0,,a (b) / c\n"));
}

TEST(Ass, FieldsStandWhereTheFormatSays)
{
    EXPECT_EQ(convert("lrc",
                  "[Script Info]\n[Events]\nFormat: Start, End, Text\nComment: x\nDialogue: "
                  "0:00:01.00,0:00:02.00,one, two\\Nthree{\\b1}\n"),
        "[00:01.00]one, two\n[00:01.00]three\n[00:02.00]\n");
}

TEST(Ass, DrawingsAreNoWords)
{
    const Ran ran = run({"convert", "--to", "lrc", "--from", "ass"},
        "[Events]\n"
        "Dialogue: 0,0:00:01.00,0:00:03.00,,,0,0,0,,{\\p1}m 0 0 l 1 1{\\p0}\n"
        "Dialogue: 0,0:00:02.00,0:00:03.00,,,0,0,0,,{\\pos(1,2)}word {\\p2\\pbo3}m 0 0{\\p0}more\n");
    EXPECT_EQ(ran.out, "[00:02.00]word more\n[00:03.00]\n");
    EXPECT_THAT(ran.err,
        testing::AllOf(HasSubstr("input:2: marks of style or place, and drawings"), HasSubstr("input:3:")));
}

TEST(Ttml, KeepsBlanksThatCount)
{
    for (const char *song : {"[00:01.00]a  b\n[00:02.00]c d\n[00:07.00]\n", "[00:01.00]a\tb\n[00:06.00]\n",
             "[00:01.00]a  <00:01.50> b<00:02.00>\n[00:02.00]\n"})
        EXPECT_EQ(convert("enhanced", convert("ttml", song)), song);
    EXPECT_THAT(convert("ttml", "[00:01.00]a b\n"), testing::Not(HasSubstr("xml:space")));
    EXPECT_EQ(convert("lrc",
                  "<tt xml:space='preserve'><p begin='1s' end='2s'>\n    a  b\n    c</p>"
                  "<p begin='2s' end='3s' xml:space='default'>d  e</p></tt>"),
        "[00:01.00]a  b c\n[00:02.00]d e\n[00:03.00]\n")
        << "how a file is indented is no part of its lines";
}

TEST(Ttml, IsReadBack)
{
    const std::string ttml = convert("ttml", kSong);
    EXPECT_THAT(ttml, HasSubstr("<ttm:title>The Star</ttm:title>"));
    EXPECT_EQ(convert("enhanced", ttml),
        "[ti:The Star]\n[00:01.20]Twinkle <00:01.50>twinkle<00:03.00>\n[00:03.00]little & <star>\n"
        "[00:03.00]petite étoile\n[00:05.00]\n[00:08.00]How I wonder\n[00:13.00]\n");
}

TEST(Ttml, TimesAreReadInEachForm)
{
    EXPECT_EQ(convert("lrc",
                  "<tt frameRate='25' ttp:tickRate='1000'><body><div begin='1m'><p begin='1s' "
                  "dur='500ms'>a<br/>b</p></div>"
                  "<p begin='00:02:05:05'>c</p><p begin='130000t'>d &#233;<![CDATA[<e>]]></p><p "
                  "begin='0.05h'>f</p></body></tt>"),
        "[01:01.00]a\n[01:01.00]b\n[01:01.50]\n[02:05.20]c\n[02:10.00]d é<e>\n[03:00.00]f\n");
}

TEST(Text, KeepsTheWordsAlone)
{
    EXPECT_EQ(convert("text", kSong), "Twinkle twinkle\nlittle & <star>\npetite étoile\n\nHow I wonder\n");
    const Ran told = run({"convert", "--to", "text"}, "[ti:x]\n[00:01.00]a\n");
    EXPECT_THAT(told.err,
        testing::AllOf(HasSubstr("standard input:1: the tag [ti:x]"),
            HasSubstr("standard input:2: the time [00:01.00]")));
    EXPECT_EQ(convert("lrc", "one\n\n two\n", "text"), "one\n\ntwo\n");
}

TEST(Text, HasTheOrderThatExpandGives)
{
    const std::string song = "[00:10.00][00:01.00]A\nuntimed\n[00:05.00]B\n";
    EXPECT_EQ(run({"expand"}, song).out, "[00:01.00]A\nuntimed\n[00:05.00]B\n[00:10.00]A\n");
    EXPECT_EQ(convert("text", song), "A\nuntimed\nB\nA\n");
}

TEST(Repeats, AreShownEachTimeWithTheirWordsMovedAlong)
{
    EXPECT_EQ(convert("vtt", "[00:40.00][00:10.00]a <00:11.00>b<00:12.00>\n[00:20.00]c\n"),
        "WEBVTT\n\n00:00:10.000 --> 00:00:12.000\na <00:00:11.000>b\n\n00:00:20.000 --> 00:00:40.000\nc\n\n"
        "00:00:40.000 --> 00:00:42.000\na <00:00:41.000>b\n");
}

TEST(Lrc, KeepsItsBytesWhereNoStampIsConcerned)
{
    const std::string text = "\xEF\xBB\xBF[TI: x ]\r\n[0:1.2]a[00:02.00]b\r\n[0:3]  c\xFF ";
    EXPECT_EQ(convert("enhanced", text), "\xEF\xBB\xBF[TI: x ]\r\n[0:1.2]a<00:02.00>b\r\n[0:3]  c\xFF ");
    EXPECT_EQ(convert("lrc", text), "\xEF\xBB\xBF[TI: x ]\r\n[0:1.2]ab\r\n[0:3]  c\xFF ");
}

TEST(Convert, RefusesWhatHasNothingToShow)
{
    const Ran untimed = run({"convert", "--to", "srt"}, "no times\n");
    EXPECT_EQ(untimed.status, 1);
    EXPECT_THAT(untimed.err, HasSubstr("no line of it has a time"));
    const Ran wrong = run({"convert", "--to", "lrc", "--from", "srt"}, "[00:01.00]a\n");
    EXPECT_EQ(wrong.status, 1);
    EXPECT_THAT(wrong.err, HasSubstr("nothing in it can be read as srt"));
    EXPECT_EQ(std::count(wrong.err.begin(), wrong.err.end(), '\n'), 1) << "said once, not line by line";
    const Ran both = run({"convert", "--to", "vtt", "--from", "srt"}, "[00:01.00]a\n[00:02.00]b\n");
    EXPECT_EQ(both.err,
        "lrctool: standard input: nothing in it can be read as srt; name its format with --from, or "
        "its encoding with --encoding.\n");
    const Ran wordless = run({"convert", "--to", "srt"}, "[00:02.00]\n");
    EXPECT_EQ(wordless.status, 1);
    EXPECT_THAT(wordless.err, HasSubstr("no line that has a time has words"));
    EXPECT_EQ(run({"convert"}, "x").status, 2);
    EXPECT_EQ(run({"convert", "--to", "mp3"}, "x").status, 2);
}

TEST(Convert, WritesFilesAndOverNoneUnasked)
{
    const Folder folder;
    const std::string a = folder.write("in/a.b.lrc", "[00:01.00]a\n");
    folder.write("in/c.srt", "1\n00:00:01,000 --> 00:00:02,000\nc\n");
    folder.write("out/x", "");
    EXPECT_EQ(run({"convert", "-q", "--to", "vtt", "--into", folder / "out", folder / "in"}).status, 0);
    EXPECT_EQ(folder.read("out/a.b.vtt"), "WEBVTT\n\n00:00:01.000 --> 00:00:06.000\na\n");
    EXPECT_EQ(folder.read("out/c.vtt"), "WEBVTT\n\n00:00:01.000 --> 00:00:02.000\nc\n");
    const std::string out = folder / "out/a.b.vtt";
    const Ran again = run({"convert", "-o", out, a});
    EXPECT_EQ(again.status, 1);
    EXPECT_THAT(again.err, HasSubstr("--force"));
    folder.write("out/a.b.vtt", "old");
    EXPECT_EQ(run({"convert", "-o", out, "--force", a}).status, 0);
    EXPECT_THAT(folder.read("out/a.b.vtt"), StartsWith("WEBVTT"));
    EXPECT_EQ(run({"convert", "--to", "vtt", a, a}).status, 2);
    EXPECT_EQ(run({"convert", "--to", "vtt", "--into", folder / "out", "--force", a, a}).status, 2)
        << "one name";
}

TEST(Convert, WhatIsRefusedLeavesNoFile)
{
    const Folder folder;
    EXPECT_EQ(run({"convert", "--from", "srt", "-o", folder / "x.lrc", "-"}, "[00:01.00]a\n").status, 1);
    EXPECT_EQ(folder.count(), 0U);
}

TEST(Convert, AFolderThatIsMissingIsNamed)
{
    const Folder folder;
    const std::string none = folder / "none";
    for (const std::vector<std::string> &target : {std::vector<std::string>{"--into", none},
             {"--output", none + "/x.srt"}, {"--into", none, "--dry-run"}}) {
        std::vector<std::string> call = {"convert", "--to", "srt", folder.write("x.lrc", "[00:01.00]a\n")};
        call.insert(call.end(), target.begin(), target.end());
        const Ran ran = run(call);
        EXPECT_EQ(ran.status, 1);
        EXPECT_EQ(ran.err, "lrctool: " + none + ": there is no such folder; make it first.\n");
    }
}

TEST(Convert, TellsLossesInJson)
{
    const Ran ran = run({"convert", "--to", "srt", "--json"}, kSong);
    const json::Value answer = json::Parser(ran.out).value();
    EXPECT_EQ(ran.err, "");
    EXPECT_EQ(answer["losses"].array.at(0)["line"].integer(), 1);
    EXPECT_THAT(answer["text"].text, StartsWith("1\n"));
}

TEST(Convert, AnyBytesAreReadAsAnyFormat)
{
    constexpr std::array<std::string_view, 24> kPieces
        = {"00:00:01,000 --> 00:00:02,000", "\n", "\n\n", "<p begin='1s'>", "</p>", "<span begin=\"2s\">",
            "<br/>", "Dialogue: 0,0:00:01.00,0:00:02.00,,,0,0,0,,", "{\\k50}", "{", "[Events]", "<", ">", "&",
            "&#1;", "&#xD800;", "\xFF", "]]>", "<!--", "<![CDATA[", "<?", "'", "WEBVTT", "<00:00:01.500>"};
    generate::Random random(3);
    for (int i = 0; i < 4000; ++i) {
        std::string text;
        for (std::size_t piece = random.below(14); piece > 0; --piece)
            text += random.oneIn(4) ? random.oneOf(generate::kPieces) : random.oneOf(kPieces);
        for (const cli::LyricFormat *from : cli::allFormats()) {
            cli::Losses losses;
            const cli::Sheet sheet = from->read(text, losses);
            for (const cli::LyricFormat *to : cli::allFormats()) {
                const std::string written = to->write(sheet, losses);
                ASSERT_LT(written.size(), 100'000U);
            }
        }
    }
}

TEST(Convert, TimesAtTheEndOfTheRangeAreKeptInside)
{
    const std::string text = "[-153722867280912:55.80][153722867280912:55.80]a <153722867280912:55.80>b\n";
    for (const char *format : {"lrc", "enhanced", "srt", "vtt", "ass", "ttml", "text"})
        EXPECT_EQ(run({"convert", "--to", format}, text).status, 0) << format;
    EXPECT_THAT(run({"convert", "--to", "srt"}, text).err, HasSubstr("too large"));
    const std::string nested
        = "<tt><body begin='270000000000:00:00'><div begin='9e14ms'><p begin='1s'>a</p></div></body></tt>";
    EXPECT_EQ(run({"convert", "--to", "lrc"}, nested).status, 0);
}

TEST(Convert, ALineOfManyTimesIsRefusedBeforeItIsTooMuch)
{
    std::string text;
    for (int i = 0; i < 100'000; ++i)
        text += "[00:01]";
    text += std::string(1'000'000, 'x');
    const Ran ran = run({"convert", "--to", "srt"}, text);
    EXPECT_EQ(ran.status, 1);
    EXPECT_THAT(ran.err, HasSubstr("256 MiB"));
    EXPECT_EQ(run({"expand"}, text).status, 1);
}

TEST(Convert, WhatASubtitleSaysComesBack)
{
    // Lines from their starts to the next ones, in whole hundredths, is what each of them can say.
    generate::Random random(9);
    for (const char *format : {"srt", "vtt", "ass", "ttml"}) {
        for (int i = 0; i < 300; ++i) {
            std::string song;
            std::size_t centis = random.below(500);
            for (std::size_t line = 1 + random.below(6); line > 0; --line) {
                char time[32];
                std::snprintf(
                    time, sizeof time, "[%02zu:%02zu.%02zu]", centis / 6000, centis / 100 % 60, centis % 100);
                song += time
                    + std::string(line == 1   ? ""
                            : random.oneIn(2) ? "走廊 & \"x\""
                                              : "it's > that")
                    + "\n";
                centis += 2 + random.below(5000);
            }
            if (std::count(song.begin(), song.end(), '\n') == 1)
                continue;
            ASSERT_EQ(convert("lrc", convert(format, song), format), song) << format;
        }
    }
}

TEST(Xml, ForgivesWhatIsNotWellFormed)
{
    cli::XmlReader reader("<a x='1' b=\"&lt;\" c>t&amp;<!-- <no> --><br/></a><");
    std::vector<std::string> seen;
    for (cli::XmlToken token; reader.next(token);)
        seen.push_back(
            std::string(token.name) + "|" + token.text + (token.attribute("b") ? *token.attribute("b") : ""));
    EXPECT_THAT(seen, testing::ElementsAre("a|<", "|t&", "br|", "a|", "|<"));
}
