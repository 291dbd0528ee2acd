// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/FaultySystem.h"
#include "media/tags/SaveText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <sys/stat.h>

using samples::Folder;

namespace {

const std::string kOld = "[00:01.00]old\n";
const std::string kNew = "[00:01.00]" + std::string(5000, 'n') + "\n";

tags::Outcome<tags::Saved> save(const std::string &path, const std::string &expected, const std::string &text)
{
    return tags::saveText(path, expected, text, true, tags::SystemCalls::real());
}

/// Lets each call fail in turn until `act` succeeds; `check` looks at what a refusal left.
void failEachCall(const std::function<bool(tags::SystemCalls &)> &act, const std::function<void(int)> &check)
{
    for (const int error : {EIO, ENOSPC, EACCES, EINTR}) {
        for (const auto writes : {FaultySystem::Writes::Whole, FaultySystem::Writes::Short}) {
            for (int failing = 1;; ++failing) {
                FaultySystem system(failing, error, writes);
                const bool succeeded = act(system);
                check(succeeded ? 1 : 0);
                if (!system.hasFailed())
                    break;
                ASSERT_LT(failing, 200);
            }
        }
    }
}

} // namespace

TEST(SaveText, ReplacesWhatWasRead)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.file("a.lrc");
    samples::write(path, kOld);
    const auto saved = save(path, kOld, kNew);
    ASSERT_TRUE(saved.ok());
    EXPECT_TRUE(saved.value().written);
    EXPECT_EQ(samples::contents(path), kNew);
    EXPECT_THAT(folder.names(), testing::ElementsAre("a.lrc"));
}

TEST(SaveText, LeavesAFileAloneThatChangedMeanwhile)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.file("a.lrc");
    samples::write(path, kOld + "somebody's line\n");
    const auto saved = save(path, kOld, kNew);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::ChangedMeanwhile);
    EXPECT_EQ(samples::contents(path), kOld + "somebody's line\n");
}

TEST(SaveText, TheSameTextWritesNothing)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.file("a.lrc");
    samples::write(path, kOld);
    chmod(path.c_str(), 0444);
    const auto saved = save(path, kOld, kOld);
    ASSERT_TRUE(saved.ok()) << "not even a read-only file is in the way";
    EXPECT_FALSE(saved.value().written);
}

TEST(SaveText, AfterEachFaultTheFileIsOldOrNew)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.file("a.lrc");
    failEachCall(
        [&path](tags::SystemCalls &system) {
            samples::write(path, kOld);
            return tags::saveText(path, kOld, kNew, true, system).ok();
        },
        [&](int succeeded) {
            ASSERT_EQ(samples::contents(path), succeeded ? kNew : kOld);
            ASSERT_THAT(folder.names(), testing::ElementsAre("a.lrc"));
        });
}

TEST(CreateText, AfterEachFaultThereIsAWholeFileOrNone)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.file("new.lrc");
    failEachCall(
        [&path](tags::SystemCalls &system) {
            std::filesystem::remove(path);
            return tags::createText(path, kNew, system).ok();
        },
        [&](int succeeded) {
            ASSERT_EQ(folder.names().size(), succeeded ? 1U : 0U);
            if (succeeded) {
                ASSERT_EQ(samples::contents(path), kNew);
            }
        });
}

TEST(CreateText, WritesOverNothing)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.file("a.lrc");
    samples::write(path, kOld);
    const auto saved = tags::createText(path, kNew, tags::SystemCalls::real());
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(samples::contents(path), kOld);
    EXPECT_THAT(folder.names(), testing::ElementsAre("a.lrc"));
}
