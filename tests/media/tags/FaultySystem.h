// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/SystemCalls.h"

#include <cerrno>

/// The system, but for its n-th call, which fails.
class FaultySystem final : public tags::SystemCalls
{
public:
    enum class Writes { Whole, Short };

    /// The call number `failing`, from 1, answers `error`; 0 lets all succeed.
    FaultySystem(int failing, int error, Writes writes = Writes::Whole)
        : m_failing(failing), m_error(error), m_writes(writes)
    { }

    [[nodiscard]] int calls() const { return m_calls; }
    [[nodiscard]] bool hasFailed() const { return m_failing > 0 && m_calls >= m_failing; }

    int open(const char *path, int flags, mode_t mode) override
    {
        return fails() ? -1 : SystemCalls::open(path, flags, mode);
    }
    int close(int fd) override
    {
        // The descriptor is gone even when the answer is a failure, as on Linux.
        const bool failing = fails();
        const int answer = SystemCalls::close(fd);
        errno = failing ? m_error : errno;
        return failing ? -1 : answer;
    }
    int fstat(int fd, struct stat *out) override { return fails() ? -1 : SystemCalls::fstat(fd, out); }
    ssize_t pread(int fd, void *buffer, std::size_t count, off_t offset) override
    {
        return fails() ? -1 : SystemCalls::pread(fd, buffer, count, offset);
    }
    ssize_t write(int fd, const void *buffer, std::size_t count) override
    {
        const std::size_t some = m_writes == Writes::Short && count > 1000 ? count / 2 : count;
        return fails() ? -1 : SystemCalls::write(fd, buffer, some);
    }
    int fsync(int fd) override { return fails() ? -1 : SystemCalls::fsync(fd); }
    int lock(int fd) override { return fails() ? -1 : SystemCalls::lock(fd); }
    int rename(const char *from, const char *to) override
    {
        return fails() ? -1 : SystemCalls::rename(from, to);
    }
    int renameToNew(const char *from, const char *to) override
    {
        return fails() ? -1 : SystemCalls::renameToNew(from, to);
    }
    int unlink(const char *path) override
    {
        return SystemCalls::unlink(path);
    } // what cleans up is not made to fail
    int access(const char *path, int mode) override { return fails() ? -1 : SystemCalls::access(path, mode); }
    int fchmod(int fd, mode_t mode) override { return fails() ? -1 : SystemCalls::fchmod(fd, mode); }
    int fchown(int fd, uid_t owner, gid_t group) override
    {
        return fails() ? -1 : SystemCalls::fchown(fd, owner, group);
    }
    ssize_t listAttributes(int fd, char *buffer, std::size_t size) override
    {
        return fails() ? -1 : SystemCalls::listAttributes(fd, buffer, size);
    }
    ssize_t getAttribute(int fd, const char *name, void *buffer, std::size_t size) override
    {
        return fails() ? -1 : SystemCalls::getAttribute(fd, name, buffer, size);
    }
    int setAttribute(int fd, const char *name, const void *value, std::size_t size) override
    {
        return fails() ? -1 : SystemCalls::setAttribute(fd, name, value, size);
    }
    int resolve(const char *path, std::string &out) override
    {
        return fails() ? -1 : SystemCalls::resolve(path, out);
    }
    int listFolder(const char *path, std::vector<std::string> &out) override
    {
        return fails() ? -1 : SystemCalls::listFolder(path, out);
    }

private:
    bool fails()
    {
        errno = m_error;
        return ++m_calls == m_failing;
    }

    int m_failing;
    int m_error;
    Writes m_writes;
    int m_calls = 0;
};
