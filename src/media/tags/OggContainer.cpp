// SPDX-License-Identifier: MIT
#include "media/tags/ByteSource.h"
#include "media/tags/Comparable.h"
#include "media/tags/Container.h"
#include "media/tags/OggPage.h"
#include "media/tags/VorbisComment.h"

#include <utility>

namespace tags {

namespace {

/// A picture stands there as text, of which TagLib makes four times as much.
constexpr std::uint64_t kMaxHeaderBytes = 24ULL << 20;
constexpr std::size_t kMaxPages = 1000000;
constexpr std::size_t kLargestFlacBlock = (1U << 24) - 1;

/// The header packets of the first logical stream, but for its very first page.
struct Headers
{
    std::vector<OggPage> pages; ///< they hold `packets`, begin with the comment and end with a packet
    std::vector<std::string>
        packets; ///< in a container, the first has no more than what precedes the comment
    std::string first; ///< the packet on the page before
};

/// An Ogg file with one stream at a time: Vorbis, Opus, Speex or FLAC.
class OggContainer final : public Container
{
public:
    OggContainer(const ByteSource &source, Format format, Headers headers, VorbisComment comment)
        : m_source(source), m_format(format), m_headers(std::move(headers)), m_comment(std::move(comment)),
          m_lyrics(lyricsOf(m_comment))
    { }

    [[nodiscard]] std::vector<LyricField> lyricFields() const override { return fieldsOf(m_lyrics); }
    [[nodiscard]] std::vector<std::string> otherFields() const override;
    [[nodiscard]] std::vector<Range> audio() const override;
    [[nodiscard]] std::vector<std::string> newFieldNames() const override { return newVorbisNames(); }
    [[nodiscard]] Outcome<Edit> withLyrics(const std::vector<FieldEdit> &edits) const override;

private:
    [[nodiscard]] std::string prefix(std::size_t bodyBytes) const;
    [[nodiscard]] std::uint64_t audioStart() const { return m_headers.pages.back().end(); }

    const ByteSource &m_source;
    Format m_format;
    Headers m_headers;
    VorbisComment m_comment;
    std::vector<FoundLyric> m_lyrics;
};

Failure damaged()
{
    return {
        Reason::Damaged, "The pages of the Ogg file do not fit together: the file is damaged or incomplete."};
}

Failure unsupported()
{
    return {
        Reason::Unsupported, "The Ogg file holds several streams side by side, which cannot be edited here."};
}

Failure hostile()
{
    return {Reason::Hostile,
        "The sound of the Ogg file is split into more than a million pages, which cannot be written safely."};
}

std::vector<std::string> OggContainer::otherFields() const
{
    std::vector<std::string> others = otherEntries(m_comment);
    others.push_back(comparable(m_headers.first));
    for (std::size_t i = 1; i < m_headers.packets.size(); ++i)
        others.push_back(comparable(m_headers.packets[i]));
    return others;
}

/// Every page behind the headers but for sequence number and checksum, which an edit moves.
std::vector<Range> OggContainer::audio() const
{
    std::vector<Range> ranges;
    std::uint64_t at = audioStart();
    while (const std::optional<OggPage> page = OggPage::parse(m_source, at)) {
        ranges.push_back({at, OggPage::kSequenceAt});
        ranges.push_back({at + OggPage::kChecksumAt + 4, page->end() - at - OggPage::kChecksumAt - 4});
        at = page->end();
    }
    ranges.push_back({at, m_source.size() - at});
    return ranges;
}

std::string OggContainer::prefix(std::size_t bodyBytes) const
{
    const std::string &old = m_headers.packets.front();
    return m_format == Format::OggFlac ? old.substr(0, 1) + toBigEndian(bodyBytes, 3) : old;
}

/// The pages of one stream that come after its headers, with their numbers moved by `delta`.
Outcome<Edit> renumberedPages(const ByteSource &source, const OggPage &headers, std::uint32_t delta)
{
    Edit edit;
    bool ended = headers.flags & OggPage::kLast;
    std::size_t pages = 0;
    std::uint64_t at = headers.end();
    while (at < source.size()) {
        if (++pages > kMaxPages)
            return hostile();
        const std::optional<OggPage> page = OggPage::parse(source, at);
        if (!page)
            return damaged();
        ended = ended || (page->flags & OggPage::kFirst);
        if (!ended && delta != 0 && page->serial == headers.serial) {
            const std::string bytes
                = renumbered(source.read(at, std::size_t(page->end() - at)), page->sequence + delta);
            edit.push_back({at + OggPage::kSequenceAt, 8, bytes.substr(OggPage::kSequenceAt, 8)});
        }
        ended = ended || (page->flags & OggPage::kLast);
        at = page->end();
    }
    return edit;
}

Outcome<Edit> OggContainer::withLyrics(const std::vector<FieldEdit> &edits) const
{
    VorbisComment edited = m_comment;
    setLyrics(edited, m_lyrics, edits);
    const std::string body = edited.render();
    if (m_format == Format::OggFlac && body.size() > kLargestFlacBlock)
        return Failure{
            Reason::TooLarge, "The lyric is too long for a FLAC stream, whose comments hold 16 MiB."};
    std::vector<std::string> packets = m_headers.packets;
    packets.front() = prefix(body.size()) + body;
    const OggPage &first = m_headers.pages.front();
    const std::vector<std::string> pages = oggPages(packets, first.sequence, m_headers.pages.back());
    const auto delta = std::uint32_t(pages.size() - m_headers.pages.size());
    Patch headers = {first.offset, audioStart() - first.offset, {}};
    for (const std::string &page : pages)
        headers.inserted += page;
    Outcome<Edit> edit = renumberedPages(m_source, m_headers.pages.back(), delta);
    if (edit.ok())
        edit.value().insert(edit.value().begin(), std::move(headers));
    return edit;
}

std::size_t headerPackets(Format format)
{
    return format == Format::OggVorbis ? 2 : 1; // behind the first; a Vorbis stream has its set-up too
}

void addSegments(const ByteSource &source, const OggPage &page, bool &open, std::vector<std::string> &packets)
{
    const std::string body = source.read(page.bodyAt(), std::size_t(page.bodySize()));
    std::size_t at = 0;
    for (const char segment : page.lacing) {
        const auto size = std::size_t(static_cast<unsigned char>(segment));
        if (!open)
            packets.emplace_back();
        packets.back().append(body, at, size);
        at += size;
        open = size == 255;
    }
}

Outcome<Headers> parseHeaders(const ByteSource &source, Format format)
{
    const std::optional<OggPage> first = OggPage::parse(source, 0);
    if (!first || !(first->flags & OggPage::kFirst) || !first->endsPacket())
        return damaged();
    Headers headers;
    headers.first = source.read(first->bodyAt(), std::size_t(first->bodySize()));
    std::uint64_t at = first->end();
    for (bool open = false; open || headers.packets.size() < headerPackets(format);) {
        const std::optional<OggPage> page = OggPage::parse(source, at);
        if (!page)
            return damaged();
        if (at - first->end() > kMaxHeaderBytes)
            return Failure{Reason::TooLarge,
                "The tags of the Ogg file are larger than 24 MiB, which is more than can be read."};
        if (page->serial != first->serial)
            return unsupported();
        const bool continues = page->flags & OggPage::kContinued;
        if (continues != open || (page->flags & OggPage::kFirst))
            return damaged();
        addSegments(source, *page, open, headers.packets);
        headers.pages.push_back(*page);
        at = page->end();
    }
    return headers;
}

/// Bytes of the comment packet before the comment; nothing when it is no comment packet.
std::optional<std::size_t> commentPrefix(Format format, const std::string &packet)
{
    const auto begins
        = [&packet](std::string_view with) { return packet.compare(0, with.size(), with) == 0; };
    switch (format) {
    case Format::OggVorbis:
        return begins("\x03vorbis") ? std::optional<std::size_t>(7) : std::nullopt;
    case Format::OggOpus:
        return begins("OpusTags") ? std::optional<std::size_t>(8) : std::nullopt;
    case Format::OggFlac:
        return (bigEndian(packet, 0, 1) & 0x7F) == 4 ? std::optional<std::size_t>(4) : std::nullopt;
    default:
        return 0;
    }
}

/// Whether the pages hold nothing but headers: sound on one of them would carry its position.
bool headersOnly(const Headers &headers)
{
    for (const OggPage &page : headers.pages) {
        if (page.granule != 0 && page.granule != ~0ULL)
            return false;
    }
    return true;
}

} // namespace

ContainerOutcome parseOgg(const ByteSource &source, Format format)
{
    Outcome<Headers> headers = parseHeaders(source, format);
    if (!headers.ok())
        return headers.failure();
    std::string &packet = headers.value().packets.front();
    const std::optional<std::size_t> prefix = commentPrefix(format, packet);
    if (!prefix || packet.size() < *prefix || !headersOnly(headers.value()))
        return damaged();
    std::optional<VorbisComment> comment = VorbisComment::parse(std::string_view(packet).substr(*prefix));
    if (!comment)
        return damaged();
    packet = packet.substr(0, *prefix);
    return ContainerOutcome(
        std::make_shared<OggContainer>(source, format, std::move(headers.value()), std::move(*comment)));
}

} // namespace tags
