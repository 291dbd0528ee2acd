// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/HandMade.h"
#include "media/tags/HostileFile.h"

#include <gtest/gtest.h>

namespace {

using namespace samples;
using namespace samples::AsfGuids;
using tags::Reason;

#ifdef __SANITIZE_ADDRESS__
constexpr int kMany = 20000; // it keeps a stack of each of the library's allocations
#else
constexpr int kMany = 100000;
#endif

std::string ape(const std::string &tag)
{
    return silentMonkeysAudio() + tag;
}

std::string repeated(const std::string &part, std::size_t bytes)
{
    std::string out;
    out.reserve(bytes + part.size());
    while (out.size() < bytes)
        out += part;
    return out;
}

std::vector<ApeItemOf> manyItems(int count)
{
    std::vector<ApeItemOf> items;
    for (int i = 0; i < count; ++i)
        items.push_back({"key" + std::to_string(i), "v"});
    return items;
}

std::string wma(const std::vector<std::string> &objects)
{
    return asfFile(contents(sample("untagged.wma")), objects);
}

std::string extended(const std::string &body)
{
    return asfObject(kExtendedContent, body);
}

using HostileTags = HostileFile;

TEST_F(HostileTags, ApeTagOfManyItems)
{
    EXPECT_EQ(tried(ape(apeTag(manyItems(kMany - 1)))), std::nullopt);
    EXPECT_EQ(tried(ape(apeTag(manyItems(100001)))), Reason::Hostile);
}

TEST_F(HostileTags, ApeTagThatLiesAboutSizeOrCount)
{
    const std::string tag = apeTag({{"Title", "t"}, {"Lyrics", "words"}}, ApeHeader::No);
    for (const std::uint64_t lie : {0ULL, 31ULL, 33ULL, 1000000ULL, 0x7FFFFFFFULL, 0xFFFFFFFFULL}) {
        std::string size = tag;
        size.replace(size.size() - 20, 4, little(lie, 4));
        EXPECT_EQ(tried(ape(size)), Reason::Damaged) << lie;
    }
    for (const std::uint64_t lie : {3ULL, 100000ULL, 0xFFFFFFFFULL}) {
        std::string count = tag;
        count.replace(count.size() - 16, 4, little(lie, 4));
        EXPECT_EQ(tried(ape(count)), lie > 100000 ? Reason::Hostile : Reason::Damaged) << lie;
    }
    for (const std::uint64_t lie : {6ULL, 1000ULL, 0x80000000ULL, 0xFFFFFFFFULL}) {
        std::string value = tag;
        value.replace(15, 4, little(lie, 4)); // of the second item
        EXPECT_EQ(tried(ape(value)), Reason::Damaged) << lie;
    }
}

TEST_F(HostileTags, ApeItemTornIntoMillionsOfValues)
{
    EXPECT_EQ(tried(ape(apeTag({{"Lyrics", std::string(1U << 20, '\0')}}))), Reason::Hostile);
}

TEST_F(HostileTags, ApeTagOf17MiB)
{
    const std::string tag = apeTag({{"Lyrics", std::string(17U << 20, 'x')}});
    EXPECT_EQ(tried(ape(tag)), Reason::Hostile);
}

TEST_F(HostileTags, Mp3WithAnApeTagThatWouldExhaustTheLibraryIsReadWithoutIt)
{
    const std::string sound = contents(sample("untagged.mp3"));
    EXPECT_EQ(tried(sound + apeTag(manyItems(100001))), std::nullopt);
    EXPECT_EQ(tried(sound + apeTag({{"Title", std::string(1U << 20, '\0')}})), std::nullopt);
    EXPECT_EQ(tried(sound + apeTag(manyItems(100001)) + lyrics3("x") + id3v1("t")), std::nullopt);
}

TEST_F(HostileTags, Lyrics3ThatLiesAboutItsSize)
{
    for (const char *digits : {"999999", "000000", "000001", "abcdef", "-00001"}) {
        const std::string file = contents(sample("untagged.mp3")) + apeTag({{"Lyrics", "x"}}) + "LYRICSBEGIN"
            + digits + "LYRICS200" + id3v1("t");
        EXPECT_EQ(tried(file), std::nullopt) << digits;
    }
    EXPECT_EQ(tried(ape("") + "000000LYRICS200"), std::nullopt);
}

TEST_F(HostileTags, SoundOfNothingButHeaders)
{
    const std::string block = "wvpk" + little(24, 4) + little(0x410, 2) + std::string(22, '\0');
    static_cast<void>(tried(repeated(block, 8U << 20)));
    static_cast<void>(tried(repeated("wvpk", 8U << 20)));
    EXPECT_EQ(tried("MPCK" + repeated("ST\x03", 30U << 20)), Reason::Hostile);
    static_cast<void>(tried("MPCK" + repeated(std::string("ST\0", 3), 8U << 20)));
    static_cast<void>(tried("MP+\x07" + repeated("MP+\x07", 8U << 20)));
    static_cast<void>(tried(repeated("MAC \x96\x0F", 8U << 20)));
}

TEST_F(HostileTags, AsfOfHundredsOfThousandsOfObjects)
{
    std::string many;
    for (int i = 0; i < 200000; ++i)
        many += asfObject(kPadding, "");
    EXPECT_EQ(tried(wma({asfObject(kExtension, asfExtension(many))})), Reason::Hostile);
    const std::vector<std::string> objects(200000, asfObject(kPadding, ""));
    EXPECT_EQ(tried(wma(objects)), Reason::Hostile);
}

TEST_F(HostileTags, AsfOfHundredsOfThousandsOfAttributes)
{
    const auto full = [](std::size_t count) {
        return extended(attributes(std::vector<std::string>(count, extendedAttribute("", 0, ""))));
    };
    EXPECT_EQ(tried(wma({full(kMany / 2)})), std::nullopt);
    EXPECT_EQ(tried(wma({full(0xFFFF), full(0xFFFF)})), Reason::Hostile);
}

TEST_F(HostileTags, AsfNestedAHundredThousandDeep)
{
    std::string nested;
    for (std::size_t i = 100000; i-- > 0;) {
        const std::size_t inside = i * 46;
        nested += kExtension + little(inside + 46, 8) + asfExtension("").substr(0, 18) + little(inside, 4);
    }
    EXPECT_EQ(tried(wma({nested})), std::nullopt);
}

TEST_F(HostileTags, AsfObjectsThatOverlapOrLieAboutTheirSize)
{
    const std::string inner = asfObject(kMetadata, attributes({}));
    const std::vector<std::uint64_t> lies
        = {0, 1, 23, 1000000, 0x7FFFFFFF, 0xFFFFFFFF, 1ULL << 62, 1ULL << 63, ~0ULL};
    for (const std::uint64_t size : lies) {
        const std::string object = kPadding + little(size, 8) + "body";
        EXPECT_EQ(tried(wma({object})), Reason::Damaged) << size;
        EXPECT_EQ(tried(wma({asfObject(kExtension, asfExtension(object))})), Reason::Damaged) << size;
        std::string header = wma({inner});
        header.replace(16, 8, little(size, 8));
        EXPECT_EQ(tried(header), Reason::Damaged) << size;
        std::string data = asfExtension(inner);
        data.replace(18, 4, little(size, 4));
        EXPECT_EQ(tried(wma({asfObject(kExtension, data)})), Reason::Damaged) << size;
    }
    std::string counted = wma({inner});
    counted.replace(24, 4, little(0xFFFFFFFF, 4));
    EXPECT_EQ(tried(counted), Reason::Damaged);
}

TEST_F(HostileTags, AsfAttributesThatLieAboutTheirSize)
{
    const std::string good = extendedAttribute("WM/Lyrics", 0, utf16("words"));
    for (const std::size_t at : {0U, 24U}) { // lengths of name and value
        std::string lying = good;
        lying.replace(at, 2, little(0xFFFF, 2));
        EXPECT_EQ(tried(wma({extended(attributes({lying}))})), Reason::Damaged) << at;
    }
    EXPECT_EQ(tried(wma({extended(little(2, 2) + good)})), Reason::Damaged);
    std::string library = libraryAttribute(0, 0, "WM/Lyrics", 0, utf16("words"));
    library.replace(8, 4, little(0xFFFFFFFF, 4));
    const std::string object = asfObject(kMetadataLibrary, attributes({library}));
    EXPECT_EQ(tried(wma({asfObject(kExtension, asfExtension(object))})), Reason::Damaged);
}

TEST_F(HostileTags, AsfNumbersOfAWidthThatIsNotTheirs)
{
    // The library reads as many bytes as the type has, and takes what follows for the next attribute.
    std::vector<std::string> odd;
    for (int i = 0; i < 20000; ++i)
        odd.push_back(libraryAttribute(0, 0, "n", unsigned(2 + i % 4), std::string(3, '\x7F')));
    const std::string object = asfObject(kMetadataLibrary, attributes(odd));
    static_cast<void>(
        tried(wma({asfObject(kExtension, asfExtension(object))}) + std::string(50U << 20, '\x7F')));
}

TEST_F(HostileTags, AsfHeaderOf33MiB)
{
    EXPECT_EQ(tried(wma({asfObject(kPadding, std::string(33U << 20, 'x'))})), Reason::Hostile);
}

TEST_F(HostileTags, AsfCutOffAfterItsHeader)
{
    const std::string whole = wma({extended(attributes({extendedAttribute("WM/Lyrics", 0, utf16("a"))}))});
    const std::size_t header
        = static_cast<unsigned char>(whole[16]) + 256U * static_cast<unsigned char>(whole[17]);
    for (std::size_t size = 16; size < header + 16; ++size)
        EXPECT_EQ(tried(whole.substr(0, size)), Reason::Damaged) << size;
}

} // namespace
