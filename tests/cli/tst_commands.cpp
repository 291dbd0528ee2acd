// SPDX-License-Identifier: MIT
#include "cli/RunTool.h"
#include "lyrics/Generator.h"
#include "lyrics/Json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

using support::Folder;
using support::Ran;
using support::run;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

json::Value parsed(const std::string &text)
{
    return json::Parser(text).value();
}

bool isRoot()
{
    return geteuid() == 0;
}

} // namespace

TEST(Cat, GivesEachByteBack)
{
    generate::Random random(2024);
    // One folder of names would be slow; the same reading and writing runs on standard input.
    for (int i = 0; i < 4000; ++i) {
        const std::string text = generate::anyText(random, 12, true);
        const Ran ran = run({"cat"}, text);
        ASSERT_EQ(ran.status, 0);
        ASSERT_EQ(ran.out, text);
        ASSERT_EQ(ran.err, "");
    }
}

TEST(Cat, ConvertsWhereItIsAskedTo)
{
    const Ran ran = run({"cat", "--encoding", "gb18030"}, "[00:01.00]\xD7\xDF\xC0\xC8\r\n");
    EXPECT_EQ(ran.out, "[00:01.00]走廊\r\n");
    const Ran refused = run({"cat", "-e", "utf-8"}, "ab\xFF");
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, HasSubstr("byte 3"));
    EXPECT_EQ(run({"cat", "-e", "klingon"}, "x").status, 2);
}

TEST(Cat, SaysTheGuess)
{
    const Ran ran = run({"cat", "-g"}, std::string("\xFF\xFE[\0ti:\0", 5) + std::string("\0", 0));
    EXPECT_THAT(ran.err, HasSubstr("UTF-16LE"));
    const Ran plain = run({"cat", "-g"}, "走廊");
    EXPECT_EQ(plain.err, "") << "nothing is guessed where it is UTF-8";
    EXPECT_EQ(plain.out, "走廊");
}

namespace {

// "[00:01.00]Привет, как дела" in windows-1251, which is none of those that are guessed.
const std::string kCyrillic = "[00:01.00]\xCF\xF0\xE8\xE2\xE5\xF2, \xEA\xE0\xEA \xE4\xE5\xEB\xE0\n";

std::string inUtf16(std::string_view ascii)
{
    std::string out = "\xFF\xFE";
    for (const char c : ascii)
        out.append(1, c).append(1, '\0');
    return out;
}

} // namespace

TEST(Guess, IsShownButWritesOverNothingWhenItIsUnsure)
{
    const Folder folder;
    const std::string file = folder.write("a.lrc", kCyrillic);
    EXPECT_THAT(run({"cat", "-g", file}).err, HasSubstr("which is a guess ("));
    for (const std::vector<std::string> &call :
        {std::vector<std::string>{"cat", "-g", "-i", file}, {"shift", "1s", "-g", "-i", "-n", file},
            {"convert", "--to=lrc", "-g", "--force", "-o", file, file}}) {
        const Ran ran = run(call);
        EXPECT_EQ(ran.status, 1) << call.front();
        EXPECT_THAT(ran.err, testing::AllOf(HasSubstr("too unsure"), HasSubstr("--encoding")))
            << call.front();
        EXPECT_EQ(ran.out, "") << call.front();
    }
    EXPECT_EQ(folder.read("a.lrc"), kCyrillic);
    EXPECT_EQ(run({"cat", "-e", "windows-1251", "-i", file}).status, 0);
    EXPECT_EQ(folder.read("a.lrc"), "[00:01.00]Привет, как дела\n");
}

TEST(Guess, OfUtf16IsSureAndWithoutItNothingIsDone)
{
    const Folder folder;
    const std::string text = inUtf16("[00:01.00]a\r\n[00:02.00]b\r\n");
    const std::string file = folder.write("a.lrc", text);
    for (const std::vector<std::string> &call : {std::vector<std::string>{"shift", "1s", "-i", file},
             {"format", "-i", file}, {"convert", "--to", "text", file}}) {
        const Ran ran = run(call);
        EXPECT_EQ(ran.status, 1) << call.front();
        EXPECT_THAT(ran.err, testing::AllOf(HasSubstr("looks like UTF-16"), HasSubstr("--guess-encoding")));
        EXPECT_EQ(ran.out, "") << call.front();
    }
    EXPECT_THAT(run({"shift", "1s"}, text.substr(2)).err, HasSubstr("looks like UTF-16"))
        << "without a mark, too";
    EXPECT_EQ(run({"cat", file}).out, text) << "the same bytes, whatever they are";
    EXPECT_EQ(folder.read("a.lrc"), text);
    EXPECT_EQ(run({"shift", "1s", "-g", "-i", file}).status, 0);
    EXPECT_EQ(folder.read("a.lrc"), "[00:02.00]a\r\n[00:03.00]b\r\n");
}

TEST(Dump, IsExactlyTheDocument)
{
    const Ran ran = run({"dump", "--json"},
        "[ti: x ][Foo:y]\n\n[00:01.20][00:03]  hello <00:02.00>there \n[offset: +500 ]\nnot timed\n");
    ASSERT_EQ(ran.status, 0);
    EXPECT_THAT(ran.out,
        StartsWith(R"({"lines":[{"tag":["ti","x"]},{"tag":["Foo","y"]},{"times_ms":[],"text":""},)"
                   R"({"times_ms":[1200,3000],"text":"hello <00:02.00>there"},)"
                   R"({"tag":["offset","+500"]},{"times_ms":[],"text":"not timed"}],"issues":[)"));
    EXPECT_THAT(ran.out, testing::EndsWith("]}\n"));
}

TEST(Dump, OfNothingHasNoLines)
{
    EXPECT_EQ(run({"dump", "--json"}, "").out, "{\"lines\":[],\"issues\":[]}\n");
}

TEST(Dump, SaysWhatItReplaced)
{
    const Ran ran = run({"dump", "--json"}, "[00:01.00]a\xFF\n");
    EXPECT_THAT(ran.out, HasSubstr("a\uFFFD"));
    EXPECT_THAT(ran.err, HasSubstr("U+FFFD"));
}

TEST(Dump, OfSeveralIsALineEachWithItsFile)
{
    const Folder folder;
    folder.write("b.lrc", "[00:01.00]b\n");
    folder.write("a/x.LRC", "[00:01.00]a\n");
    folder.write("a/no.txt", "x");
    folder.write(".hidden.lrc", "x");
    const Ran ran = run({"dump", "--json", folder.path()});
    const std::size_t end = ran.out.find('\n');
    EXPECT_EQ(parsed(ran.out.substr(0, end))["file"].text, folder / "a/x.LRC");
    EXPECT_EQ(parsed(ran.out.substr(end + 1))["file"].text, folder / "b.lrc");
    EXPECT_EQ(std::count(ran.out.begin(), ran.out.end(), '\n'), 2);
}

TEST(Shift, MovesTimesAndSaysWhatStopsAtZero)
{
    EXPECT_EQ(run({"shift", "+0.5s"}, "[ti:x]\n[00:01.20]a\n").out, "[ti:x]\n[00:01.70]a\n");
    EXPECT_EQ(run({"shift", "-500ms", "-"}, "[00:01.20]a\n").out, "[00:00.70]a\n");
    const Ran cut = run({"shift", "-2s"}, "[00:01.20]a\n");
    EXPECT_EQ(cut.out, "[00:00.00]a\n");
    EXPECT_THAT(cut.err, HasSubstr("stops at zero"));
    EXPECT_EQ(run({"shift", "-2s", "-q"}, "[00:01.20]a\n").err, "");
    EXPECT_EQ(run({"shift", "2"}, "").status, 2);
    EXPECT_EQ(run({"shift"}, "").status, 2);
}

TEST(Shift, WritesATimeThatChangesAnewAndNoOther)
{
    const std::string text = "[1:02.3]a\n[3:00]b\n";
    EXPECT_EQ(run({"shift", "1s"}, text).out, "[01:03.30]a\n[03:01.00]b\n");
    EXPECT_EQ(run({"shift", "5ms"}, text).out, "[01:02.305]a\n[03:00.005]b\n");
    EXPECT_EQ(run({"shift", "0s"}, text).out, text);
    EXPECT_EQ(
        run({"stretch", "-a", "3:00.0=3:00.0", "-a", "1:02.3=1:02.4"}, text).out, "[01:02.40]a\n[3:00]b\n");
    EXPECT_EQ(run({"collapse"}, "[1:02.3]a\n[3:00]a\n").out, "[1:02.3][03:00.00]a\n");
    for (const char *name : {"shift", "stretch", "collapse"}) {
        const std::string help = run({name, "--help"}).out;
        EXPECT_THAT(help, testing::AllOf(HasSubstr("written anew"), HasSubstr("[01:02.305]"))) << name;
    }
}

TEST(Stretch, NeedsAnAnchor)
{
    EXPECT_EQ(run({"stretch"}, "[00:01.00]a").status, 2);
    EXPECT_EQ(run({"stretch", "-a", "1s"}, "[00:01.00]a").status, 2);
    EXPECT_EQ(run({"stretch", "-a", "0:10.00=0:11.00", "-a", "0:20.00=0:22.00"},
                  "[00:10.00]a\n[00:15.00]b\n[00:30.00]c\n")
                  .out,
        "[00:11.00]a\n[00:16.50]b\n[00:33.00]c\n");
}

TEST(Format, IsCanonicalAndSaysTheSame)
{
    const Ran ran
        = run({"format"}, "\xEF\xBB\xBF[TI: x ][offset: +5]\r\n [0:99] [1:2.3]  a  \r\n\r\n[00:05.1234]b");
    EXPECT_EQ(ran.out, "[ti:x]\n[offset:+5]\n[01:39.00][01:02.30]a\n\n[00:05.123]b\n");
    EXPECT_EQ(run({"format"}, ran.out).out, ran.out);
}

TEST(Format, LeavesARangeAsItIsSpelled)
{
    const std::string text = "[00:01.20-00:02.30]a\n[-00:01.00]b\n";
    EXPECT_EQ(run({"format"}, text).out, text);
}

TEST(Format, NeverChangesWhatALyricSays)
{
    const Folder folder;
    generate::Random random(5);
    for (int i = 0; i < 3000; ++i) {
        const std::string text = generate::anyText(random, 8, true);
        const Ran once = run({"format"}, text);
        if (once.status != 0) {
            ASSERT_THAT(once.err, HasSubstr("read as something else"));
            continue;
        }
        folder.write("once.lrc", once.out);
        ASSERT_EQ(run({"diff", "-", folder / "once.lrc"}, text).status, 0) << text;
        ASSERT_EQ(run({"format"}, once.out).out, once.out) << text;
    }
}

TEST(Order, IsThatOfTheModel)
{
    const std::string text = "[00:10.00][00:40.00]chorus\n[00:20.00]verse\n";
    const std::string expanded = "[00:10.00]chorus\n[00:20.00]verse\n[00:40.00]chorus\n";
    EXPECT_EQ(run({"expand"}, text).out, expanded);
    EXPECT_EQ(run({"collapse"}, expanded).out, text);
    EXPECT_EQ(run({"sort"}, "[00:20.00]b\n[00:10.00]a\n").out, "[00:10.00]a\n[00:20.00]b\n");
}

TEST(BakeOffset, WantsToBeToldTheSense)
{
    const std::string text = "[offset:+500]\n[00:10.00]a\n";
    const Ran asked = run({"bake-offset"}, text);
    EXPECT_EQ(asked.status, 1);
    EXPECT_EQ(asked.out, "");
    EXPECT_THAT(asked.err, testing::AllOf(HasSubstr("earlier"), HasSubstr("later")));
    EXPECT_EQ(run({"bake-offset", "--positive", "earlier"}, text).out, "[00:09.50]a\n");
    EXPECT_EQ(run({"bake-offset", "--positive=later"}, text).out, "[00:10.50]a\n");
    const Ran none = run({"bake-offset"}, "[00:10.00]a\n");
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(none.out, "[00:10.00]a\n");
    EXPECT_EQ(run({"bake-offset", "--positive=later"}, "[offset:x]\n").status, 1);
}

TEST(Check, TellsFindingsAndExitsByThem)
{
    const Ran fine = run({"check"}, "[ti:x]\n[00:01.00]a\n[00:02.00]b\n");
    EXPECT_EQ(fine.status, 0) << fine.out;
    EXPECT_EQ(fine.out, "");
    const Ran bad = run({"check"}, "[00:01.00]a\n[00:9x]b\n[00:75.00]c\xFF\n");
    EXPECT_EQ(bad.status, 1);
    EXPECT_THAT(bad.out, HasSubstr("standard input:3:"));
    const Ran inJson = run({"check", "--json"}, "[00:01.00]a\n[00:75.00]c\xFF\n");
    EXPECT_EQ(inJson.status, 1);
    EXPECT_FALSE(parsed(inJson.out)["issues"].array.empty());
}

TEST(Diff, TellsWordsTimesAndTags)
{
    const Folder folder;
    const std::string left = folder.write("l.lrc", "[ti:x]\n[00:01.00]one\n[00:02.00]two\n[00:03.00]three\n");
    const std::string right
        = folder.write("r.lrc", "[ti:y]\n[00:01.00]one\n[00:02.50]two\n[00:03.00]drei\n[00:04.00]four\n");
    const Ran ran = run({"diff", "--json", left, right});
    EXPECT_EQ(ran.status, 1);
    std::vector<std::string> kinds;
    const json::Value answer = parsed(ran.out);
    for (const json::Value &difference : answer["differences"].array)
        kinds.push_back(difference["kind"].text);
    EXPECT_THAT(kinds, testing::ElementsAre("tag", "times", "only-left", "only-right", "only-right"));
    EXPECT_EQ(run({"diff", left, left}).status, 0);
    EXPECT_EQ(run({"diff", left}).status, 2);
}

TEST(Diff, SpellingIsNoDifferenceAndAShiftIsOneLine)
{
    const Folder folder;
    const std::string left = folder.write("l.lrc", "[0:01]a\r\n[0:2.5] b ");
    EXPECT_EQ(run({"diff", left, "-"}, "[00:01.00]a\n[00:02.50]b\n").status, 0);
    EXPECT_EQ(
        run({"diff", left, "-"}, "[00:01.50]a\n[00:03.00]b\n").out, "the same, every time moved by +0.5 s\n");
}

TEST(InPlace, WritesWhatChangedAndNothingElse)
{
    const Folder folder;
    const std::string changed = folder.write("a.lrc", "[00:01.00]a\n");
    const std::string same = folder.write("b.lrc", "no times\n");
    struct stat before = {};
    ASSERT_EQ(stat(same.c_str(), &before), 0);
    const Ran ran = run({"shift", "1s", "-i", changed, same});
    EXPECT_EQ(ran.status, 0) << ran.err;
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(folder.read("a.lrc"), "[00:02.00]a\n");
    struct stat after = {};
    ASSERT_EQ(stat(same.c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_EQ(folder.count(), 2U) << "no temporary is left";
}

TEST(InPlace, WritesThroughALinkAndKeepsTheMode)
{
    const Folder folder;
    const std::string file = folder.write("a.lrc", "[00:01.00]a\n");
    chmod(file.c_str(), 0640);
    std::filesystem::create_symlink("a.lrc", folder / "link.lrc");
    EXPECT_EQ(run({"shift", "1s", "-i", folder / "link.lrc"}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.lrc"));
    EXPECT_EQ(folder.read("a.lrc"), "[00:02.00]a\n");
    struct stat status = {};
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST(InPlace, LeavesAReadOnlyFileAlone)
{
    const Folder folder;
    const std::string file = folder.write("a.lrc", "[00:01.00]a\n");
    chmod(file.c_str(), 0444);
    const Ran ran = run({"shift", "1s", "-i", file});
    EXPECT_EQ(ran.status, 1);
    EXPECT_THAT(ran.err, HasSubstr("read-only"));
    EXPECT_EQ(folder.read("a.lrc"), "[00:01.00]a\n");
    EXPECT_EQ(folder.count(), 1U);
    if (!isRoot())
        chmod(file.c_str(), 0644);
}

TEST(InPlace, ADryRunWritesNothing)
{
    const Folder folder;
    const std::string file = folder.write("a.lrc", "[00:01.00]a\n[00:02.00]b\n");
    const Ran ran = run({"shift", "1s", "-i", "-n", file});
    EXPECT_EQ(ran.out, "@@ line 1\n-[00:01.00]a\n+[00:02.00]a\n-[00:02.00]b\n+[00:03.00]b\n");
    EXPECT_THAT(ran.err, HasSubstr("2 lines would change"));
    EXPECT_EQ(folder.read("a.lrc"), "[00:01.00]a\n[00:02.00]b\n");
    const json::Value answer = parsed(run({"shift", "1s", "-i", "-n", "-j", file}).out);
    EXPECT_TRUE(answer["changed"].boolean);
    EXPECT_FALSE(answer["written"].boolean);
    EXPECT_EQ(answer["changes"].array.size(), 1U);
}

TEST(InPlace, IsNotForStandardInputAndNotLeftOutForMany)
{
    const Folder folder;
    const std::string file = folder.write("a.lrc", "[00:01.00]a\n");
    EXPECT_EQ(run({"shift", "1s", "-i", "-"}, "x").status, 2);
    EXPECT_EQ(run({"shift", "1s", file, file}).status, 2);
    EXPECT_EQ(folder.read("a.lrc"), "[00:01.00]a\n");
}

TEST(InPlace, AConvertedFileIsWrittenEvenIfNoLineChanged)
{
    const Folder folder;
    const std::string file = folder.write("a.lrc", "[00:01.00]\xE9\n");
    EXPECT_EQ(run({"cat", "-e", "latin1", "-i", file}).status, 0);
    EXPECT_EQ(folder.read("a.lrc"), "[00:01.00]é\n");
}

TEST(Inputs, WhatCannotBeReadIsSaidAndTheRestGoesOn)
{
    const Folder folder;
    const std::string file = folder.write("a.lrc", "[00:01.00]a\n");
    const Ran ran = run({"cat", folder / "none.lrc", file, "/dev/zero"});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out, "[00:01.00]a\n");
    EXPECT_THAT(ran.err, testing::AllOf(HasSubstr("no such file"), HasSubstr("device")));
}

TEST(Inputs, AListNamesThem)
{
    const Folder folder;
    const std::string a = folder.write("a.lrc", "A\n");
    const std::string b = folder.write("b\nc.lrc", "B\n");
    EXPECT_EQ(run({"cat", "--files-from", "-", "-0"}, b + '\0' + a + '\0').out, "B\nA\n");
    EXPECT_EQ(run({"cat", "--files-from", folder.write("list", a + "\n\n" + a)}).out, "A\nA\n");
    EXPECT_EQ(run({"cat", "--files-from", "-"}, "").out, "") << "a list of nothing is nothing to read";
    EXPECT_EQ(run({"cat", "-0"}, "").status, 2);
    EXPECT_EQ(run({"cat", "--files-from", "-", "-"}, "").status, 2);
    EXPECT_EQ(run({"cat", "--files-from", folder / "none"}, "").status, 1);
}

TEST(Inputs, WhatIsTooLargeIsRefusedUnread)
{
    const Folder folder;
    const std::string file = folder.write("huge.lrc", "");
    ASSERT_EQ(truncate(file.c_str(), 3'000'000'000), 0);
    const Ran ran = run({"check", file});
    EXPECT_EQ(ran.status, 1);
    EXPECT_THAT(ran.err, HasSubstr("64 MiB"));
}

TEST(Inputs, APipeWithoutAWriterIsToldOf)
{
    const Folder folder;
    ASSERT_EQ(mkfifo((folder / "pipe.lrc").c_str(), 0600), 0);
    const Ran ran = run({"cat", folder / "pipe.lrc"});
    EXPECT_EQ(ran.status, 1);
    EXPECT_THAT(ran.err, HasSubstr("nobody writes"));
    EXPECT_EQ(run({"cat", folder.path()}).err, "") << "in a folder it is no lyric";
}

TEST(Help, TeachesEachCommand)
{
    const Ran general = run({"--help"});
    EXPECT_EQ(general.status, 0);
    for (const char *name : {"cat", "dump", "check", "shift", "stretch", "format", "expand", "collapse",
             "sort", "bake-offset", "convert", "diff", "fields", "extract", "embed"}) {
        EXPECT_THAT(general.out, HasSubstr(std::string("  ") + name + " "));
        const Ran ran = run({name, "--help"});
        EXPECT_EQ(ran.status, 0);
        EXPECT_THAT(ran.out, HasSubstr("\nExamples:\n"));
        EXPECT_THAT(ran.out, HasSubstr(std::string("  lrctool ") + name + " "));
        EXPECT_EQ(run({"help", name}).out, ran.out);
    }
    for (const char *writer : {"--in-place", "--output", "--into", "'embed'", "'extract --beside'",
             "'fields --equal'", "'--clear'"})
        EXPECT_THAT(general.out, HasSubstr(writer));
    EXPECT_EQ(run({}).status, 2);
    EXPECT_EQ(run({"chekc"}).status, 2);
    EXPECT_THAT(run({"chekc"}).err, HasSubstr("'check'"));
    EXPECT_THAT(run({"--version"}).out, StartsWith("lrctool "));
}
