// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/Edits.h"
#include "media/tags/HandMade.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using namespace samples;
using namespace samples::AsfGuids;
using edits::edited;
using edits::editedAll;
using edits::field;
using edits::fieldsOf;
using edits::newField;
using edits::newNamesOf;
using tags::FieldEdit;
using testing::ElementsAre;
using testing::UnorderedElementsAreArray;

/// A timed line, so that any kind of field can hold it.
std::string words(const std::string &what)
{
    return "[00:01.00]" + what + '\n';
}

/// What every field says, by its name, in no order.
std::vector<std::string> said(const std::string &bytes)
{
    std::vector<std::string> out;
    for (const tags::LyricField &each : fieldsOf(bytes))
        out.push_back(each.tag + ' ' + each.name + ' ' + each.text);
    return out;
}

/// The file with one field of every kind that it can have.
std::string full(const std::string &bytes)
{
    std::vector<FieldEdit> all;
    for (const std::string &name : newNamesOf(bytes))
        all.push_back({newField(name), words("old " + name)});
    return editedAll(bytes, all);
}

class EditsAtOnce : public testing::TestWithParam<std::string>
{ };

TEST_P(EditsAtOnce, AFieldOfEveryKindComesAndGoes)
{
    const std::string bytes = contents(sample(GetParam()));
    const std::size_t before = fieldsOf(bytes).size();
    const std::string all = full(bytes);
    const std::size_t fields = fieldsOf(all).size();
    ASSERT_EQ(fields, before + newNamesOf(bytes).size());
    std::vector<FieldEdit> none;
    for (std::size_t i = 0; i < fields; ++i)
        none.push_back({field(i), ""});
    EXPECT_THAT(fieldsOf(editedAll(all, none)), ElementsAre());
}

/// In any order, and whatever of it goes, changes and comes, the outcome is that of one edit after another.
TEST_P(EditsAtOnce, AreThoseOneByOne)
{
    const std::string bytes = full(contents(sample(GetParam())));
    const std::size_t count = fieldsOf(bytes).size();
    std::mt19937 random(7);
    for (int round = 0; round < 8; ++round) {
        std::vector<FieldEdit> edits;
        for (std::size_t i = 0; i < count; ++i) {
            if (const auto dice = random() % 3; dice > 0)
                edits.push_back({field(i), dice == 1 ? std::string() : words("new " + std::to_string(i))});
        }
        edits.push_back({newField(newNamesOf(bytes).back()), words("another")});
        std::string oneByOne = bytes;
        // From the last field to the first, so that none moves those that are still to come.
        for (auto edit = edits.rbegin() + 1; edit != edits.rend(); ++edit)
            oneByOne = edited(oneByOne, edit->place, edit->text);
        oneByOne = edited(oneByOne, edits.back().place, edits.back().text);
        std::shuffle(edits.begin(), edits.end(), random);
        EXPECT_THAT(said(editedAll(bytes, edits)), UnorderedElementsAreArray(said(oneByOne)));
    }
}

INSTANTIATE_TEST_SUITE_P(EveryFormat, EditsAtOnce, testing::ValuesIn(names()), [](const auto &sampleInfo) {
    std::string name = sampleInfo.param;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
});

TEST(EditsOfAsfAtOnce, LongTextsThatMoveToTheLibraryDoNotMixThemUp)
{
    const auto attribute
        = [](const std::string &text) { return extendedAttribute("WM/Lyrics", 0, utf16(text)); };
    const std::string bytes = asfFile(contents(sample("untagged.wma")),
        {asfObject(kExtendedContent, attributes({attribute("a"), attribute("b"), attribute("c")})),
            asfObject(kExtension,
                asfExtension(asfObject(
                    kMetadataLibrary, attributes({libraryAttribute(2, 1, "WM/Lyrics", 0, utf16("d"))}))))});
    const std::string longText = words(std::string(40000, 'x'));
    const std::string after = editedAll(
        bytes, {{field(0), longText}, {field(1), ""}, {field(2), longText + "2"}, {field(3), "e"}});
    std::vector<std::string> texts;
    for (const tags::LyricField &each : fieldsOf(after))
        texts.push_back(each.text);
    EXPECT_THAT(texts, ElementsAre("e", longText, longText + "2"));
}

TEST(EditsOfAsfAtOnce, ObjectsThatAreLeftEmptyGoAndTheOthersStay)
{
    const auto content = [](const std::string &name, const std::string &text) {
        return asfObject(kExtendedContent, attributes({extendedAttribute(name, 0, utf16(text))}));
    };
    const auto file = [](const std::vector<std::string> &objects) {
        return asfFile(contents(sample("untagged.wma")), objects);
    };
    const std::string mood = content("WM/Mood", "calm");
    const std::string bytes = file({content("WM/Lyrics", "a"), mood, content("WM/Lyrics", "b"),
        content("WM/Lyrics", "c"), asfObject(kPadding, "p")});
    EXPECT_TRUE(editedAll(bytes, {{field(0), ""}, {field(1), ""}, {field(2), ""}})
        == file({mood, asfObject(kPadding, "p")}));
}

} // namespace
