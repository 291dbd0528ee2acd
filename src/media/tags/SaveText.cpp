// SPDX-License-Identifier: MIT
#include "media/tags/SaveText.h"

#include "media/tags/LoadedFile.h"
#include "media/tags/ReplaceFile.h"
#include "media/tags/SystemCalls.h"
#include "media/tags/WorkProgress.h"

#include <cerrno>
#include <utility>

namespace tags {

namespace {

Outcome<Saved> saved(Outcome<Replaced> replaced)
{
    if (!replaced.ok())
        return replaced.failure();
    return Saved{replaced.value().state, true, std::move(replaced.value().remark)};
}

bool holds(const LoadedFile &file, std::string_view text)
{
    const auto *memory = dynamic_cast<const MemorySource *>(file.source.get());
    return memory && memory->bytes() == text;
}

} // namespace

Outcome<Saved> saveText(const std::string &path, std::string_view expected, const std::string &text,
    bool sweeps, SystemCalls &system)
{
    std::string target;
    if (system.resolve(path.c_str(), target) != 0)
        return systemFailure(errno, "written");
    const Outcome<LoadedFile> file = load(target, system, kMaxTextBytes);
    if (!file.ok())
        return file.failure();
    if (!holds(file.value(), expected)) {
        return Failure{Reason::ChangedMeanwhile,
            "Another program changed the file meanwhile, so it was left alone. Try again."};
    }
    if (expected == text)
        return Saved{file.value().state, false, {}};
    if (auto failure = unwritable(target, file.value().status, system))
        return *failure;
    WorkProgress progress;
    return saved(replaceFile(
        target, MemorySource(text), file.value(), system, progress, sweeps ? Sweep::First : Sweep::No));
}

Outcome<Saved> createText(const std::string &path, const std::string &text, SystemCalls &system)
{
    return saved(createFile(path, MemorySource(text), system));
}

} // namespace tags
