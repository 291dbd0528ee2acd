// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"
#include "media/tags/AudioTags.h"
#include "media/tags/SaveLyric.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <functional>
#include <random>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

/// Disks that fill up and processes that die, for real.

namespace {

using namespace samples;
using testing::ElementsAre;

const std::string kLyric = "[00:01.00]first line\n[00:02.50]second line\n";
const std::string kOther = "[00:03.00]another line\n";
constexpr int kSizes = 16;
constexpr int kKills = 200;

/// What a child process answers with its exit code; −1 when it died otherwise.
int inChild(const std::function<int()> &work)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

enum Answer : int { Refused, SavedWhole, NoMount, Wrong };

/// A disk of its own, of the size of the file and `room` bytes, that nobody else sees; the file is put
/// onto it and a lyric saved into the file.
Answer saveOnSmallDisk(const std::string &disk, const std::string &bytes, std::size_t room)
{
    const std::string options = "size=" + std::to_string(bytes.size() + room);
    if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
        || mount("tmpfs", disk.c_str(), "tmpfs", 0, options.c_str()) != 0)
        return NoMount;
    const std::string path = disk + "/song";
    write(path, bytes);
    if (contents(path) != bytes)
        return Wrong;
    const auto read = tags::read(path);
    if (!read.ok())
        return Wrong;
    const auto saved = tags::saveLyric(path, kLyric, read.value().state);
    const auto again = tags::read(path);
    if (std::distance(std::filesystem::directory_iterator(disk), {}) != 1 || !again.ok())
        return Wrong;
    if (!saved.ok())
        return contents(path) == bytes
                && saved.failure().message.english().find(std::strerror(ENOSPC)) != std::string::npos
            ? Refused
            : Wrong;
    return again.value().lyric == kLyric ? SavedWhole : Wrong;
}

class FullDisk : public testing::TestWithParam<std::string>
{ };

TEST_P(FullDisk, TheOldFileOrTheNewWithSixteenAmountsOfRoom)
{
    const Folder folder(Folder::On::Memory);
    const std::string bytes = contents(sample(GetParam()));
    // A disk hands out pages: what is smaller than some of them is taken for as large.
    const std::size_t step = std::max<std::size_t>(bytes.size(), 5 * 4096) / 10;
    int counts[4] = {};
    for (int i = 0; i < kSizes; ++i) {
        const int answer
            = inChild([&] { return int(saveOnSmallDisk(folder.path(), bytes, step * std::size_t(i))); });
        ASSERT_GE(answer, 0) << "died with room " << i;
        if (answer == NoMount)
            GTEST_SKIP() << "a disk of its own cannot be mounted here: this needs root";
        ++counts[answer];
        EXPECT_NE(answer, Wrong) << "room " << i << " steps";
    }
    EXPECT_GE(counts[Refused], 2);
    EXPECT_GE(counts[SavedWhole], 2);
}

INSTANTIATE_TEST_SUITE_P(Formats, FullDisk, testing::ValuesIn(names()), [](const auto &parameter) {
    std::string name = parameter.param;
    std::replace_if(
        name.begin(), name.end(), [](char c) { return !std::isalnum(c); }, '_');
    return name;
});

/// Lets this process be killed `microseconds` from now, whatever it does then.
void dieIn(long microseconds)
{
    sigevent event = {};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGKILL;
    timer_t timer = {};
    if (timer_create(CLOCK_MONOTONIC, &event, &timer) != 0)
        _exit(2);
    itimerspec when = {};
    when.it_value.tv_nsec = microseconds * 1000;
    timer_settime(timer, 0, &when, nullptr);
}

/// Saves one lyric and the other in turn until it dies.
int saveForEver(const std::string &path)
{
    auto read = tags::read(path);
    tags::FileState state = read.value().state;
    for (bool other = read.value().lyric == kLyric;; other = !other) {
        const auto saved = tags::saveLyric(path, other ? kOther : kLyric, state);
        if (!saved.ok())
            return 3;
        state = saved.value().state;
    }
}

class Killed : public testing::TestWithParam<std::string>
{ };

TEST_P(Killed, AtTwoHundredMomentsTheFileIsAlwaysWhole)
{
    const Folder folder(Folder::On::Memory);
    const std::string path = folder.copy(sample(GetParam()));
    const std::string sound = soundOf(path);
    ASSERT_TRUE(tags::saveLyric(path, kLyric, tags::read(path).value().state).ok());
    const std::string one = contents(path);
    ASSERT_TRUE(tags::saveLyric(path, kOther, tags::read(path).value().state).ok());
    const std::string other = contents(path);
    std::mt19937 random(20);
    std::uniform_int_distribution<long> moment(50, 8000);
    int torn = 0;
    for (int i = 0; i < kKills; ++i) {
        const long microseconds = moment(random);
        const int answer = inChild([&] {
            dieIn(microseconds);
            return saveForEver(path);
        });
        ASSERT_EQ(answer, -1) << "it was to die while it saved";
        torn += folder.names().size() > 1 ? 1 : 0;
        const std::string bytes = contents(path);
        ASSERT_TRUE(bytes == one || bytes == other) << "kill " << i << " after " << microseconds << " us";
    }
    // How many fell into the writing of a file depends on the machine; tst_faults.cpp has each place in turn.
    RecordProperty("torn", torn);
    ASSERT_TRUE(tags::saveLyric(path, "[00:04.00]last", tags::read(path).value().state).ok());
    EXPECT_THAT(folder.names(), ElementsAre(GetParam())) << "what the dead left is swept";
    EXPECT_EQ(soundOf(path), sound);
}

INSTANTIATE_TEST_SUITE_P(Formats, Killed,
    testing::Values("v24.mp3", "tagged.flac", "faststart.m4a", "tagged.ogg"), [](const auto &parameter) {
        std::string name = parameter.param;
        std::replace(name.begin(), name.end(), '.', '_');
        return name;
    });

} // namespace
