// SPDX-License-Identifier: MIT
#include "media/tags/ApeContainer.h"
#include "media/tags/ByteSource.h"
#include "media/tags/Container.h"
#include "media/tags/Id3v2Fields.h"
#include "media/tags/MpegFrame.h"
#include "media/tags/SoundFrames.h"

#include <utility>

namespace tags {

namespace {

/// An MPEG audio file, or one of bare AAC: an ID3v2 tag, then frames. Tags that stand elsewhere (a second
/// ID3v2 tag, Lyrics3 and ID3v1 at the end) count as audio here, so that nothing of them changes; see
/// withApeTag() for APE.
class MpegContainer final : public Container
{
public:
    MpegContainer(Id3v2Fields fields, std::uint64_t size, bool hasTagBehindJunk)
        : m_fields(std::move(fields)), m_size(size), m_hasTagBehindJunk(hasTagBehindJunk)
    { }

    [[nodiscard]] std::vector<LyricField> lyricFields() const override { return m_fields.lyricFields(); }
    [[nodiscard]] std::vector<std::string> otherFields() const override { return m_fields.otherFields(); }
    [[nodiscard]] std::vector<Range> audio() const override
    {
        return {{m_fields.bytes(), m_size - m_fields.bytes()}};
    }
    [[nodiscard]] std::vector<std::string> newFieldNames() const override { return newId3v2Names(); }
    [[nodiscard]] Outcome<Edit> withLyrics(const std::vector<FieldEdit> &edits) const override;

private:
    Id3v2Fields m_fields;
    std::uint64_t m_size;
    bool m_hasTagBehindJunk;
};

Outcome<Edit> MpegContainer::withLyrics(const std::vector<FieldEdit> &edits) const
{
    if (m_hasTagBehindJunk) {
        return Failure{Reason::Unsupported,
            "The file does not begin with its tag but with something else, so it cannot be edited without "
            "hiding that tag."};
    }
    Outcome<std::string> tag = m_fields.withLyrics(edits);
    if (!tag.ok())
        return tag.failure();
    return Edit{{0, m_fields.bytes(), std::move(tag.value())}};
}

/// A tag that does not stand at the start is found by some readers, until there is one at the start.
bool hasTagBehindJunk(const ByteSource &source)
{
    if (id3v2Size(source, 0) > 0)
        return false;
    const std::uint64_t junk = firstMpegFrame(source, 0, false).value_or(0);
    return source.read(0, std::size_t(junk)).find("ID3") != std::string::npos;
}

ContainerOutcome parseFrames(const ByteSource &source, Format format, bool hasTagBehindJunk)
{
    Outcome<Id3v2Tag> tag = Id3v2Tag::parse(source);
    if (!tag.ok())
        return tag.failure();
    Id3v2Fields fields(std::move(tag.value()), soundFrameLength(source, format));
    return ContainerOutcome(
        std::make_shared<MpegContainer>(std::move(fields), source.size(), hasTagBehindJunk));
}

} // namespace

ContainerOutcome parseMpeg(const ByteSource &source)
{
    ContainerOutcome frames = parseFrames(source, Format::Mpeg, hasTagBehindJunk(source));
    return frames.ok() ? ContainerOutcome(withApeTag(frames.value(), source)) : frames;
}

ContainerOutcome parseAac(const ByteSource &source)
{
    return parseFrames(source, Format::Aac, false); // without a tag it begins with a frame, or is no AAC
}

} // namespace tags
