// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/AudioSamples.h"
#include "media/tags/AudioTags.h"
#include "media/tags/SaveLyric.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

/// One file that was made to hurt.
class HostileFile : public testing::Test
{
protected:
    samples::Folder folder{samples::Folder::On::Memory};
    std::string path = folder.file("song");

    /// Reads, and tries to save; whatever comes of it, the file is whole and, when nothing was
    /// saved, untouched. The reason why it was not read, if it was not.
    std::optional<tags::Reason> tried(const std::string &bytes)
    {
        const std::string lyric = "[00:01.00]x\n";
        samples::write(path, bytes);
        const auto read = tags::read(path);
        const auto saved = tags::saveLyric(path, lyric, read.ok() ? read.value().state : tags::FileState());
        EXPECT_FALSE(saved.ok() && !read.ok());
        if (saved.ok())
            EXPECT_EQ(tags::read(path).value().lyric, lyric);
        else
            EXPECT_EQ(samples::contents(path), bytes);
        EXPECT_EQ(folder.names().size(), 1U);
        return read.ok() ? std::nullopt : std::optional(read.failure().reason);
    }
};
