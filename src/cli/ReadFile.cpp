// SPDX-License-Identifier: MIT
#include "cli/ReadFile.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>
#include <system_error>
#include <unistd.h>

namespace cli {
namespace {

constexpr std::size_t kStep = 64 * 1024;
/// The file system of pipes without a name, as in /proc and `<(…)`.
constexpr long kPipeFileSystem = 0x50495045;

class Descriptor
{
public:
    explicit Descriptor(int fd) : m_fd(fd) { }
    ~Descriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    [[nodiscard]] int get() const { return m_fd; }

private:
    int m_fd;
};

FileText refused(std::string why)
{
    return {{}, std::move(why)};
}

FileText refusedBySystem(int error)
{
    const std::string why = std::generic_category().message(error);
    if (error == ENOENT || error == ENOTDIR)
        return refused("there is no such file.");
    if (error == EACCES || error == EPERM)
        return refused("you may not read it (" + why + ").");
    return refused("it could not be read: " + why + ".");
}

FileText refusedAsTooLarge(std::uint64_t limit)
{
    return refused(
        "it is larger than " + std::to_string(limit >> 20) + " MiB, which is more than is read here.");
}

void waitForBytes(int fd)
{
    pollfd poll{fd, POLLIN, 0};
    static_cast<void>(::poll(&poll, 1, -1));
}

/// Reads to the end, or one byte past the limit. `expected` bytes will probably come.
FileText readToEnd(int fd, std::uint64_t limit, std::size_t expected, bool endsShort)
{
    FileText text;
    std::size_t size = 0;
    text.bytes.resize(expected + 1);
    while (true) {
        if (size == text.bytes.size())
            text.bytes.resize(size + std::max(kStep, size / 2));
        const std::size_t room = text.bytes.size() - size;
        const ssize_t got = ::read(fd, text.bytes.data() + size, room);
        if (got < 0 && errno == EAGAIN) {
            waitForBytes(fd);
        } else if (got < 0 && errno != EINTR) {
            return refusedBySystem(errno);
        } else if (got >= 0) {
            size += static_cast<std::size_t>(got);
            if (size > limit)
                return refusedAsTooLarge(limit);
            // A file, unlike a pipe, answers less than it was asked for only at its end.
            if (got == 0 || (endsShort && static_cast<std::size_t>(got) < room))
                break;
        }
    }
    text.bytes.resize(size);
    return text;
}

bool isPipeOfThisProcess(int fd)
{
    struct statfs status = {};
    return fstatfs(fd, &status) == 0 && status.f_type == kPipeFileSystem;
}

FileText readPipe(int fd, std::uint64_t limit)
{
    pollfd poll{fd, POLLIN, 0};
    const bool isQuiet = ::poll(&poll, 1, 0) == 0;
    if (!isQuiet || isPipeOfThisProcess(fd))
        return readToEnd(fd, limit, kStep, false);
    // A pipe that nobody has opened for writing seems to be at its end; with a slow writer it says so.
    char first = 0;
    const ssize_t got = ::read(fd, &first, 1);
    if (got == 0)
        return refused("nobody writes to this pipe; start the writer first.");
    FileText text = readToEnd(fd, limit, kStep, false);
    if (text.ok() && got == 1)
        text.bytes.insert(text.bytes.begin(), first);
    return text;
}

FileText readOpened(int fd, const struct stat &status, std::uint64_t limit)
{
    if (S_ISREG(status.st_mode)) {
        const auto size = static_cast<std::uint64_t>(status.st_size);
        return size > limit ? refusedAsTooLarge(limit) : readToEnd(fd, limit, std::size_t(size), true);
    }
    if (S_ISDIR(status.st_mode))
        return refused("it is a folder; name a file in it.");
    if (S_ISFIFO(status.st_mode))
        return readPipe(fd, limit);
    // Programs that compare versions name it where there is no old or new one.
    if (S_ISCHR(status.st_mode) && status.st_rdev == makedev(1, 3))
        return {};
    return refused("it is a device or a socket, which may have no end.");
}

} // namespace

FileText readFile(const std::string &path, std::uint64_t limit)
{
    // A NUL inside would silently open another file than the one that was named.
    if (path.find('\0') != std::string::npos)
        return refusedBySystem(ENOENT);
    int opened = -1;
    do {
        // A pipe would otherwise make us wait for its other end, and a terminal would take us over.
        opened = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    } while (opened < 0 && errno == EINTR);
    const Descriptor file(opened);
    struct stat status = {};
    if (file.get() < 0)
        return errno == ENXIO ? refused("it is a socket, which cannot be read as a file.")
                              : refusedBySystem(errno);
    if (fstat(file.get(), &status) != 0)
        return refusedBySystem(errno);
    return readOpened(file.get(), status, limit);
}

FileText readDescriptor(int fd, std::uint64_t limit)
{
    struct stat status = {};
    if (fstat(fd, &status) != 0)
        return refusedBySystem(errno);
    if (S_ISDIR(status.st_mode))
        return refused("it is a folder; name a file in it.");
    return readToEnd(fd, limit, kStep, false);
}

} // namespace cli
