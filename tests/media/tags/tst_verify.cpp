// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/ByteSource.h"
#include "media/tags/Comparable.h"
#include "media/tags/Container.h"
#include "media/tags/Format.h"
#include "media/tags/Verify.h"
#include "media/tags/WorkProgress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace samples;
using tags::FieldEdit;

/// What differsFrom() says of two files made by hand, whatever an edit of ours would have made of the first.
std::string complaint(
    const std::string &before, const std::string &after, const std::vector<FieldEdit> &edits)
{
    const tags::MemorySource old(before);
    const tags::MemorySource edited(after);
    const tags::Outcome<tags::Format> format = tags::detectFormat(old);
    EXPECT_TRUE(format.ok());
    const tags::ContainerOutcome container = tags::parseContainer(old, format.value());
    EXPECT_TRUE(container.ok());
    tags::WorkProgress progress;
    const auto failure
        = tags::differsFrom(old, *container.value(), edited, format.value(), edits, "song", progress);
    return failure ? failure->message.english() : "";
}

using Frames = std::vector<std::pair<std::string, std::string>>;

std::string mp3(const Frames &frames)
{
    static const std::string sound = contents(sample("untagged.mp3"));
    return id3v2(3, frames) + sound;
}

const std::pair<std::string, std::string> kTitle = {"TIT2", std::string("\0Name", 5)};

std::pair<std::string, std::string> lyric(
    const std::string &text, const std::string &language = "eng", const std::string &description = "")
{
    return {"USLT", uslt(language, description, text)};
}

const Frames kBefore = {kTitle, lyric("one"), lyric("zwei", "deu"), lyric("three", "eng", "notes")};
const std::vector<FieldEdit> kEdits = {{{0, {}}, "new"}, {{1, {}}, ""}, {{{}, "TXXX:LYRICS"}, "added"}};
const std::pair<std::string, std::string> kAdded = {"TXXX", std::string("\0LYRICS\0added", 13)};

TEST(Verify, WhatWasMeantPasses)
{
    const std::string after = mp3({kTitle, lyric("new"), lyric("three", "eng", "notes"), kAdded});
    EXPECT_EQ(complaint(mp3(kBefore), after, kEdits), "");
    const std::string anyOrder = mp3({kAdded, lyric("three", "eng", "notes"), kTitle, lyric("new")});
    EXPECT_EQ(complaint(mp3(kBefore), anyOrder, kEdits), "");
}

TEST(Verify, EveryOtherOutcomeIsRefused)
{
    const auto kept = lyric("three", "eng", "notes");
    const std::pair<const char *, Frames> wrong[] = {
        {"a field was lost", {kTitle, lyric("new"), kAdded}},
        {"a field came twice", {kTitle, lyric("new"), kept, kept, kAdded}},
        {"one did not go", {kTitle, lyric("new"), lyric("zwei", "deu"), kept, kAdded}},
        {"the old text stayed", {kTitle, lyric("one"), kept, kAdded}},
        {"the text went to another field", {kTitle, lyric("three"), lyric("new", "eng", "notes"), kAdded}},
        {"another language", {kTitle, lyric("new", "fra"), kept, kAdded}},
        {"another description", {kTitle, lyric("new"), lyric("three", "eng", "other"), kAdded}},
        {"the new one is missing", {kTitle, lyric("new"), kept}},
        {"the new one has another name",
            {kTitle, lyric("new"), kept, {"TXXX", std::string("\0SYNCEDLYRICS\0added", 19)}}},
        {"the new one says something else",
            {kTitle, lyric("new"), kept, {"TXXX", std::string("\0LYRICS\0addex", 13)}}},
    };
    for (const auto &[what, frames] : wrong)
        EXPECT_THAT(complaint(mp3(kBefore), mp3(frames), kEdits), testing::HasSubstr("the lyric itself"))
            << what;
}

TEST(Verify, TheOtherTagsAndTheSoundHaveToBeTheSame)
{
    const Frames after = {lyric("new"), lyric("three", "eng", "notes"), kAdded};
    EXPECT_THAT(complaint(mp3(kBefore), mp3(after), kEdits), testing::HasSubstr("another of its tags"));
    Frames good = after;
    good.insert(good.begin(), kTitle);
    std::string sound = mp3(good);
    sound[sound.size() - 100] = char(sound[sound.size() - 100] + 1);
    EXPECT_THAT(complaint(mp3(kBefore), sound, kEdits), testing::HasSubstr("its sound"));
    EXPECT_THAT(complaint(mp3(kBefore), mp3(good) + "x", kEdits), testing::HasSubstr("its sound"));
    EXPECT_THAT(complaint(mp3(kBefore), contents(sample("tagged.flac")), kEdits),
        testing::HasSubstr("more than its lyric"));
}

TEST(Comparable, TellsAnyChangeOfManyBytesAndTheSameFromEverySource)
{
    for (const std::size_t size :
        {std::size_t(0), std::size_t(1), std::size_t(65536), std::size_t(65537), std::size_t(200000)}) {
        std::string bytes(size, 'x');
        const std::string before = tags::comparable(bytes);
        EXPECT_EQ(tags::comparable(tags::MemorySource("ab" + bytes + "cd"), 2, size), before) << size;
        for (const std::size_t at : {std::size_t(0), size / 2, size - 1}) {
            if (size == 0)
                break;
            bytes[at] = 'y';
            EXPECT_NE(tags::comparable(bytes), before) << size << ' ' << at;
            EXPECT_EQ(tags::comparable(tags::MemorySource(bytes), 0, size), tags::comparable(bytes));
            bytes[at] = 'x';
        }
        EXPECT_NE(tags::comparable(bytes + 'x'), before);
    }
}

} // namespace
