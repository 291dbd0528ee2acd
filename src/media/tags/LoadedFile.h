// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/ByteSource.h"
#include "media/tags/FileState.h"
#include "media/tags/Outcome.h"

#include <memory>
#include <string>
#include <sys/stat.h>

namespace tags {

class SystemCalls;
class WorkProgress;

/// A file descriptor that is closed when its owner goes.
class Descriptor
{
public:
    Descriptor(int fd, SystemCalls &system) : m_fd(fd), m_system(system) { }
    ~Descriptor();
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    [[nodiscard]] int get() const { return m_fd; }
    /// Closes it now; the call's own answer.
    int close();

private:
    int m_fd;
    SystemCalls &m_system;
};

/// A file as it was at one moment: its content, and what tells that content from another.
struct LoadedFile
{
    FileState state;
    struct stat status = {}; ///< mode, owner, number of links
    std::unique_ptr<ByteSource> source; ///< a MemorySource where the content was read at once
};

/// Opens the regular file at `path`, without waiting for anybody, and takes its content and state. Up to
/// `held` bytes are read at once.
[[nodiscard]] Outcome<LoadedFile> load(
    const std::string &path, SystemCalls &system, std::uint64_t held = kMaxMemoryBytes);

/// The state that `status` tells of; without a hash.
[[nodiscard]] FileState stateOf(const struct stat &status);

/// The state of the file at `path` now, with the hash of its content whatever its size, without holding it.
[[nodiscard]] Outcome<FileState> currentState(
    const std::string &path, SystemCalls &system, WorkProgress &progress);

/// What the system calls `error`, a value of `errno`. English, whatever language the system speaks.
[[nodiscard]] std::string systemReason(int error);

/// The refusal for `error`, a value of `errno`, when `what` ("read", "written", …) was tried.
[[nodiscard]] Failure systemFailure(int error, const std::string &what);

} // namespace tags
