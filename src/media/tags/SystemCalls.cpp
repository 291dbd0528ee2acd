// SPDX-License-Identifier: MIT
#include "media/tags/SystemCalls.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace tags {

int SystemCalls::open(const char *path, int flags, mode_t mode)
{
    return ::open(path, flags, mode);
}

int SystemCalls::close(int fd)
{
    return ::close(fd);
}

int SystemCalls::fstat(int fd, struct stat *out)
{
    return ::fstat(fd, out);
}

ssize_t SystemCalls::pread(int fd, void *buffer, std::size_t count, off_t offset)
{
    return ::pread(fd, buffer, count, offset);
}

ssize_t SystemCalls::write(int fd, const void *buffer, std::size_t count)
{
    return ::write(fd, buffer, count);
}

int SystemCalls::fsync(int fd)
{
    return ::fsync(fd);
}

int SystemCalls::lock(int fd)
{
    return ::flock(fd, LOCK_EX | LOCK_NB);
}

int SystemCalls::rename(const char *from, const char *to)
{
    return ::rename(from, to);
}

int SystemCalls::renameToNew(const char *from, const char *to)
{
    if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return -1;
    // Not every file system can do that in one call; a link refuses what is there, too.
    return ::link(from, to) == 0 ? ::unlink(from) : -1;
}

int SystemCalls::unlink(const char *path)
{
    return ::unlink(path);
}

int SystemCalls::access(const char *path, int mode)
{
    return ::access(path, mode);
}

int SystemCalls::fchmod(int fd, mode_t mode)
{
    return ::fchmod(fd, mode);
}

int SystemCalls::fchown(int fd, uid_t owner, gid_t group)
{
    return ::fchown(fd, owner, group);
}

ssize_t SystemCalls::listAttributes(int fd, char *buffer, std::size_t size)
{
    return ::flistxattr(fd, buffer, size);
}

ssize_t SystemCalls::getAttribute(int fd, const char *name, void *buffer, std::size_t size)
{
    return ::fgetxattr(fd, name, buffer, size);
}

int SystemCalls::setAttribute(int fd, const char *name, const void *value, std::size_t size)
{
    return ::fsetxattr(fd, name, value, size, 0);
}

int SystemCalls::resolve(const char *path, std::string &out)
{
    struct Free
    {
        void operator()(char *memory) const { std::free(memory); }
    };
    const std::unique_ptr<char, Free> resolved(::realpath(path, nullptr));
    if (!resolved)
        return -1;
    out = resolved.get();
    return 0;
}

int SystemCalls::listFolder(const char *path, std::vector<std::string> &out)
{
    DIR *folder = ::opendir(path);
    if (!folder)
        return -1;
    errno = 0;
    while (const dirent *entry = ::readdir(folder)) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..")
            out.push_back(name);
    }
    const int error = errno;
    ::closedir(folder);
    errno = error;
    return error ? -1 : 0;
}

SystemCalls &SystemCalls::real()
{
    class Real final : public SystemCalls
    { };
    static Real system;
    return system;
}

} // namespace tags
