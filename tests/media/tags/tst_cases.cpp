// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/AudioTags.h"
#include "media/tags/SaveLyric.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>

namespace {

using namespace samples;
namespace fs = std::filesystem;

const std::string kLyric = "[00:01.00]first line\n[00:02.50]second line\n";

std::vector<std::string> publicFiles()
{
    const char *cases = std::getenv("TQLRC_CASES");
    std::vector<std::string> files;
    std::error_code none;
    for (const auto &entry : fs::recursive_directory_iterator(fs::path(cases ? cases : "") / "audio", none)) {
        if (entry.is_regular_file() && entry.path().filename() != "MANIFEST.tsv")
            files.push_back(entry.path().string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// What was read: the same for two files that differ in the lyric alone.
std::string summary(const tags::AudioTags &tags)
{
    return tags.title + '\n' + tags.artist + '\n' + tags.album + '\n' + std::to_string(tags.duration) + '\n'
        + tags.cover;
}

/// The file with a lyric, and back again: what is there must be what was there.
void saveAndTakeBack(const std::string &path, const tags::AudioTags &first, const tags::Saved &saved)
{
    const auto second = tags::read(path);
    ASSERT_TRUE(second.ok()) << second.failure().message.english();
    EXPECT_EQ(second.value().lyric, kLyric);
    EXPECT_EQ(summary(second.value()), summary(first));
    const auto back = tags::saveLyric(path, first.lyric.value_or(""), saved.state);
    ASSERT_TRUE(back.ok()) << back.failure().message.english();
    const auto third = tags::read(path);
    ASSERT_TRUE(third.ok()) << third.failure().message.english();
    EXPECT_EQ(third.value().lyric, first.lyric);
    EXPECT_EQ(summary(third.value()), summary(first));
}

TEST(PublicFiles, AreReadWithoutHarmAndSavedOnlyWhenAllElseStays)
{
    const std::vector<std::string> files = publicFiles();
    if (files.empty())
        GTEST_SKIP() << "the public files are not here";
    const Folder folder(Folder::On::Memory);
    std::map<std::string, int> counts;
    for (const std::string &file : files) {
        SCOPED_TRACE(file);
        const std::string path = folder.copy(file);
        fs::permissions(path, fs::perms::owner_write, fs::perm_options::add);
        const std::string before = contents(path);
        const auto read = tags::read(path);
        EXPECT_EQ(contents(path), before);
        ++counts[read.ok() ? "read" : "not read"];
        const auto saved = tags::saveLyric(path, kLyric, read.ok() ? read.value().state : tags::FileState());
        EXPECT_FALSE(!read.ok() && saved.ok());
        if (saved.ok())
            saveAndTakeBack(path, read.value(), saved.value());
        else
            EXPECT_EQ(contents(path), before);
        if (read.ok())
            ++counts[saved.ok() ? "saved" : "read, not saved"];
        EXPECT_EQ(folder.names().size(), 1U);
        fs::remove(path);
    }
    for (const auto &[what, count] : counts)
        std::printf("%s: %d\n", what.c_str(), count);
    EXPECT_GT(counts["saved"], 0);
}

} // namespace
