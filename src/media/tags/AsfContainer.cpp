// SPDX-License-Identifier: MIT
#include "media/tags/AsfHeader.h"
#include "media/tags/AsfLyrics.h"
#include "media/tags/ByteSource.h"
#include "media/tags/Container.h"

#include <utility>

namespace tags {

namespace {

/// An ASF file (WMA): a header, then sound and indexes, whose places count from the start of the sound.
class AsfContainer final : public Container
{
public:
    AsfContainer(AsfHeader header, std::uint64_t size)
        : m_header(std::move(header)), m_lyrics(lyricsOf(m_header)), m_size(size)
    { }

    [[nodiscard]] std::vector<LyricField> lyricFields() const override { return fieldsOf(m_lyrics); }
    [[nodiscard]] std::vector<std::string> otherFields() const override
    {
        return otherParts(m_header, m_size);
    }
    [[nodiscard]] std::vector<Range> audio() const override
    {
        return {{m_header.bytes, m_size - m_header.bytes}};
    }
    [[nodiscard]] std::vector<std::string> newFieldNames() const override { return newAsfNames(); }
    [[nodiscard]] Outcome<Edit> withLyrics(const std::vector<FieldEdit> &edits) const override;

private:
    AsfHeader m_header;
    std::vector<FoundLyric> m_lyrics;
    std::uint64_t m_size;
};

Outcome<Edit> AsfContainer::withLyrics(const std::vector<FieldEdit> &edits) const
{
    AsfHeader edited = m_header;
    if (std::optional<Failure> failure = setLyrics(edited, m_lyrics, edits))
        return *failure;
    Outcome<std::string> bytes = edited.render();
    if (!bytes.ok())
        return bytes.failure();
    const std::uint64_t size = m_size - m_header.bytes + bytes.value().size();
    for (AsfObject &object : edited.objects) {
        // A recording that was never finished names another size, or none: that stays as it is.
        if (object.kind == AsfKind::FileProperties && asfFileSize(object) == m_size)
            setAsfFileSize(object, size);
    }
    bytes = edited.render();
    return Edit{{0, m_header.bytes, std::move(bytes.value())}};
}

} // namespace

ContainerOutcome parseAsf(const ByteSource &source)
{
    Outcome<AsfHeader> header = AsfHeader::parse(source);
    if (!header.ok())
        return header.failure();
    return ContainerOutcome(std::make_shared<AsfContainer>(std::move(header.value()), source.size()));
}

} // namespace tags
