// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/AudioTags.h"
#include "media/tags/FaultySystem.h"
#include "media/tags/HandMade.h"
#include "media/tags/SaveLyric.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <filesystem>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

using namespace samples;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string kLyric = "[00:01.00]first line\n[00:02.50]second line\n";
constexpr int kMoreCallsThanAnySave = 500;

/// The system, with somebody who changes the file at the last moment: while the temporary is
/// being forced to the disk.
class RacingSystem final : public tags::SystemCalls
{
public:
    explicit RacingSystem(std::function<void()> change) : m_change(std::move(change)) { }
    int fsync(int fd) override
    {
        if (m_change)
            std::exchange(m_change, {})();
        return SystemCalls::fsync(fd);
    }

private:
    std::function<void()> m_change;
};

class EveryFormat : public testing::TestWithParam<std::string>
{
protected:
    Folder folder{Folder::On::Memory};
    std::string path = folder.copy(sample(GetParam()));
    std::string before = contents(path);
    tags::FileState state = tags::read(path).value().state;

    /// What the file is after a save that nothing disturbs.
    std::string after()
    {
        const std::string undisturbed = folder.copy(path, "undisturbed");
        EXPECT_TRUE(tags::saveLyric(undisturbed, kLyric, tags::read(undisturbed).value().state).ok());
        const std::string bytes = contents(undisturbed);
        std::filesystem::remove(undisturbed);
        return bytes;
    }

    /// The same file again, and the state that goes with it.
    void restore()
    {
        write(path, before);
        state = tags::read(path).value().state;
    }
};

/// Fails each call in turn until a save meets no failure any more. False when that never comes.
TEST_P(EveryFormat, EachCallThatFailsLeavesTheOldFileOrTheNew)
{
    const std::string wanted = after();
    ASSERT_NE(wanted, before);
    for (const int error : {ENOSPC, EIO, EDQUOT, EACCES}) {
        int refused = 0;
        int failing = 1;
        for (; failing < kMoreCallsThanAnySave; ++failing) {
            FaultySystem system(failing, error);
            const auto saved = tags::saveLyric(path, kLyric, state, {}, system);
            if (saved.ok())
                EXPECT_EQ(contents(path), wanted) << "call " << failing;
            else
                EXPECT_EQ(contents(path), before) << "call " << failing;
            EXPECT_THAT(folder.names(), ElementsAre(GetParam())) << "call " << failing;
            refused += saved.ok() ? 0 : 1;
            if (!system.hasFailed())
                break;
            restore();
        }
        EXPECT_LT(failing, kMoreCallsThanAnySave);
        EXPECT_GE(refused, 10) << "a save has at least ten calls that it cannot do without";
        EXPECT_EQ(contents(path), wanted);
        restore();
    }
}

TEST_P(EveryFormat, InterruptedCallsAndShortWritesAreTakenUpAgain)
{
    const std::string wanted = after();
    FaultySystem counting(0, 0, FaultySystem::Writes::Short);
    ASSERT_TRUE(tags::saveLyric(path, kLyric, state, {}, counting).ok());
    EXPECT_EQ(contents(path), wanted);
    for (int failing = 1; failing <= counting.calls(); ++failing) {
        restore();
        FaultySystem system(failing, EINTR, FaultySystem::Writes::Short);
        const auto saved = tags::saveLyric(path, kLyric, state, {}, system);
        EXPECT_EQ(contents(path), saved.ok() ? wanted : before) << "call " << failing;
        EXPECT_THAT(folder.names(), ElementsAre(GetParam())) << "call " << failing;
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, EveryFormat,
    testing::Values("v23.mp3", "v24.mp3", "tagged.flac", "tagged.m4a", "faststart.m4a", "tagged.ogg",
        "tagged.opus", "tagged.wav", "tagged.aiff", "tagged.aac", "tagged.ape", "tagged.wv", "tagged.mpc",
        "tagged.wma"),
    [](const auto &parameter) {
        std::string name = parameter.param;
        name.replace(name.find('.'), 1, "_");
        return name;
    });

/// `name` with so much sound behind its own, or of an atom that is free, that it is not held in memory.
std::string larger(const std::string &name)
{
    const std::size_t more = tags::kMaxMemoryBytes + 1000;
    const std::string bytes = contents(sample(name));
    if (name.ends_with(".m4a"))
        return bytes + big(more + 8, 4) + "free" + std::string(more, 'x');
    const std::string frame = "\xFF\xFB\x90\x64" + std::string(413, '\0');
    std::string sound;
    while (sound.size() < more)
        sound += frame;
    return bytes + sound;
}

/// A file that is read where it lies: each of many more calls is one that can fail.
TEST(Faults, OfALargeFileEachCallThatFailsLeavesTheOldFileOrTheNew)
{
    for (const char *name : {"v24.mp3", "faststart.m4a"}) {
        SCOPED_TRACE(name);
        const Folder folder(Folder::On::Memory);
        const std::string path = folder.file(name);
        const std::string before = larger(name);
        write(path, before);
        tags::FileState state = tags::read(path).value().state;
        int refused = 0;
        for (int failing = 1; failing < kMoreCallsThanAnySave; ++failing) {
            FaultySystem system(failing, EIO);
            const auto saved = tags::saveLyric(path, kLyric, state, {}, system);
            EXPECT_THAT(folder.names(), ElementsAre(name)) << "call " << failing;
            if (!saved.ok()) {
                ++refused;
                // The file of that time and place: nothing writes into it.
                ASSERT_TRUE(tags::read(path).value().state == state) << "call " << failing;
                continue;
            }
            ASSERT_EQ(tags::read(path).value().lyric, kLyric) << "call " << failing;
            EXPECT_TRUE(contents(path).ends_with(before.substr(before.size() / 2))) << "call " << failing;
            if (!system.hasFailed())
                break;
            write(path, before);
            state = tags::read(path).value().state;
        }
        EXPECT_GE(refused, 80) << "reading it takes five times as many calls as it has MiB";
    }
}

TEST(Faults, TheMessageCarriesTheSystemsReason)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.copy(sample("v24.mp3"));
    const tags::FileState state = tags::read(path).value().state;
    for (int failing = 1;; ++failing) {
        FaultySystem system(failing, ENOSPC);
        const auto saved = tags::saveLyric(path, kLyric, state, {}, system);
        if (saved.ok())
            break;
        EXPECT_THAT(saved.failure().message.english(), HasSubstr(std::strerror(ENOSPC)))
            << "call " << failing;
    }
}

TEST(Faults, FileChangedOrGoneWhileItIsSavedIsLeftAlone)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.copy(sample("v24.mp3"));
    const tags::FileState state = tags::read(path).value().state;
    RacingSystem changed([&path] { write(path, "theirs"); });
    const auto saved = tags::saveLyric(path, kLyric, state, {}, changed);
    ASSERT_FALSE(saved.ok());
    EXPECT_EQ(saved.failure().reason, tags::Reason::ChangedMeanwhile);
    EXPECT_EQ(contents(path), "theirs");

    const std::string other = folder.copy(sample("tagged.flac"));
    RacingSystem gone([&other] { std::filesystem::remove(other); });
    const auto lost = tags::saveLyric(other, kLyric, tags::read(other).value().state, {}, gone);
    ASSERT_FALSE(lost.ok());
    EXPECT_EQ(lost.failure().reason, tags::Reason::Missing);
    EXPECT_THAT(folder.names(), ElementsAre("v24.mp3"));
}

/// A child that may write no more than `bytes` to a file saves at `path`; its answer is whether
/// it claims success. A limit on files is a full disk that any user can make.
bool savedWithRoomFor(rlim_t bytes, const std::string &path)
{
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {bytes, bytes};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
            _exit(2);
        const auto read = tags::read(path);
        _exit(read.ok() && tags::saveLyric(path, kLyric, read.value().state).ok() ? 0 : 1);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) < 2);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(Faults, RealLimitOnFilesLeavesTheOldFileOrTheNew)
{
    for (const char *name : {"v24.mp3", "tagged.flac", "faststart.m4a", "tagged.ogg", "tagged.wav",
             "tagged.aiff", "tagged.aac"}) {
        const std::size_t size = contents(sample(name)).size();
        int refused = 0;
        for (std::size_t part = 0; part <= 9; ++part) {
            const Folder folder(Folder::On::Memory);
            const std::string path = folder.copy(sample(name));
            const std::string before = contents(path);
            const bool ok = savedWithRoomFor(size * part / 8, path);
            refused += ok ? 0 : 1;
            EXPECT_EQ(ok, contents(path) != before) << name << ' ' << part;
            EXPECT_THAT(folder.names(), ElementsAre(name));
        }
        EXPECT_GE(refused, 8) << name;
        EXPECT_LE(refused, 9) << name;
    }
}

/// A system that kills the process at its n-th call.
class DeadlySystem final : public tags::SystemCalls
{
public:
    explicit DeadlySystem(int deadly) : m_left(deadly) { }
    int open(const char *path, int flags, mode_t mode) override
    {
        return tick(), SystemCalls::open(path, flags, mode);
    }
    ssize_t write(int fd, const void *buffer, std::size_t count) override
    {
        tick();
        return SystemCalls::write(fd, buffer, count > 1 ? count / 2 : count); // so that there are many
    }
    int fsync(int fd) override { return tick(), SystemCalls::fsync(fd); }
    int close(int fd) override { return tick(), SystemCalls::close(fd); }
    int rename(const char *from, const char *to) override { return tick(), SystemCalls::rename(from, to); }

private:
    void tick()
    {
        if (--m_left == 0)
            kill(getpid(), SIGKILL);
    }

    int m_left;
};

TEST(Faults, KilledAtAnyCallTheFileIsWholeAndTheNextSaveCleansUp)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.copy(sample("tagged.flac"));
    const std::string before = contents(path);
    bool killed = true;
    int kills = 0;
    for (int deadly = 1; killed; ++deadly) {
        write(path, before);
        const pid_t child = fork();
        if (child == 0) {
            DeadlySystem system(deadly);
            const auto saved = tags::saveLyric(path, kLyric, tags::read(path).value().state, {}, system);
            _exit(saved.ok() ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        killed = WIFSIGNALED(status);
        kills += killed ? 1 : 0;
        const auto read = tags::read(path);
        ASSERT_TRUE(read.ok());
        EXPECT_TRUE(contents(path) == before || read.value().lyric == kLyric) << "call " << deadly;
        if (!killed) {
            EXPECT_EQ(WEXITSTATUS(status), 0);
        }
    }
    EXPECT_GE(kills, 20);
    EXPECT_THAT(folder.names(), ElementsAre("tagged.flac"));
}

} // namespace
