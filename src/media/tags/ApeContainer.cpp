// SPDX-License-Identifier: MIT
#include "media/tags/ApeContainer.h"

#include "media/tags/ApeTag.h"
#include "media/tags/ByteSource.h"
#include "media/tags/Id3v2Tag.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tags {

namespace {

void append(std::vector<std::string> &to, std::vector<std::string> from)
{
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

/// The APE tag of a file, and what a container has to say of it.
class ApeSection
{
public:
    explicit ApeSection(ApeTag tag) : m_tag(std::move(tag)), m_lyrics(lyricsOf(m_tag)) { }

    [[nodiscard]] const ApeTag &tag() const { return m_tag; }
    [[nodiscard]] std::uint64_t end() const { return m_tag.offset + m_tag.bytes; }

    [[nodiscard]] std::vector<LyricField> lyricFields() const { return fieldsOf(m_lyrics); }

    [[nodiscard]] Outcome<Edit> withLyrics(const std::vector<FieldEdit> &edits) const
    {
        ApeTag edited = m_tag;
        if (std::optional<Failure> failure = setLyrics(edited, m_lyrics, edits))
            return *failure;
        Outcome<std::string> bytes = edited.render();
        if (!bytes.ok())
            return bytes.failure();
        return Edit{{m_tag.offset, m_tag.bytes, std::move(bytes.value())}};
    }

private:
    ApeTag m_tag;
    std::vector<FoundLyric> m_lyrics;
};

/// A file whose only tag to be edited is an APE tag at its end. Tags that stand elsewhere (ID3v2 at the
/// start, Lyrics3 and ID3v1 behind) count as audio here, so that nothing of them changes.
class ApeContainer final : public Container
{
public:
    ApeContainer(ApeTag tag, std::uint64_t size) : m_ape(std::move(tag)), m_size(size) { }

    [[nodiscard]] std::vector<LyricField> lyricFields() const override { return m_ape.lyricFields(); }
    [[nodiscard]] std::vector<std::string> otherFields() const override { return otherItems(m_ape.tag()); }
    [[nodiscard]] std::vector<Range> audio() const override
    {
        return {{0, m_ape.tag().offset}, {m_ape.end(), m_size - m_ape.end()}};
    }
    [[nodiscard]] std::vector<std::string> newFieldNames() const override { return newApeNames(); }
    [[nodiscard]] Outcome<Edit> withLyrics(const std::vector<FieldEdit> &edits) const override
    {
        return m_ape.withLyrics(edits);
    }

private:
    ApeSection m_ape;
    std::uint64_t m_size;
};

/// Another container, at the end of whose audio an APE tag stands.
class WithApeTag final : public Container
{
public:
    WithApeTag(std::shared_ptr<const Container> inner, ApeTag tag)
        : m_inner(std::move(inner)), m_innerFields(m_inner->lyricFields().size()), m_ape(std::move(tag))
    { }

    [[nodiscard]] std::vector<LyricField> lyricFields() const override;
    [[nodiscard]] std::vector<std::string> otherFields() const override;
    [[nodiscard]] std::vector<Range> audio() const override;
    [[nodiscard]] std::vector<std::string> newFieldNames() const override;
    [[nodiscard]] Outcome<Edit> withLyrics(const std::vector<FieldEdit> &edits) const override;

private:
    /// Whether there is no tag at the start of the file.
    [[nodiscard]] bool isOnlyTag() const { return m_inner->audio().front().offset == 0; }
    /// Whether the field there is, or will be, one of the APE tag.
    [[nodiscard]] bool isOfApeTag(const LyricPlace &place) const;

    std::shared_ptr<const Container> m_inner;
    std::size_t m_innerFields;
    ApeSection m_ape;
};

std::vector<LyricField> WithApeTag::lyricFields() const
{
    std::vector<LyricField> fields = m_inner->lyricFields();
    for (LyricField &field : m_ape.lyricFields())
        fields.push_back(std::move(field));
    return fields;
}

std::vector<std::string> WithApeTag::otherFields() const
{
    std::vector<std::string> others = m_inner->otherFields();
    append(others, otherItems(m_ape.tag()));
    return others;
}

std::vector<Range> WithApeTag::audio() const
{
    std::vector<Range> ranges;
    for (const Range &range : m_inner->audio()) {
        const std::uint64_t end = range.offset + range.size;
        if (m_ape.tag().offset < range.offset || m_ape.end() > end) {
            ranges.push_back(range);
            continue;
        }
        ranges.push_back({range.offset, m_ape.tag().offset - range.offset});
        ranges.push_back({m_ape.end(), end - m_ape.end()});
    }
    return ranges;
}

std::vector<std::string> WithApeTag::newFieldNames() const
{
    // A new tag at the start would keep other programs from looking for the one that is there.
    std::vector<std::string> names = isOnlyTag() ? newApeNames() : m_inner->newFieldNames();
    append(names, isOnlyTag() ? m_inner->newFieldNames() : newApeNames());
    return names;
}

bool WithApeTag::isOfApeTag(const LyricPlace &place) const
{
    if (place.field)
        return *place.field >= m_innerFields;
    const std::vector<std::string> names = newApeNames();
    return place.newName.empty() ? isOnlyTag()
                                 : std::find(names.begin(), names.end(), place.newName) != names.end();
}

Outcome<Edit> WithApeTag::withLyrics(const std::vector<FieldEdit> &edits) const
{
    std::vector<FieldEdit> inner;
    std::vector<FieldEdit> ape;
    for (const FieldEdit &edit : edits)
        (isOfApeTag(edit.place) ? ape : inner).push_back(edit);
    for (FieldEdit &edit : ape) {
        if (edit.place.field)
            *edit.place.field -= m_innerFields;
    }
    Outcome<Edit> out = inner.empty() ? Edit() : m_inner->withLyrics(inner);
    Outcome<Edit> atEnd = ape.empty() ? Edit() : m_ape.withLyrics(ape);
    if (!atEnd.ok())
        return atEnd;
    if (out.ok())
        std::move(atEnd.value().begin(), atEnd.value().end(), std::back_inserter(out.value()));
    return out;
}

Failure incomplete()
{
    return {Reason::Damaged, "The file ends before its sound begins: it is damaged or incomplete."};
}

/// Bytes that the fixed part at the start of a file of `format` takes, which begins with `head`.
std::uint64_t leastBytes(Format format, std::string_view head)
{
    constexpr std::uint64_t apeDescriptor = 52;
    constexpr std::uint64_t oldApeHeader = 32;
    constexpr std::uint64_t wavPackHeader = 32;
    constexpr std::uint64_t musepackHeader = 25;
    if (format == Format::Ape)
        return littleEndian(head, 4, 2) >= 3980 ? apeDescriptor : oldApeHeader;
    return format == Format::WavPack ? wavPackHeader : musepackHeader;
}

} // namespace

ContainerOutcome parseApeTagged(const ByteSource &source, Format format)
{
    Outcome<ApeTag> tag = ApeTag::parse(source);
    if (!tag.ok())
        return tag.failure();
    const std::uint64_t start = leadingId3v2Size(source);
    if (tag.value().offset < start || tag.value().offset - start < leastBytes(format, source.read(start, 8)))
        return incomplete();
    return ContainerOutcome(std::make_shared<ApeContainer>(std::move(tag.value()), source.size()));
}

std::shared_ptr<const Container> withApeTag(std::shared_ptr<const Container> inner, const ByteSource &source)
{
    Outcome<ApeTag> tag = ApeTag::parse(source);
    if (!tag.ok() || tag.value().bytes == 0 || tag.value().offset < inner->audio().front().offset)
        return inner;
    return std::make_shared<WithApeTag>(std::move(inner), std::move(tag.value()));
}

} // namespace tags
