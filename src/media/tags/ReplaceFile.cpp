// SPDX-License-Identifier: MIT
#include "media/tags/ReplaceFile.h"

#include "media/tags/Hash.h"
#include "media/tags/SystemCalls.h"
#include "media/tags/WorkProgress.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <optional>
#include <random>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tags {

namespace {

constexpr int kNameAttempts = 100;
constexpr std::size_t kBlockBytes = 1U << 20;
constexpr std::size_t kMaxAttributeBytes = 64 * 1024;

std::string folderOf(const std::string &path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

/// A file beside the target, removed when its owner goes unless it took the target's name.
class Temporary
{
public:
    Temporary(std::string path, int fd, SystemCalls &system)
        : m_path(std::move(path)), m_file(fd, system), m_system(system)
    { }
    ~Temporary()
    {
        if (!m_path.empty())
            m_system.unlink(m_path.c_str());
    }
    Temporary(const Temporary &) = delete;
    Temporary &operator=(const Temporary &) = delete;

    [[nodiscard]] int fd() const { return m_file.get(); }
    [[nodiscard]] int rename(const std::string &target)
    {
        const int answer = m_system.rename(m_path.c_str(), target.c_str());
        if (answer == 0)
            m_path.clear();
        return answer;
    }
    [[nodiscard]] int renameToNew(const std::string &target)
    {
        const int answer = m_system.renameToNew(m_path.c_str(), target.c_str());
        if (answer == 0)
            m_path.clear();
        return answer;
    }

private:
    std::string m_path; ///< empty once it has the target's name
    Descriptor m_file;
    SystemCalls &m_system;
};

/// Whether the process that a temporary is named after still is; this one is, in all its threads.
bool isMakerAlive(const std::string &name)
{
    pid_t maker = 0;
    const char *digits = name.c_str() + std::string_view(kTemporaryPrefix).size();
    const auto [end, error] = std::from_chars(digits, name.c_str() + name.size(), maker);
    return error == std::errc() && maker > 0 && (kill(maker, 0) == 0 || errno == EPERM);
}

/// A temporary was left by a crash when its maker is gone and nobody holds a lock on it: between its making
/// and its locking there is a moment.
void sweepFolder(const std::string &folder, SystemCalls &system)
{
    std::vector<std::string> names;
    if (system.listFolder(folder.c_str(), names) != 0)
        return;
    for (const std::string &name : names) {
        if (name.rfind(kTemporaryPrefix, 0) != 0 || isMakerAlive(name))
            continue;
        const std::string path = folder + '/' + name;
        Descriptor file(
            system.open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW | O_CLOEXEC, 0), system);
        if (file.get() >= 0 && system.lock(file.get()) == 0)
            system.unlink(path.c_str());
    }
}

std::unique_ptr<Temporary> makeTemporary(const std::string &folder, mode_t mode, SystemCalls &system)
{
    static std::atomic<unsigned> counter = std::random_device{}();
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        const std::string path
            = folder + '/' + kTemporaryPrefix + std::to_string(getpid()) + '-' + std::to_string(++counter);
        const int fd = system.open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        if (fd >= 0)
            return std::make_unique<Temporary>(path, fd, system);
        if (errno != EEXIST && errno != EINTR)
            return nullptr;
    }
    return nullptr;
}

bool writeBlock(int fd, const std::string &bytes, SystemCalls &system)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t wrote = system.write(fd, bytes.data() + done, bytes.size() - done);
        if (wrote < 0 && errno == EINTR)
            continue;
        if (wrote == 0)
            errno = ENOSPC; // no progress and no reason given: do not try for ever
        if (wrote <= 0)
            return false;
        done += std::size_t(wrote);
    }
    return true;
}

Failure notWritten()
{
    return systemFailure(errno, "written");
}

/// The hash of what was written; it goes to the disk a block at a time.
Outcome<std::uint64_t> writeAll(
    int fd, const ByteSource &content, SystemCalls &system, WorkProgress &progress)
{
    Hash hash;
    for (std::uint64_t at = 0; at < content.size();) {
        const std::string block
            = content.read(at, std::size_t(std::min<std::uint64_t>(content.size() - at, kBlockBytes)));
        if (block.empty() || content.hasFailed())
            return Failure{
                Reason::SystemError, "The file could not be read to its end, so it was left alone."};
        if (!writeBlock(fd, block, system))
            return notWritten();
        hash.add(block);
        at += block.size();
        if (!progress.advance(block.size()))
            return cancelled();
    }
    return hash.value();
}

bool syncRetrying(int fd, SystemCalls &system)
{
    int answer = 0;
    do {
        answer = system.fsync(fd);
    } while (answer != 0 && errno == EINTR);
    return answer == 0;
}

int openToRead(const std::string &path, SystemCalls &system)
{
    return system.open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0);
}

/// Two saves of one file look whether it is the one they know, and then replace it: one after the other.
/// Where files cannot be locked that is not to be had.
Failure busy()
{
    return {Reason::ChangedMeanwhile,
        "Another program is saving the file at this moment, so it was left alone. Try again when it is "
        "done."};
}

/// Extended attributes, access lists among them. What the system does not let us take over is
/// not worth losing the save for.
void copyAttributes(const std::string &from, int to, SystemCalls &system)
{
    const Descriptor source(openToRead(from, system), system);
    if (source.get() < 0)
        return;
    std::string names(kMaxAttributeBytes, '\0');
    const ssize_t size = system.listAttributes(source.get(), names.data(), names.size());
    names.resize(size < 0 ? 0 : std::size_t(size));
    std::string value(kMaxAttributeBytes, '\0');
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) {
        const char *name = names.c_str() + at;
        const ssize_t bytes = system.getAttribute(source.get(), name, value.data(), value.size());
        if (bytes >= 0)
            system.setAttribute(to, name, value.data(), std::size_t(bytes));
    }
}

/// Owner before mode: giving a file away takes special mode bits off it.
bool takeOver(const std::string &path, const struct stat &status, int to, SystemCalls &system)
{
    // Only the owner and root may give files away; for others the file becomes theirs.
    static_cast<void>(system.fchown(to, status.st_uid, status.st_gid));
    copyAttributes(path, to, system);
    return system.fchmod(to, status.st_mode & 07777) == 0;
}

std::optional<Failure> changedMeanwhile(
    const std::string &path, const FileState &expected, SystemCalls &system, WorkProgress &progress)
{
    const Outcome<FileState> now = currentState(path, system, progress);
    if (!now.ok())
        return now.failure();
    if (now.value() == expected)
        return std::nullopt;
    return Failure{Reason::ChangedMeanwhile,
        "Another program changed the file meanwhile, so it was left alone. Open it again to see its lyric."};
}

/// The temporary, complete and on the disk, and still locked: it is ours until it has its new name. Its state
/// is what the next save will expect.
Outcome<FileState> fill(Temporary &temporary, const ByteSource &content, SystemCalls &system,
    WorkProgress &progress, const std::function<bool()> &takeOver)
{
    static_cast<void>(system.lock(temporary.fd()));
    const Outcome<std::uint64_t> hash = writeAll(temporary.fd(), content, system, progress);
    if (!hash.ok())
        return hash.failure();
    struct stat status = {};
    if (!takeOver() || !syncRetrying(temporary.fd(), system) || system.fstat(temporary.fd(), &status) != 0)
        return notWritten();
    FileState state = stateOf(status);
    if (state.size <= kMaxHashedBytes)
        state.hash = hash.value();
    return state;
}

/// A rename is on the disk only when its folder is.
Message syncFolder(const std::string &folder, SystemCalls &system)
{
    const Descriptor file(system.open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0), system);
    if (file.get() >= 0 && (syncRetrying(file.get(), system) || errno == EINVAL))
        return {};
    return {
        "The lyric is saved, but the system could not say whether it would survive a power failure now. (%1)",
        {systemReason(errno)}};
}

Failure readOnly()
{
    return {
        Reason::ReadOnly, "The file is read-only. Allow writing to it in its properties, then save again."};
}

Failure noRoomBeside(int error)
{
    if (error != EACCES && error != EPERM && error != EROFS)
        return systemFailure(error, "written");
    return {Reason::NoPermission,
        {"The folder of the file does not allow new files in it, which saving safely needs. (%1)",
            {systemReason(error)}}};
}

Message linkRemark(const struct stat &status)
{
    if (status.st_nlink <= 1)
        return {};
    return "The file has another name (a hard link), under which the old version stays.";
}

} // namespace

std::optional<Failure> unwritable(const std::string &path, const struct stat &status, SystemCalls &system)
{
    if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        return readOnly();
    if (system.access(path.c_str(), W_OK) == 0)
        return std::nullopt;
    return errno == EACCES || errno == EROFS || errno == EPERM ? readOnly() : systemFailure(errno, "written");
}

Outcome<Replaced> replaceFile(const std::string &path, const ByteSource &content, const LoadedFile &old,
    SystemCalls &system, WorkProgress &progress, Sweep sweep)
{
    const std::string folder = folderOf(path);
    if (sweep == Sweep::First)
        sweepFolder(folder, system);
    const std::unique_ptr<Temporary> temporary = makeTemporary(folder, 0600, system);
    if (!temporary)
        return noRoomBeside(errno);
    const Outcome<FileState> state = fill(*temporary, content, system, progress,
        [&] { return takeOver(path, old.status, temporary->fd(), system); });
    if (!state.ok())
        return state.failure();
    const Descriptor target(openToRead(path, system), system);
    if (target.get() >= 0 && system.lock(target.get()) != 0 && errno == EWOULDBLOCK)
        return busy();
    if (auto failure = changedMeanwhile(path, old.state, system, progress))
        return *failure;
    if (temporary->rename(path) != 0)
        return notWritten();
    const Message remark = syncFolder(folder, system);
    return Replaced{state.value(), remark.empty() ? linkRemark(old.status) : remark};
}

Outcome<Replaced> createFile(const std::string &path, const ByteSource &content, SystemCalls &system)
{
    const std::string folder = folderOf(path);
    // What the user's mask leaves of these bits is what any new file gets.
    const std::unique_ptr<Temporary> temporary = makeTemporary(folder, 0666, system);
    if (!temporary)
        return noRoomBeside(errno);
    WorkProgress progress;
    const Outcome<FileState> state = fill(*temporary, content, system, progress, [] { return true; });
    if (!state.ok())
        return state.failure();
    if (temporary->renameToNew(path) != 0) {
        return errno == EEXIST ? Failure{Reason::ChangedMeanwhile, "There is a file of that name already."}
                               : notWritten();
    }
    return Replaced{state.value(), syncFolder(folder, system)};
}

} // namespace tags
