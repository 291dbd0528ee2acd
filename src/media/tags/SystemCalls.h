// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <vector>

namespace tags {

/// Every call that reading and saving make to the system, each as the manual describes it:
/// −1 and `errno` when refused.
///
/// One table, so that a test can make the n-th of them fail. The base class is the real system.
class SystemCalls
{
public:
    virtual ~SystemCalls() = default;

    virtual int open(const char *path, int flags, mode_t mode);
    virtual int close(int fd);
    virtual int fstat(int fd, struct stat *out);
    virtual ssize_t pread(int fd, void *buffer, std::size_t count, off_t offset);
    virtual ssize_t write(int fd, const void *buffer, std::size_t count);
    virtual int fsync(int fd);
    virtual int lock(int fd); ///< flock: exclusive, without waiting
    virtual int rename(const char *from, const char *to);
    /// Refused with EEXIST when something is at `to`.
    virtual int renameToNew(const char *from, const char *to);
    virtual int unlink(const char *path);
    virtual int access(const char *path, int mode);
    virtual int fchmod(int fd, mode_t mode);
    virtual int fchown(int fd, uid_t owner, gid_t group);
    virtual ssize_t listAttributes(int fd, char *buffer, std::size_t size);
    virtual ssize_t getAttribute(int fd, const char *name, void *buffer, std::size_t size);
    virtual int setAttribute(int fd, const char *name, const void *value, std::size_t size);
    /// The path without links; 0, or −1 and `errno`.
    virtual int resolve(const char *path, std::string &out);
    /// The names in a folder, without "." and ".."; 0, or −1 and `errno`.
    virtual int listFolder(const char *path, std::vector<std::string> &out);

    /// The system itself.
    static SystemCalls &real();

protected:
    SystemCalls() = default;
    SystemCalls(const SystemCalls &) = default;
    SystemCalls &operator=(const SystemCalls &) = default;
};

} // namespace tags
