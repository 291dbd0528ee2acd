// SPDX-License-Identifier: MIT
#include "media/tags/LoadedFile.h"

#include "media/tags/Hash.h"
#include "media/tags/SystemCalls.h"
#include "media/tags/WorkProgress.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <system_error>
#include <utility>

namespace tags {

namespace {

constexpr std::size_t kBlockBytes = 1U << 20;
constexpr std::size_t kSmallBytes = 1U << 12; ///< what is read along with what stands around it
constexpr std::size_t kAheadBytes = 1U << 16;
constexpr std::size_t kNearBytes = 1U << 13; ///< no further from the last read, and more is likely to follow

/// A file too large for memory, read where it is asked for.
class FileSource final : public ByteSource
{
public:
    FileSource(std::unique_ptr<Descriptor> file, std::uint64_t size, SystemCalls &system)
        : m_file(std::move(file)), m_size(size), m_system(system)
    { }

    [[nodiscard]] std::uint64_t size() const override { return m_size; }
    [[nodiscard]] std::string read(std::uint64_t offset, std::size_t count) const override;
    [[nodiscard]] bool hasFailed() const override { return m_failed; }

private:
    [[nodiscard]] std::string readNow(std::uint64_t offset, std::size_t count) const;

    std::unique_ptr<Descriptor> m_file;
    std::uint64_t m_size;
    SystemCalls &m_system;
    mutable bool m_failed = false;
    /// A stretch that was read last: headers are many, small, and follow one another.
    mutable std::string m_ahead;
    mutable std::uint64_t m_aheadAt = 0;
    mutable std::uint64_t m_last = 0; ///< where the last read began
};

/// Reads up to `count` bytes; fewer at the end of the file, −1 when the system refuses.
ssize_t readAll(int fd, char *out, std::size_t count, std::uint64_t offset, SystemCalls &system)
{
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got = system.pread(fd, out + done, count - done, off_t(offset + done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return -1;
        if (got == 0)
            break;
        done += std::size_t(got);
    }
    return ssize_t(done);
}

std::string FileSource::readNow(std::uint64_t offset, std::size_t count) const
{
    std::string out(std::size_t(std::min<std::uint64_t>(count, m_size - offset)), '\0');
    const ssize_t got = readAll(m_file->get(), out.data(), out.size(), offset, m_system);
    m_failed = m_failed || got != ssize_t(out.size());
    out.resize(got < 0 ? 0 : std::size_t(got));
    return out;
}

std::string FileSource::read(std::uint64_t offset, std::size_t count) const
{
    if (offset >= m_size)
        return {};
    const std::uint64_t wanted = std::min<std::uint64_t>(count, m_size - offset);
    const bool isAhead = offset >= m_aheadAt && offset + wanted <= m_aheadAt + m_ahead.size();
    const bool isNear = offset >= m_last && offset - m_last <= kNearBytes;
    m_last = offset;
    if (isAhead)
        return m_ahead.substr(std::size_t(offset - m_aheadAt), std::size_t(wanted));
    if (count > kSmallBytes || !isNear)
        return readNow(offset, count);
    m_ahead = readNow(offset, kAheadBytes);
    m_aheadAt = offset;
    return m_ahead.substr(0, std::size_t(wanted));
}

int openRetrying(const std::string &path, SystemCalls &system)
{
    // A pipe would otherwise make us wait for its other end, and a terminal would take us over.
    constexpr int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    int fd = -1;
    do {
        fd = system.open(path.c_str(), flags, 0);
    } while (fd < 0 && errno == EINTR);
    return fd;
}

std::optional<Failure> refusal(const struct stat &status)
{
    if (S_ISDIR(status.st_mode))
        return Failure{Reason::NotAFile, "This is a folder. Choose an audio file."};
    if (!S_ISREG(status.st_mode))
        return Failure{Reason::NotAFile, "This is not a file but a device or a pipe. Choose an audio file."};
    if (std::uint64_t(status.st_size) > kMaxReadBytes)
        return Failure{Reason::TooLarge, "The file is larger than 2 GiB, which is more than can be opened."};
    return std::nullopt;
}

/// The hash of the content, a block at a time.
Outcome<std::uint64_t> contentHash(int fd, std::uint64_t size, SystemCalls &system, WorkProgress &progress)
{
    std::string block(std::size_t(std::min<std::uint64_t>(size, kBlockBytes)), '\0');
    Hash hash;
    for (std::uint64_t at = 0; at < size;) {
        const ssize_t got = readAll(fd, block.data(), block.size(), at, system);
        if (got < 0)
            return systemFailure(errno, "read");
        if (got == 0)
            break;
        hash.add(std::string_view(block).substr(0, std::size_t(got)));
        at += std::uint64_t(got);
        if (!progress.advance(std::uint64_t(got)))
            return cancelled();
    }
    return hash.value();
}

/// The whole content; shorter than `size` when somebody cut the file meanwhile.
Outcome<std::string> content(int fd, std::uint64_t size, SystemCalls &system)
{
    std::string bytes(std::size_t(size), '\0');
    const ssize_t got = readAll(fd, bytes.data(), bytes.size(), 0, system);
    if (got < 0)
        return systemFailure(errno, "read");
    if (std::size_t(got) != bytes.size())
        return Failure{Reason::ChangedMeanwhile, "The file was changed while it was read. Try again."};
    return bytes;
}

} // namespace

Descriptor::~Descriptor()
{
    close();
}

int Descriptor::close()
{
    const int fd = std::exchange(m_fd, -1);
    return fd < 0 ? 0 : m_system.close(fd);
}

FileState stateOf(const struct stat &status)
{
    FileState state;
    state.device = status.st_dev;
    state.inode = status.st_ino;
    state.size = std::uint64_t(status.st_size);
    state.modifiedSeconds = status.st_mtim.tv_sec;
    state.modifiedNanoseconds = status.st_mtim.tv_nsec;
    return state;
}

std::string systemReason(int error)
{
    const char *const reason = ::strerrordesc_np(error);
    return reason ? reason : std::generic_category().message(error);
}

Failure systemFailure(int error, const std::string &what)
{
    const std::string why = systemReason(error);
    if (error == ENOENT || error == ENOTDIR)
        return {Reason::Missing, {"The file is not there. (%1)", {why}}};
    if (error == EACCES || error == EPERM)
        return {Reason::NoPermission,
            {"You do not have permission: the file could not be %1. (%2)", {what, why}}};
    if (what == "written")
        return {Reason::SystemError, {"The file could not be written, and is as it was. (%1)", {why}}};
    return {Reason::SystemError, {"The file could not be %1. (%2)", {what, why}}};
}

Outcome<FileState> currentState(const std::string &path, SystemCalls &system, WorkProgress &progress)
{
    const Descriptor file(openRetrying(path, system), system);
    struct stat status = {};
    if (file.get() < 0 || system.fstat(file.get(), &status) != 0)
        return systemFailure(errno, "read");
    if (auto failure = refusal(status))
        return *failure;
    FileState state = stateOf(status);
    const Outcome<std::uint64_t> hash = contentHash(file.get(), state.size, system, progress);
    if (!hash.ok())
        return hash.failure();
    state.hash = hash.value();
    return state;
}

Outcome<LoadedFile> load(const std::string &path, SystemCalls &system, std::uint64_t held)
{
    // A NUL inside would silently open another file than the one that was named.
    if (path.find('\0') != std::string::npos)
        return systemFailure(ENOENT, "read");
    auto file = std::make_unique<Descriptor>(openRetrying(path, system), system);
    if (file->get() < 0)
        return systemFailure(errno, "read");
    LoadedFile loaded;
    if (system.fstat(file->get(), &loaded.status) != 0)
        return systemFailure(errno, "read");
    if (auto failure = refusal(loaded.status))
        return *failure;
    loaded.state = stateOf(loaded.status);
    if (loaded.state.size > held) {
        if (loaded.state.size <= kMaxHashedBytes) {
            WorkProgress progress;
            const Outcome<std::uint64_t> hash = contentHash(file->get(), loaded.state.size, system, progress);
            if (!hash.ok())
                return hash.failure();
            loaded.state.hash = hash.value();
        }
        loaded.source = std::make_unique<FileSource>(std::move(file), loaded.state.size, system);
        return loaded;
    }
    Outcome<std::string> bytes = content(file->get(), loaded.state.size, system);
    if (!bytes.ok())
        return bytes.failure();
    loaded.state.hash = hashOf(bytes.value());
    loaded.source = std::make_unique<MemorySource>(std::move(bytes.value()));
    return loaded;
}

} // namespace tags
