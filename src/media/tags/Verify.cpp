// SPDX-License-Identifier: MIT
#include "media/tags/Verify.h"

#include "media/tags/ByteSource.h"
#include "media/tags/Container.h"
#include "media/tags/Format.h"
#include "media/tags/Hash.h"
#include "media/tags/LyricEdits.h"
#include "media/tags/TagLibReader.h"
#include "media/tags/WorkProgress.h"

#include <algorithm>
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

/// The texts of all lyric fields in no particular order: a new one may stand anywhere.
std::vector<std::string> sortedTexts(const std::vector<LyricField> &fields)
{
    std::vector<std::string> texts;
    for (const LyricField &field : fields)
        texts.push_back(field.name + '\n' + field.language + '\n' + field.description + '\n' + field.text);
    std::sort(texts.begin(), texts.end());
    return texts;
}

bool lyricsAreAsMeant(const Container &old, const Container &edited, const IntendedEdit &edit)
{
    std::vector<LyricField> expected = old.lyricFields();
    std::vector<LyricField> actual = edited.lyricFields();
    const std::string text = heldText(expected, edit.place, edit.text);
    if (!edit.place.field) {
        // The name and the language of a new field are the format's; the text is what was meant. A field that
        // was there may say the same.
        for (const LyricField &field : expected) {
            const auto same = std::find(actual.begin(), actual.end(), field);
            if (same == actual.end())
                return false;
            actual.erase(same);
        }
        return actual.size() == 1 && actual.front().text == text;
    }
    if (text.empty()) {
        expected.erase(expected.begin() + std::ptrdiff_t(*edit.place.field));
    } else {
        expected[*edit.place.field].text = text;
    }
    return sortedTexts(expected) == sortedTexts(actual);
}

/// What TagLib ought to find after the edit. It makes its own of some texts (byte-order marks, what
/// is no UTF-8), which only the comparison of bytes above can judge.
bool libraryAgrees(const LibraryView &old, const LibraryView &edited, std::string_view text)
{
    if (old.title != edited.title || old.artist != edited.artist || old.album != edited.album
        || old.cover != edited.cover || old.duration != edited.duration || old.others != edited.others)
        return false;
    const std::string asRead = textAsTagLibReads(text);
    return asRead.empty()
        || std::any_of(edited.lyrics.begin(), edited.lyrics.end(),
            [&](const std::string &lyric) { return lyric == text || lyric == asRead; });
}

Failure wouldChange(const char *what)
{
    return {Reason::WouldChangeMore,
        std::string("The file was left alone, because saving would have changed ") + what
            + ". Its structure is unusual or damaged."};
}

} // namespace

std::optional<Failure> differsFrom(const ByteSource &old, const Container &oldContainer,
    const ByteSource &edited, Format format, const IntendedEdit &edit, const std::string &name,
    WorkProgress &progress)
{
    const Outcome<Format> editedFormat = detectFormat(edited);
    const ContainerOutcome container = parseContainer(edited, format);
    if (!editedFormat.ok() || editedFormat.value() != format || !container.ok())
        return wouldChange("more than its lyric");
    if (!lyricsAreAsMeant(oldContainer, *container.value(), edit))
        return wouldChange("the lyric itself");
    if (oldContainer.otherFields() != container.value()->otherFields())
        return wouldChange("another of its tags");
    const bool sameSound
        = digest(old, oldContainer.audio(), progress) == digest(edited, container.value()->audio(), progress);
    if (!progress.goesOn())
        return cancelled();
    if (!sameSound)
        return wouldChange("its sound");
    const Outcome<LibraryView> before = readWithTagLib(old, format, name);
    const Outcome<LibraryView> after = readWithTagLib(edited, format, name);
    if (edited.hasFailed())
        return Failure{Reason::SystemError, "The file could not be read to its end, so it was left alone."};
    if (!before.ok() || !after.ok()
        || !libraryAgrees(
            before.value(), after.value(), heldText(oldContainer.lyricFields(), edit.place, edit.text)))
        return edit.text.find('\0') == std::string_view::npos
            ? wouldChange("how other programs read it")
            : Failure{Reason::NotText,
                "The lyric holds a NUL character, which other programs take for its end. Take it out, then "
                "save "
                "again."};
    return std::nullopt;
}

} // namespace tags
