// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/Iconv.h"
#include "cli/Json.h"
#include "cli/LineDiff.h"
#include "cli/Parallel.h"
#include "cli/Progress.h"
#include "cli/TimeText.h"
#include "cli/Utf8.h"
#include "lyrics/Generator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <stdexcept>

using testing::ElementsAre;

namespace {

std::string json(std::string_view text)
{
    std::string out;
    cli::appendJsonString(out, text);
    return out;
}

} // namespace

TEST(JsonString, EscapesWhatJsonEscapes)
{
    EXPECT_EQ(json("a\"b\\c\n\r\t\x01\x1F"), R"("a\"b\\c\n\r\t\u0001\u001f")");
    EXPECT_EQ(json(std::string_view("\0", 1)), R"("\u0000")");
    EXPECT_EQ(json("走廊😀\x7F"), "\"走廊😀\\u007f\"");
}

TEST(JsonString, EachMaximalWrongPartIsOneReplacement)
{
    EXPECT_EQ(json("\xFF\xFE"), "\"\uFFFD\uFFFD\"");
    EXPECT_EQ(json("\xE6\x9D"
                   "a"),
        "\"\uFFFDa\"");
    EXPECT_EQ(json("\xED\xA0\x80"), "\"\uFFFD\uFFFD\uFFFD\"") << "a surrogate is no character";
    EXPECT_EQ(json("\xC0\xAF"), "\"\uFFFD\uFFFD\"") << "an overlong form is none";
    EXPECT_EQ(json("\xF4\x90\x80\x80"), "\"\uFFFD\uFFFD\uFFFD\uFFFD\"") << "nothing is past U+10FFFF";
    EXPECT_EQ(json("\xF0\x9F\x98"), "\"\uFFFD\"");
}

TEST(JsonString, TellsWhetherSomethingWasReplaced)
{
    std::string out;
    EXPECT_TRUE(cli::appendJsonString(out, "走"));
    EXPECT_FALSE(cli::appendJsonString(out, "\xFF"));
}

TEST(JsonWriter, PutsCommasWhereTheyBelong)
{
    std::string out;
    cli::JsonWriter writer(out);
    writer.beginObject().key("a").beginArray().number(-1).string("x").beginArray().endArray().endArray();
    writer.key("b").boolean(false).key("c").beginObject().endObject().endObject();
    EXPECT_EQ(out, R"({"a":[-1,"x",[]],"b":false,"c":{}})");
}

TEST(Shown, LeavesNothingThatMovesATerminal)
{
    EXPECT_EQ(cli::shown("a\x1B[2Jb\tc\r"), "a\uFFFD[2Jb\tc\uFFFD");
    EXPECT_EQ(cli::shown("\xC2\x9B"), "\uFFFD") << "the eight-bit form of the same";
    EXPECT_EQ(cli::shown("x\u202Ey\u2028"), "x<U+202E>y\uFFFD");
}

TEST(Amounts, NeedAUnit)
{
    EXPECT_EQ(cli::parseAmount("500ms"), 500);
    EXPECT_EQ(cli::parseAmount("-0.5s"), -500);
    EXPECT_EQ(cli::parseAmount("+.25s"), 250);
    EXPECT_EQ(cli::parseAmount("-1:02.3"), -62'300);
    EXPECT_EQ(cli::parseAmount("1:00:00"), 3'600'000);
    EXPECT_EQ(cli::parseAmount("2s"), 2000);
    for (const char *text : {"5", "", "-", "s", "ms", "1.5ms", "1:5x", "--1s", "1s2", "99999999999999999999s",
             "9223372036854775807s", "1:60", "1:2:3:4", " 1s"})
        EXPECT_EQ(cli::parseAmount(text), std::nullopt) << text;
}

TEST(Positions, HaveNoSign)
{
    EXPECT_EQ(cli::parsePosition("0:12.00"), 12'000);
    EXPECT_EQ(cli::parsePosition("-1s"), std::nullopt);
}

TEST(ExactTime, HasThreeDigitsWhereTwoDoNotSayIt)
{
    EXPECT_EQ(cli::exactTime(62'340), "01:02.34");
    EXPECT_EQ(cli::exactTime(62'345), "01:02.345");
    EXPECT_EQ(cli::exactTime(-10), "-00:00.01");
    EXPECT_EQ(cli::exactTime(6'000'000), "100:00.00");
}

TEST(ClockTime, IsReadBack)
{
    generate::Random random(7);
    for (int i = 0; i < 2000; ++i) {
        const auto millis = static_cast<std::int64_t>(random.below(400'000'000));
        const std::string text = cli::clockTime(millis, {});
        std::string_view rest = text;
        ASSERT_EQ(cli::takeClockTime(rest), millis) << text;
        ASSERT_TRUE(rest.empty());
    }
    EXPECT_EQ(cli::clockTime(3'723'456, {1, 2, '.'}), "1:02:03.45");
    EXPECT_EQ(cli::clockTime(-5, {2, 3, ','}), "00:00:00,000");
}

TEST(LineDiff, FindsTheFewestLines)
{
    using Views = std::vector<std::string_view>;
    EXPECT_TRUE(cli::diffLines(Views{"a", "b"}, Views{"a", "b"}).empty());
    EXPECT_THAT(cli::diffLines(Views{"a", "b", "c", "d"}, Views{"a", "c", "x", "d"}),
        ElementsAre(cli::DiffBlock{1, 2, 1, 1}, cli::DiffBlock{3, 3, 2, 3}));
    EXPECT_THAT(cli::diffLines(Views{}, Views{"x"}), ElementsAre(cli::DiffBlock{0, 0, 0, 1}));
}

TEST(LineDiff, AppliedToTheLeftGivesTheRight)
{
    generate::Random random(11);
    constexpr std::array<std::string_view, 4> kWords = {"a", "b", "c", "d"};
    for (int round = 0; round < 3000; ++round) {
        std::vector<std::string_view> left(random.below(12));
        std::vector<std::string_view> right(random.below(12));
        for (std::string_view &word : left)
            word = random.oneOf(kWords);
        for (std::string_view &word : right)
            word = random.oneOf(kWords);
        std::vector<std::string_view> made;
        std::size_t at = 0;
        for (const cli::DiffBlock &block : cli::diffLines(left, right)) {
            made.insert(made.end(), left.begin() + std::ptrdiff_t(at),
                left.begin() + std::ptrdiff_t(block.leftBegin));
            ASSERT_EQ(made.size(), block.rightBegin);
            made.insert(made.end(), right.begin() + std::ptrdiff_t(block.rightBegin),
                right.begin() + std::ptrdiff_t(block.rightEnd));
            at = block.leftEnd;
        }
        made.insert(made.end(), left.begin() + std::ptrdiff_t(at), left.end());
        ASSERT_EQ(made, right);
    }
}

TEST(LineDiff, TextsThatShareLittleAreOneBlock)
{
    std::vector<std::string> texts;
    for (int i = 0; i < 6000; ++i)
        texts.push_back(std::to_string(i));
    const std::vector<std::string_view> left(texts.begin(), texts.begin() + 3000);
    const std::vector<std::string_view> right(texts.begin() + 3000, texts.end());
    EXPECT_THAT(cli::diffLines(left, right), ElementsAre(cli::DiffBlock{0, 3000, 0, 3000}));
}

TEST(Parallel, EmitsInOrderWhateverComesFirst)
{
    for (const unsigned threads : {1U, 2U, 7U}) {
        std::vector<std::string> got;
        cli::runInOrder(
            1000, threads,
            [](std::size_t i) {
                return cli::JobResult{std::to_string(i), {}, {}};
            },
            [&got](std::size_t i, const cli::JobResult &result) {
                EXPECT_EQ(std::to_string(i), result.out);
                got.push_back(result.out);
                return true;
            });
        EXPECT_EQ(got.size(), 1000U);
    }
}

TEST(Parallel, EndsWhenNobodyWantsMore)
{
    std::atomic<std::size_t> done = 0;
    std::size_t emitted = 0;
    cli::runInOrder(
        100'000, 4,
        [&done](std::size_t) {
            ++done;
            return cli::JobResult{};
        },
        [&emitted](std::size_t, const cli::JobResult &) { return ++emitted < 10; });
    EXPECT_EQ(emitted, 10U);
    EXPECT_LT(done, 5000U);
}

TEST(Parallel, HandsOnWhatAJobThrows)
{
    const auto job
        = [](std::size_t i) { return i == 500 ? throw std::runtime_error("no") : cli::JobResult{}; };
    EXPECT_THROW(cli::runInOrder(1000, 3, job, [](std::size_t, const cli::JobResult &) { return true; }),
        std::runtime_error);
}

TEST(Parallel, NothingIsNothing)
{
    cli::runInOrder(
        0, 4, [](std::size_t) -> cli::JobResult { throw std::logic_error("called"); },
        [](std::size_t, const cli::JobResult &) -> bool { throw std::logic_error("called"); });
    SUCCEED();
}

TEST(Progress, TellsHowManyAreDone)
{
    EXPECT_EQ(cli::progressLine(50, 100), "[" + std::string(20, '#') + std::string(20, '.') + "] 50 of 100");
    EXPECT_EQ(cli::progressLine(3, 3), "[" + std::string(40, '#') + "] 3 of 3");
}

TEST(Iconv, LeavesTheMarkOffAndTellsWhatIsWrong)
{
    EXPECT_EQ(cli::toUtf8(std::string_view("\xFF\xFE\x70\x8D", 4), "UTF-16LE").text, "走");
    EXPECT_EQ(cli::toUtf8("\xD7\xDF", "GB18030").text, "走");
    EXPECT_EQ(cli::toUtf8("ab\xFF", "UTF-8").wrongAt, 2U);
    EXPECT_TRUE(cli::isEncoding("shift_jis"));
    EXPECT_FALSE(cli::isEncoding("klingon"));
    EXPECT_FALSE(cli::isEncoding("latin1//TRANSLIT"));
    EXPECT_FALSE(cli::isEncoding(""));
}

TEST(Iconv, ALongTextIsConvertedWhole)
{
    std::string latin(100'001, '\xE9');
    EXPECT_EQ(cli::toUtf8(latin, "ISO-8859-1").text.size(), 200'002U);
}

TEST(Nearest, IsWhatWasProbablyMeant)
{
    constexpr std::array<std::string_view, 3> kWords = {"check", "convert", "collapse"};
    EXPECT_EQ(cli::nearest("chek", kWords), "check");
    EXPECT_EQ(cli::nearest("xyz", kWords), "");
    EXPECT_EQ(cli::nearest(std::string(1'000'000, 'x'), kWords), "");
}

namespace {

struct Parsed
{
    explicit Parsed(const std::vector<std::string> &arguments, const cli::CommandInfo &command = cli::kShift)
        : invocation(command, around), fault(cli::parseArguments(arguments, invocation))
    { }
    cli::Surroundings around;
    cli::Invocation invocation;
    std::string fault;
};

} // namespace

TEST(Arguments, AMinusAndADigitIsAnAmount)
{
    const Parsed parsed({"-0.5s", "-i", "-e", "latin1", "a.lrc", "--", "-x"});
    EXPECT_EQ(parsed.fault, "");
    EXPECT_THAT(parsed.invocation.operands(), ElementsAre("-0.5s", "a.lrc", "-x"));
    EXPECT_TRUE(parsed.invocation.has(cli::Option::InPlace));
    EXPECT_EQ(parsed.invocation.value(cli::Option::Encoding), "latin1");
    EXPECT_FALSE(parsed.invocation.has(cli::Option::Null));
}

TEST(Arguments, TheZeroAloneIsTheNull)
{
    EXPECT_TRUE(Parsed({"-0", "1s"}).invocation.has(cli::Option::Null));
}

TEST(Arguments, LettersStandTogether)
{
    const Parsed parsed({"-nqelatin1", "--color=always"});
    EXPECT_TRUE(parsed.invocation.has(cli::Option::DryRun));
    EXPECT_TRUE(parsed.invocation.has(cli::Option::Quiet));
    EXPECT_EQ(parsed.invocation.value(cli::Option::Encoding), "latin1");
    EXPECT_TRUE(parsed.invocation.usesColor());
}

TEST(Arguments, SayWhatIsWrong)
{
    EXPECT_THAT(Parsed({"--in-plac"}).fault, testing::HasSubstr("Did you mean --in-place?"));
    EXPECT_THAT(Parsed({"--encoding"}).fault, testing::HasSubstr("needs a value"));
    EXPECT_THAT(Parsed({"--color=blue"}).fault, testing::HasSubstr("auto always never"));
    EXPECT_THAT(Parsed({"--json=1"}).fault, testing::HasSubstr("takes no value"));
    EXPECT_THAT(Parsed({"-x"}).fault, testing::HasSubstr("no option -x"));
    EXPECT_THAT(Parsed({"--anchor", "1s=2s"}).fault, testing::HasSubstr("no option --anchor"))
        << "an option of another command";
}

TEST(Table, EachOptionOfEachCommandIsKnownOnce)
{
    for (const cli::CommandInfo *command : cli::allCommands()) {
        std::string letters = "h";
        for (const cli::Option option : command->options) {
            EXPECT_EQ(std::ranges::count(command->options, option), 1) << command->name;
            const cli::OptionInfo &info = cli::infoOf(option);
            if (!info.letter)
                continue;
            EXPECT_EQ(letters.find(info.letter), std::string::npos) << command->name << info.letter;
            letters += info.letter;
        }
    }
}
