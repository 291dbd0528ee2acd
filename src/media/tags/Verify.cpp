// SPDX-License-Identifier: MIT
#include "media/tags/Verify.h"

#include "media/tags/ByteSource.h"
#include "media/tags/Comparable.h"
#include "media/tags/Container.h"
#include "media/tags/Format.h"
#include "media/tags/Hash.h"
#include "media/tags/LyricEdits.h"
#include "media/tags/TagLibReader.h"
#include "media/tags/WorkProgress.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

namespace tags {

namespace {

constexpr std::size_t kBlockBytes = 1U << 20;

struct Digest
{
    std::uint64_t bytes = 0;
    std::uint64_t hash = 0;

    friend bool operator==(const Digest &, const Digest &) = default;
};

Digest digest(const ByteSource &source, const std::vector<Range> &ranges, WorkProgress &progress)
{
    Digest out;
    Hash hash;
    for (const Range &range : ranges) {
        for (std::uint64_t done = 0; done < range.size && progress.goesOn(); done += kBlockBytes) {
            const auto count = std::size_t(std::min<std::uint64_t>(kBlockBytes, range.size - done));
            const std::string block = source.read(range.offset + done, count);
            hash.add(block);
            out.bytes += block.size();
            progress.advance(block.size());
        }
    }
    out.hash = hash.value();
    return out;
}

/// The lyric fields that an edited file ought to have.
class ExpectedFields
{
public:
    ExpectedFields(const std::vector<LyricField> &before, const std::vector<FieldEdit> &edits);

    /// Whether `after` are they, in no particular order: a new one may stand anywhere.
    [[nodiscard]] bool areMetBy(const std::vector<LyricField> &after);

private:
    [[nodiscard]] static std::string identity(const LyricField &field);
    [[nodiscard]] bool takeAdded(const LyricField &field);

    std::multiset<std::string> m_kept;
    std::vector<FieldEdit> m_added;
};

std::string ExpectedFields::identity(const LyricField &field)
{
    return field.tag + '\n' + field.name + '\n' + field.language + '\n' + field.description + '\n'
        + comparable(field.text);
}

ExpectedFields::ExpectedFields(const std::vector<LyricField> &before, const std::vector<FieldEdit> &edits)
{
    std::vector<LyricField> fields = before;
    std::vector<bool> isGone(fields.size());
    for (const FieldEdit &edit : edits) {
        if (edit.place.field) {
            isGone[*edit.place.field] = edit.text.empty();
            fields[*edit.place.field].text = edit.text;
        } else {
            m_added.push_back(edit);
        }
    }
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!isGone[i])
            m_kept.insert(identity(fields[i]));
    }
    // Those without a name of their own take what the others leave.
    std::stable_partition(
        m_added.begin(), m_added.end(), [](const FieldEdit &edit) { return !edit.place.newName.empty(); });
}

/// The name of a new field, where none was asked for, and its language are the format's.
bool ExpectedFields::takeAdded(const LyricField &field)
{
    const auto meant = std::find_if(m_added.begin(), m_added.end(), [&field](const FieldEdit &edit) {
        return edit.text == field.text && (edit.place.newName.empty() || edit.place.newName == field.name);
    });
    if (meant == m_added.end())
        return false;
    m_added.erase(meant);
    return true;
}

bool ExpectedFields::areMetBy(const std::vector<LyricField> &after)
{
    for (const LyricField &field : after) {
        if (const auto kept = m_kept.find(identity(field)); kept != m_kept.end())
            m_kept.erase(kept);
        else if (!takeAdded(field))
            return false;
    }
    return m_kept.empty() && m_added.empty();
}

/// Whether TagLib finds `text`. It makes its own of some texts (byte-order marks, what is no UTF-8), which
/// only the comparison of bytes can judge.
bool finds(const LibraryView &view, const std::string &text)
{
    const auto holds = [&view](const std::string &wanted) {
        return std::binary_search(view.lyrics.begin(), view.lyrics.end(), wanted);
    };
    const std::string asRead = textAsTagLibReads(text);
    return asRead.empty() || holds(text) || holds(asRead);
}

/// Everything but the lyrics.
bool libraryAgrees(const LibraryView &old, const LibraryView &edited)
{
    return old.title == edited.title && old.artist == edited.artist && old.album == edited.album
        && old.cover == edited.cover && old.duration == edited.duration && old.others == edited.others;
}

/// Whether TagLib finds the text of each edit. Where it shows fewer fields than there are, it knows one of
/// each name, and any of that name will do.
bool libraryFinds(
    const LibraryView &view, const std::vector<LyricField> &before, const std::vector<FieldEdit> &edits)
{
    const std::vector<LyricField> after = fieldsAfter(before, edits);
    std::set<std::string> foundNames;
    if (view.lyrics.size() < after.size()) {
        for (const LyricField &field : after) {
            if (finds(view, field.text))
                foundNames.insert(field.name);
        }
    }
    return std::all_of(edits.begin(), edits.end(), [&](const FieldEdit &edit) {
        const std::string &name = edit.place.field ? before[*edit.place.field].name : edit.place.newName;
        const bool isFoundByName = !foundNames.empty()
            && (name.empty() || foundNames.contains("") || foundNames.contains(name)); // empty: the usual one
        return isFoundByName || finds(view, edit.text);
    });
}

bool holdsNul(const std::vector<FieldEdit> &edits)
{
    return std::any_of(edits.begin(), edits.end(),
        [](const FieldEdit &edit) { return edit.text.find('\0') != std::string::npos; });
}

Failure wouldChange(const char *what)
{
    return {Reason::WouldChangeMore,
        {"The file was left alone, because saving would have changed %1. Its structure is unusual or "
         "damaged.",
            {what}}};
}

/// The comparison as the containers read both.
std::optional<Failure> partsDiffer(const ByteSource &old, const Container &oldContainer,
    const ByteSource &edited, Format format, const std::vector<FieldEdit> &edits, WorkProgress &progress)
{
    const Outcome<Format> editedFormat = detectFormat(edited);
    const ContainerOutcome container = parseContainer(edited, format);
    if (!editedFormat.ok() || editedFormat.value() != format || !container.ok())
        return wouldChange("more than its lyric");
    if (!ExpectedFields(oldContainer.lyricFields(), edits).areMetBy(container.value()->lyricFields()))
        return wouldChange("the lyric itself");
    if (oldContainer.otherFields() != container.value()->otherFields())
        return wouldChange("another of its tags");
    const Digest before = digest(old, oldContainer.audio(), progress);
    const Digest after = digest(edited, container.value()->audio(), progress);
    if (!progress.goesOn())
        return cancelled();
    return before == after ? std::nullopt : std::optional(wouldChange("its sound"));
}

/// As TagLib reads it, with a cover that is only good to be compared: both may be large.
Outcome<LibraryView> comparableView(const ByteSource &source, Format format, const std::string &name)
{
    Outcome<LibraryView> view = readWithTagLib(source, format, name);
    if (view.ok())
        view.value().cover = comparable(view.value().cover);
    return view;
}

} // namespace

std::optional<Failure> differsFrom(const ByteSource &old, const Container &oldContainer,
    const ByteSource &edited, Format format, const std::vector<FieldEdit> &edits, const std::string &name,
    WorkProgress &progress)
{
    if (auto failure = partsDiffer(old, oldContainer, edited, format, edits, progress))
        return failure;
    const Outcome<LibraryView> before = comparableView(old, format, name);
    const Outcome<LibraryView> after = comparableView(edited, format, name);
    if (edited.hasFailed())
        return Failure{Reason::SystemError, "The file could not be read to its end, so it was left alone."};
    if (before.ok() && after.ok() && libraryAgrees(before.value(), after.value())
        && libraryFinds(after.value(), oldContainer.lyricFields(), edits))
        return std::nullopt;
    if (!holdsNul(edits))
        return wouldChange("how other programs read it");
    return Failure{Reason::NotText,
        "The lyric holds a NUL character, which other programs take for its end. Take it out, then save "
        "again."};
}

} // namespace tags
