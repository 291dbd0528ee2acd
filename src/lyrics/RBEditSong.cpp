// SPDX-License-Identifier: MIT
#include "lyrics/RBEditSong.h"

#include "lyrics/LineBatch.h"
#include "lyrics/LineReader.h"
#include "lyrics/SongWriter.h"

#include <algorithm>
#include <utility>

RBEditSong::RBEditSong(const RBEditSong &other)
    : m_lines(lyrics::copyTogether(other.m_lines)), m_source(other.m_source), m_text(other.m_text),
      m_byteOrderMark(other.m_byteOrderMark), m_lineEnd(other.m_lineEnd)
{ }

RBEditSong &RBEditSong::operator=(const RBEditSong &other)
{
    if (this != &other)
        *this = RBEditSong(other);
    return *this;
}

RBEditSong &RBEditSong::operator=(RBEditSong &&other) noexcept
{
    if (this == &other)
        return *this;
    lyrics::releaseTogether(m_lines);
    m_lines = std::move(other.m_lines);
    m_source = std::move(other.m_source);
    m_text = std::move(other.m_text);
    m_byteOrderMark = other.m_byteOrderMark;
    m_lineEnd = other.m_lineEnd;
    return *this;
}

RBEditSong::~RBEditSong()
{
    lyrics::releaseTogether(m_lines);
}

void RBEditSong::buildWithLrcText(std::string_view text)
{
    // The copy comes first: the text may be our own.
    lyrics::BlockRef source = lyrics::BlockRef::copyOf(text);
    const auto mark
        = source.text().starts_with(lyrics::kByteOrderMark) ? lyrics::kByteOrderMark : std::string_view();
    lyrics::ReadSong song = lyrics::readSong(source, mark.size());
    lyrics::releaseTogether(m_lines);
    m_lines = std::move(song.lines);
    m_byteOrderMark = mark;
    m_lineEnd = song.lineEnds.prevailing();
    m_text = source;
    m_source = std::move(source);
}

bool RBEditSong::isEqual(const RBEditSong &other) const
{
    return this == &other || lyrics::equalTogether(m_lines, other.m_lines);
}

std::vector<std::size_t> RBEditSong::physicalLineStarts() const
{
    return lyrics::physicalLineStarts(m_lines, {m_source, m_byteOrderMark, m_lineEnd});
}

void RBEditSong::insertLine_atIndex(RBSongLine line, std::size_t index)
{
    const auto at = static_cast<std::ptrdiff_t>(std::min(index, m_lines.size()));
    m_lines.insert(m_lines.begin() + at, std::move(line));
}

void RBEditSong::deleteLineAtIndexs(std::span<const std::size_t> rows)
{
    auto next = rows.begin();
    std::size_t kept = 0;
    for (std::size_t row = 0; row < m_lines.size(); ++row) {
        while (next != rows.end() && *next < row)
            ++next;
        if (next != rows.end() && *next == row)
            continue;
        if (kept != row)
            m_lines[kept] = std::move(m_lines[row]);
        ++kept;
    }
    m_lines.resize(kept);
}

void RBEditSong::updateSongText()
{
    m_text = lyrics::writeSong(m_lines, {m_source, m_byteOrderMark, m_lineEnd});
}
