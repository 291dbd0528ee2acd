// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/ByteSource.h"
#include "media/tags/Hash.h"
#include "media/tags/LyricFields.h"
#include "media/tags/OggPage.h"
#include "media/tags/PatchedSource.h"
#include "media/tags/TextCodec.h"

#include <gtest/gtest.h>

namespace {

using tags::LyricField;

TEST(LyricFields, TimeTagsAtTheStartOfALine)
{
    for (const char *timed :
        {"[00:01.00]a", "[00:01]", "[1:02]a", "[123:45.67]a", "[ti:x]\n[00:01.00]a", "words\r\n[00:01.00]a",
            "words\r[00:01.00]", "\uFEFF[00:01.00]a", "  [00:01.00]a", "[-00:01.00]a", "[ 00:01.00 ]a"})
        EXPECT_TRUE(tags::holdsTimeTags(timed)) << timed;
    for (const char *untimed : {"", "words", "[Chorus]\nwords", "[ti:x]\n[offset:500]", "[Verse 1: A]",
             "words [00:01.00]", "00:01.00", "[00]", "[00:]", "[:01]", "["})
        EXPECT_FALSE(tags::holdsTimeTags(untimed)) << untimed;
}

LyricField field(const char *text)
{
    return {"ID3v2", "USLT", "eng", "", text, false};
}

TEST(LyricFields, TheFirstWithTimeTagsElseTheFirstWithText)
{
    EXPECT_EQ(tags::lyricFieldIndex({}), std::nullopt);
    EXPECT_EQ(tags::lyricFieldIndex({field(""), field("")}), std::nullopt);
    EXPECT_EQ(tags::lyricFieldIndex({field(""), field("a"), field("b")}), 1U);
    EXPECT_EQ(tags::lyricFieldIndex({field("a"), field("[00:01.00]b"), field("[00:02.00]c")}), 1U);
}

TEST(TextCodec, Utf8AsTheStandardHasIt)
{
    for (const char *good :
        {"", "abc", "\u00E9", "\u8D70", "\U0001F3B5", "\uFFFD", "\U0010FFFF", "\uD7FF", "\uE000"})
        EXPECT_TRUE(tags::isUtf8(good)) << good;
    for (const char *bad :
        {"\x80", "\xC0\xAF", "\xC1\xBF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF0\x80\x80\x80",
            "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xC3", "\xE8\xB5", "\xF0\x9F\x8E", "a\xC3z"})
        EXPECT_FALSE(tags::isUtf8(bad)) << bad;
}

TEST(TextCodec, Utf16ThereAndBack)
{
    for (const std::string text : {"", "abc\r\n", "\u00E9\u8D70\uFEFF", "\U0001F3B5x", "\U0010FFFF"})
        EXPECT_EQ(tags::utf8FromMarkedUtf16(tags::markedUtf16FromUtf8(text)), text);
    EXPECT_EQ(tags::utf8FromMarkedUtf16(std::string("\xFE\xFF\x8D\x70", 4)), "\u8D70");
    EXPECT_EQ(tags::utf8FromUtf16(std::string("\xD8\x3C\xDF\xB5", 4), true), "\U0001F3B5");
    EXPECT_EQ(tags::utf8FromUtf16(std::string("\xD8\x3C\0a", 4), true), "\uFFFDa");
    EXPECT_EQ(tags::utf8FromUtf16(std::string("\xDF\xB5\0", 3), true), "\uFFFD");
    EXPECT_EQ(tags::utf8FromLatin1("caf\xE9"), "caf\u00E9");
}

TEST(Hash, IsThePublishedOneHoweverTheBytesCome)
{
    EXPECT_EQ(tags::hashOf(""), 0x2D06800538D394C2ULL);
    EXPECT_NE(tags::hashOf(std::string(1, '\0')), tags::hashOf(""));
    EXPECT_EQ(tags::Hash().add("foo").add("").add("bar").value(), tags::hashOf("foobar"));
    const std::string text(5000, 'x');
    for (const std::size_t at : {1U, 239U, 256U, 1024U, 4999U})
        EXPECT_EQ(tags::Hash().add(text.substr(0, at)).add(text.substr(at)).value(), tags::hashOf(text));
}

std::string patched(const std::string &old, const tags::Edit &edit)
{
    const tags::MemorySource source(old);
    const tags::PatchedSource out(source, edit);
    const std::string whole = out.read(0, old.size() + 1000);
    EXPECT_EQ(whole.size(), out.size());
    return whole;
}

TEST(PatchedSource, EditsApplyInOrder)
{
    EXPECT_EQ(patched("0123456789", {}), "0123456789");
    EXPECT_EQ(
        patched("0123456789", {{0, 0, "a"}, {2, 3, "bcdef"}, {9, 1, ""}, {10, 0, "z"}}), "a01bcdef5678z");
    EXPECT_EQ(patched("", {{0, 0, "all"}}), "all");
    EXPECT_EQ(patched("gone", {{0, 4, ""}}), "");
}

TEST(PatchedSource, EveryStretchIsThatOfTheWhole)
{
    const tags::MemorySource old("0123456789");
    const tags::PatchedSource once(old, {{1, 2, "abc"}, {3, 0, "d"}, {8, 2, "ef"}});
    const tags::PatchedSource twice(once, {{0, 1, ""}, {4, 3, "xyz"}});
    const std::string whole = "abcxyz567ef";
    ASSERT_EQ(twice.size(), whole.size());
    for (std::size_t from = 0; from <= whole.size() + 1; ++from) {
        for (std::size_t count = 0; count <= whole.size() + 2; ++count)
            EXPECT_EQ(twice.read(from, count), from < whole.size() ? whole.substr(from, count) : "");
    }
}

TEST(OggPage, PacketsOfEverySizeComeBack)
{
    for (const std::size_t size : {0U, 1U, 254U, 255U, 256U, 510U, 65024U, 65025U, 65026U, 200000U}) {
        const std::vector<std::string> packets = {std::string(size, 'a'), "setup"};
        tags::OggPage last;
        last.serial = 7;
        last.lacing = std::string(1, '\1');
        std::string file;
        for (const std::string &page : tags::oggPages(packets, 1, last))
            file += page;
        const tags::MemorySource source(file);
        std::string bodies;
        std::uint32_t sequence = 1;
        for (std::uint64_t at = 0; at < source.size();) {
            const std::optional<tags::OggPage> page = tags::OggPage::parse(source, at);
            ASSERT_TRUE(page) << size;
            EXPECT_EQ(page->sequence, sequence++);
            EXPECT_EQ(page->serial, 7U);
            const std::string bytes = source.read(at, std::size_t(page->end() - at));
            EXPECT_EQ(tags::oggChecksum(bytes), tags::littleEndian(bytes, 22, 4));
            bodies += source.read(page->bodyAt(), std::size_t(page->bodySize()));
            at = page->end();
        }
        EXPECT_EQ(bodies, packets[0] + packets[1]);
    }
}

TEST(OggPage, PagesOfARealEncoderHaveTheChecksumWeCompute)
{
    const tags::MemorySource source(samples::contents(samples::sample("tagged.ogg")));
    int pages = 0;
    for (std::uint64_t at = 0; at < source.size(); ++pages) {
        const std::optional<tags::OggPage> page = tags::OggPage::parse(source, at);
        ASSERT_TRUE(page);
        const std::string bytes = source.read(at, std::size_t(page->end() - at));
        EXPECT_EQ(tags::oggChecksum(bytes), tags::littleEndian(bytes, 22, 4));
        EXPECT_EQ(tags::renumbered(bytes, page->sequence), bytes);
        at = page->end();
    }
    EXPECT_GE(pages, 3);
}

} // namespace
