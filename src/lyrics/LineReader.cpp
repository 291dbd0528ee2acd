// SPDX-License-Identifier: MIT
#include "lyrics/LineReader.h"

#include "lyrics/Blanks.h"
#include "lyrics/IdTag.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>
#include <utility>

namespace lyrics {
namespace {

using Kind = LineAccess::Kind;

/// What is known of the time tags `a:b:c` of a document.
struct ColonForms
{
    bool hasAny = false;
    /// No field of them speaks against hours, minutes, seconds.
    bool canBeHours = true;
};

/// The times of the line that is being read. Only of a line that has very many of them they are ever on the
/// heap.
class ReadTimes
{
public:
    void clear()
    {
        m_count = 0;
        m_many.clear();
    }
    void add(std::int64_t millis)
    {
        if (m_count < m_few.size())
            m_few[m_count++] = millis;
        else
            addToMany(millis);
    }
    [[nodiscard]] std::size_t count() const { return m_many.empty() ? m_count : m_many.size(); }
    /// Valid until another is added. As many can be read as there is room for at first.
    [[nodiscard]] const std::int64_t *data() const { return m_many.empty() ? m_few.data() : m_many.data(); }

private:
    void addToMany(std::int64_t millis)
    {
        if (m_many.empty())
            m_many.assign(m_few.begin(), m_few.end());
        m_many.push_back(millis);
    }

    std::array<std::int64_t, 16> m_few = {};
    std::size_t m_count = 0;
    std::vector<std::int64_t> m_many;
};

class Reader
{
public:
    Reader(TextBlock *block, ReadingContext context)
        : m_base(block->data()), m_reading(context.reading)
          // No line is without a byte of its own.
          ,
          m_references(block, block->size() + 1), m_lyricSeen(context.lyricSeen)
    { }

    void read(const char *begin, const char *end);

    [[nodiscard]] ColonForms colonForms() const { return m_colonForms; }
    [[nodiscard]] ReadSong takeSong()
    {
        m_song.colonReading = m_reading;
        return std::move(m_song);
    }

private:
    void readPhysicalLine(const char *begin, const char *textEnd, const char *end);
    bool readTimedLine(const char *begin, const char *p, const char *textEnd, const char *end);
    const char *readTagLine(const char *begin, const char *p, const char *textEnd, const char *end);
    void readTextLine(const char *begin, const char *p, const char *textEnd, const char *end);
    bool isAccepted(const IdTag &tag, const char *rest, const char *textEnd) const;
    RBSongLine &add(
        const char *begin, const char *end, const char *textBegin, const char *textEnd, Kind kind);

    const char *m_base;
    ColonReading m_reading;
    ReferenceStock m_references;
    ReadSong m_song;
    ColonForms m_colonForms;
    ReadTimes m_times;
    bool m_lyricSeen;
    /// The line that is read next shares its physical line with the one before.
    bool m_isJoined = false;
};

void Reader::read(const char *begin, const char *end)
{
    m_song.lines.reserve(
        countLineEndBytes({begin, static_cast<std::size_t>(end - begin)}) + (begin < end ? 1 : 0));
    LineEndFinder finder(begin, end);
    for (const char *p = begin; p < end;) {
        const char *textEnd = finder.textEnd(p);
        const char *next = finder.lineEnd(textEnd);
        m_song.lineEnds.count({textEnd, static_cast<std::size_t>(next - textEnd)});
        readPhysicalLine(p, textEnd, next);
        p = next;
    }
}

void Reader::readPhysicalLine(const char *begin, const char *textEnd, const char *end)
{
    m_isJoined = false;
    const char *p = *begin == '[' ? begin : skipBlanks(begin, textEnd);
    while (p < textEnd && *p == '[') {
        if (readTimedLine(begin, p, textEnd, end))
            return;
        const char *next = readTagLine(begin, p, textEnd, end);
        if (!next)
            break;
        if (next == end)
            return;
        begin = next;
        p = skipBlanks(begin, textEnd);
    }
    readTextLine(begin, p, textEnd, end);
}

/// A leading run of time tags, and what follows it as the text. False when no time tag begins at `p`.
bool Reader::readTimedLine(const char *begin, const char *p, const char *textEnd, const char *end)
{
    TimeTag tag;
    if (!readTimeTag(p, textEnd, m_reading, tag))
        return false;
    m_times.clear();
    bool arePlain = true;
    bool hasColonForm = false;
    const char *tagsEnd = nullptr;
    do {
        m_times.add(tag.millis);
        arePlain = arePlain && tag.isPlain;
        if (tag.colonForm) {
            hasColonForm = true;
            m_colonForms.canBeHours = m_colonForms.canBeHours && tag.canBeHours;
        }
        tagsEnd = tag.end;
        p = skipBlanks(tagsEnd, textEnd);
    } while (p < textEnd && *p == '[' && readTimeTag(p, textEnd, m_reading, tag));
    RBSongLine &line = add(begin, end, p, skipBlanksBack(p, textEnd), Kind::Text);
    LineAccess::setReadTimes(line, m_times.data(), m_times.count());
    LineAccess::setJoins(line, m_isJoined, false);
    if (arePlain)
        LineAccess::setPlainTags(line, static_cast<std::size_t>(tagsEnd - m_base));
    if (hasColonForm) {
        LineAccess::setHasColonForm(line, m_reading);
        m_colonForms.hasAny = true;
    }
    m_lyricSeen = true;
    return true;
}

/// One ID tag. Answers where the next line of the same physical line begins, `end` when there is none, and
/// null when there is no ID tag at `p`.
const char *Reader::readTagLine(const char *begin, const char *p, const char *textEnd, const char *end)
{
    IdTag tag;
    if (!readIdTag(p, textEnd, tag))
        return nullptr;
    const char *rest = skipBlanks(tag.end, textEnd);
    if (!isAccepted(tag, rest, textEnd))
        return nullptr;
    const bool isLast = rest == textEnd;
    const char *lineEnd = isLast ? end : tag.end;
    std::string_view text = trimmed(tag.value);
    if (tag.kind == Kind::OtherTag)
        text = {p, static_cast<std::size_t>(tag.end - p)};
    RBSongLine &line = add(begin, lineEnd, text.data(), text.data() + text.size(), tag.kind);
    LineAccess::setJoins(line, m_isJoined, !isLast);
    m_isJoined = !isLast;
    return lineEnd;
}

/// An unknown word is a key only before the lyric begins, and where no text follows.
bool Reader::isAccepted(const IdTag &tag, const char *rest, const char *textEnd) const
{
    return tag.isKnown || (!m_lyricSeen && (rest == textEnd || *rest == '['));
}

void Reader::readTextLine(const char *begin, const char *p, const char *textEnd, const char *end)
{
    const char *last = skipBlanksBack(p, textEnd);
    m_lyricSeen = m_lyricSeen || p < last;
    LineAccess::setJoins(add(begin, end, p, last, Kind::Text), m_isJoined, false);
}

RBSongLine &Reader::add(
    const char *begin, const char *end, const char *textBegin, const char *textEnd, Kind kind)
{
    const auto offset = [this](const char *p) { return static_cast<std::size_t>(p - m_base); };
    RBSongLine &line
        = LineAccess::add(m_song.lines, m_references.takeOne(), offset(begin), offset(end), kind);
    LineAccess::setText(line, offset(textBegin), offset(textEnd));
    return line;
}

/// Whether no line begins before the timed line above it.
bool doTimesRise(const ReadSong &song)
{
    std::int64_t last = std::numeric_limits<std::int64_t>::min();
    for (const RBSongLine &line : song.lines) {
        const std::int64_t first = line.aryTimes().firstObject().value_or(last);
        if (first < last)
            return false;
        last = first;
    }
    return true;
}

} // namespace

ReadSong readSong(const BlockRef &text, std::size_t from)
{
    const std::string_view bytes = text.text();
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("a lyric of 4 GiB or more");
    if (bytes.size() <= from)
        return {};
    const char *begin = bytes.data() + from;
    const char *end = bytes.data() + bytes.size();
    const auto readAs = [&](Reader &&reader) {
        reader.read(begin, end);
        return std::pair(reader.takeSong(), reader.colonForms());
    };
    auto [song, forms] = readAs(Reader(text.get(), {}));
    if (!forms.hasAny || !forms.canBeHours || doTimesRise(song))
        return std::move(song);
    ReadSong inHours = readAs(Reader(text.get(), {ColonReading::Hours, false})).first;
    return doTimesRise(inHours) ? std::move(inHours) : std::move(song);
}

ReadSong readPart(const BlockRef &text, ReadingContext context)
{
    const std::string_view bytes = text.text();
    Reader reader(text.get(), context);
    reader.read(bytes.data(), bytes.data() + bytes.size());
    return reader.takeSong();
}

bool isLyric(const RBSongLine &line)
{
    if (LineAccess::isTagLine(line) || line.isOtherTag())
        return false;
    const std::string_view text = line.lineText();
    if (!line.aryTimes().empty() || text.empty() || text.front() != '[')
        return !line.aryTimes().empty() || !text.empty();
    // Typed, or laid bare: it may be a tag by now.
    const ReadSong song = readPart(BlockRef::copyOf(text), {});
    return std::any_of(song.lines.begin(), song.lines.end(),
        [](const RBSongLine &read) { return !LineAccess::isTagLine(read) && !read.isOtherTag(); });
}

} // namespace lyrics
