// SPDX-License-Identifier: MIT
#include "media/tags/SaveLyric.h"

#include "media/tags/ByteSource.h"
#include "media/tags/Container.h"
#include "media/tags/Format.h"
#include "media/tags/LoadedFile.h"
#include "media/tags/LyricEdits.h"
#include "media/tags/PatchedSource.h"
#include "media/tags/ReplaceFile.h"
#include "media/tags/SaveRemark.h"
#include "media/tags/SystemCalls.h"
#include "media/tags/Verify.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace tags {

namespace {

/// How the edits come about, once the fields are known.
using EditMaker = std::function<Outcome<std::vector<FieldEdit>>(const std::vector<LyricField> &)>;

/// One save: the file, and what it becomes.
class Save
{
public:
    enum class Writes { Yes, No };

    Save(std::string path, LoadedFile file, SystemCalls &system, Writes writes)
        : m_path(std::move(path)), m_file(std::move(file)), m_system(system), m_writes(writes)
    { }

    [[nodiscard]] Outcome<Saved> run(const EditMaker &makeEdits, const SaveProgress &report);

private:
    [[nodiscard]] std::optional<Failure> takeHash();
    [[nodiscard]] std::optional<Failure> apply(
        const Container &container, const std::vector<FieldEdit> &edits);

    std::string m_path; ///< without links
    LoadedFile m_file;
    SystemCalls &m_system;
    Writes m_writes;
    WorkProgress m_progress;
    Format m_format = Format::Mpeg;
    std::unique_ptr<PatchedSource> m_edited; ///< once the edits are made
};

/// The edits with what their fields can hold of the texts. What a synchronised field cannot hold a line of
/// would take it away, which is not what was asked for.
Outcome<std::vector<FieldEdit>> held(std::vector<FieldEdit> edits, const std::vector<LyricField> &fields)
{
    for (FieldEdit &edit : edits) {
        std::string text = heldText(fields, edit.place, edit.text);
        if (text.empty() && !edit.text.empty()) {
            return Failure{Reason::Unsupported,
                "The field holds timed lines alone, and the lyric has none. Choose another field, or give "
                "the "
                "lines times."};
        }
        edit.text = std::move(text);
    }
    return edits;
}

bool changes(const FieldEdit &edit, const std::vector<LyricField> &fields)
{
    return edit.place.field ? fields.at(*edit.place.field).text != edit.text : !edit.text.empty();
}

/// A large file's hash was not taken when it was loaded; without one, a change while it is copied could go
/// unnoticed.
std::optional<Failure> Save::takeHash()
{
    if (m_file.state.hash)
        return std::nullopt;
    Outcome<FileState> state = currentState(m_path, m_system, m_progress);
    if (!state.ok())
        return state.failure();
    m_file.state.hash = state.value().hash;
    if (state.value() == m_file.state)
        return std::nullopt;
    return Failure{Reason::ChangedMeanwhile,
        "Another program is changing the file, so it was left alone. Save again when it is done."};
}

std::optional<Failure> Save::apply(const Container &container, const std::vector<FieldEdit> &edits)
{
    Outcome<Edit> patches = container.withLyrics(edits);
    if (!patches.ok())
        return patches.failure();
    m_edited = std::make_unique<PatchedSource>(*m_file.source, std::move(patches.value()));
    if (m_edited->size() > kMaxReadBytes)
        return Failure{Reason::TooLarge,
            "The file would grow beyond 2 GiB with this lyric, which is more than could be opened again."};
    return differsFrom(*m_file.source, container, *m_edited, m_format, edits, m_path, m_progress);
}

Outcome<Saved> Save::run(const EditMaker &makeEdits, const SaveProgress &report)
{
    const Outcome<Format> format = detectFormat(*m_file.source);
    if (!format.ok())
        return format.failure();
    m_format = format.value();
    const ContainerOutcome container = parseContainer(*m_file.source, m_format);
    if (!container.ok())
        return container.failure();
    const std::vector<LyricField> fields = container.value()->lyricFields();
    if (m_file.source->hasFailed())
        return Failure{Reason::SystemError, "The file could not be read to its end, so it was left alone."};
    Outcome<std::vector<FieldEdit>> made = makeEdits(fields);
    if (!made.ok())
        return made.failure();
    if (auto failure = tooMuchLyric(fieldsAfter(fields, made.value())))
        return *failure;
    Outcome<std::vector<FieldEdit>> edits = held(std::move(made.value()), fields);
    if (!edits.ok())
        return edits.failure();
    std::erase_if(edits.value(), [&fields](const FieldEdit &edit) { return !changes(edit, fields); });
    if (edits.value().empty())
        return Saved{m_file.state, false, {}};
    // The sound is read before and after the edit; the copy is written once, and compared with once.
    m_progress = WorkProgress(report, (m_file.state.hash ? 4 : 5) * m_file.state.size);
    if (auto failure = takeHash())
        return *failure;
    if (auto failure = apply(*container.value(), edits.value()))
        return *failure;
    const Message remark = remarkOn(*m_file.source, *m_edited, m_format, fields, edits.value());
    if (m_writes == Writes::No)
        return Saved{m_file.state, true, remark};
    Outcome<Replaced> replaced = replaceFile(m_path, *m_edited, m_file, m_system, m_progress);
    if (!replaced.ok())
        return replaced.failure();
    const Message &ofFile = replaced.value().remark;
    return Saved{replaced.value().state, true, ofFile.empty() ? remark : ofFile};
}

/// The file as it is now, when that is how it was when its tags were read.
Outcome<LoadedFile> loadUnchanged(const std::string &path, const FileState &expected, SystemCalls &system)
{
    Outcome<LoadedFile> file = load(path, system);
    if (!file.ok())
        return file;
    if (file.value().state != expected) {
        return Failure{Reason::ChangedMeanwhile,
            "Another program changed the file since it was opened, so it was left alone. Open it again to "
            "see its lyric."};
    }
    if (auto failure = unwritable(path, file.value().status, system))
        return *failure;
    return file;
}

Outcome<Saved> saveEdits(const std::string &path, const EditMaker &makeEdits, const FileState &expected,
    const SaveProgress &progress, SystemCalls &system, Save::Writes writes = Save::Writes::Yes)
{
    std::string target;
    if (system.resolve(path.c_str(), target) != 0)
        return systemFailure(errno, "written");
    Outcome<LoadedFile> file = loadUnchanged(target, expected, system);
    if (!file.ok())
        return file.failure();
    return Save(target, std::move(file.value()), system, writes).run(makeEdits, progress);
}

} // namespace

Outcome<Saved> saveFields(const std::string &path, const std::vector<FieldEdit> &edits,
    const FileState &expected, const SaveProgress &progress, SystemCalls &system)
{
    return saveEdits(
        path, [&edits](const auto &) { return edits; }, expected, progress, system);
}

Outcome<Saved> saveFields(const std::string &path, const std::vector<FieldEdit> &edits,
    const FileState &expected, const SaveProgress &progress)
{
    return saveFields(path, edits, expected, progress, SystemCalls::real());
}

Outcome<Saved> tryFields(
    const std::string &path, const std::vector<FieldEdit> &edits, const FileState &expected)
{
    const auto made = [&edits](const auto &) { return edits; };
    return saveEdits(path, made, expected, {}, SystemCalls::real(), Save::Writes::No);
}

Outcome<Saved> saveLyric(const std::string &path, std::string_view lyric, const FileState &expected,
    const SaveProgress &progress, SystemCalls &system)
{
    const auto edits = [lyric](const std::vector<LyricField> &fields) { return lyricEdits(fields, lyric); };
    return saveEdits(path, edits, expected, progress, system);
}

Outcome<Saved> saveLyric(
    const std::string &path, std::string_view lyric, const FileState &expected, const SaveProgress &progress)
{
    return saveLyric(path, lyric, expected, progress, SystemCalls::real());
}

} // namespace tags
