// SPDX-License-Identifier: MIT
#include "media/tags/SaveLyric.h"

#include "media/tags/ByteSource.h"
#include "media/tags/Container.h"
#include "media/tags/Format.h"
#include "media/tags/LoadedFile.h"
#include "media/tags/ReplaceFile.h"
#include "media/tags/SystemCalls.h"
#include "media/tags/Verify.h"

#include <utility>

namespace tags {

namespace {

/// The file as it is now, when that is how it was when its tags were read.
Outcome<LoadedFile> loadUnchanged(const std::string &path, const FileState &expected, SystemCalls &system)
{
    Outcome<LoadedFile> file = load(path, system);
    if (!file.ok())
        return file;
    if (file.value().state != expected) {
        return Failure{Reason::ChangedMeanwhile,
            "Another program changed the file since it was opened, so it was left alone. Open it again to "
            "see its "
            "lyric."};
    }
    if (file.value().state.size > kMaxSaveBytes) {
        return Failure{Reason::TooLarge,
            "The file is larger than 128 MiB, which is more than can be saved. Save the lyric as a file of "
            "its own."};
    }
    if (auto failure = unwritable(path, file.value().status, system))
        return *failure;
    return file;
}

/// The new content, checked against the old one; nothing when the file holds the lyric already.
Outcome<std::optional<std::string>> editedContent(
    const MemorySource &old, std::string_view lyric, const std::string &name)
{
    const Outcome<Format> format = detectFormat(old);
    if (!format.ok())
        return format.failure();
    const ContainerOutcome container = parseContainer(old, format.value());
    if (!container.ok())
        return container.failure();
    const std::vector<LyricField> fields = container.value()->lyricFields();
    const std::optional<std::size_t> field = lyricFieldIndex(fields);
    if (field ? fields[*field].text == lyric : lyric.empty())
        return std::optional<std::string>();
    const Outcome<Edit> edit = container.value()->withLyric({field, {}}, lyric);
    if (!edit.ok())
        return edit.failure();
    MemorySource edited(applied(old.bytes(), edit.value()));
    if (auto failure
        = differsFrom(old, *container.value(), edited, format.value(), {{field, {}}, lyric}, name))
        return *failure;
    return std::optional(edited.release());
}

} // namespace

Outcome<Saved> saveLyric(
    const std::string &path, std::string_view lyric, const FileState &expected, SystemCalls &system)
{
    std::string target;
    if (system.resolve(path.c_str(), target) != 0)
        return systemFailure(errno, "written");
    const Outcome<LoadedFile> file = loadUnchanged(target, expected, system);
    if (!file.ok())
        return file.failure();
    const auto &old = static_cast<const MemorySource &>(*file.value().source);
    const Outcome<std::optional<std::string>> content = editedContent(old, lyric, target);
    if (!content.ok())
        return content.failure();
    if (!content.value())
        return Saved{file.value().state, false, {}};
    Outcome<Replaced> replaced = replaceFile(target, *content.value(), file.value(), system);
    if (!replaced.ok())
        return replaced.failure();
    return Saved{replaced.value().state, true, std::move(replaced.value().remark)};
}

Outcome<Saved> saveLyric(const std::string &path, std::string_view lyric, const FileState &expected)
{
    return saveLyric(path, lyric, expected, SystemCalls::real());
}

} // namespace tags
