// SPDX-License-Identifier: MIT
#include "lyrics/RBPreviewSong.h"

#include "lyrics/DisplayText.h"
#include "lyrics/LineReader.h"
#include "lyrics/PreviewOrder.h"
#include "lyrics/SongWriter.h"
#include "lyrics/StartSearch.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

void RBPreviewSong::buildWithLrcText(std::string_view text)
{
    m_song.buildWithLrcText(text);
    m_rows.clear();
    m_lines.clear();
    const auto &songLines = std::as_const(m_song).aryLines();
    for (const lyrics::PreviewEntry &entry : lyrics::previewOrder(songLines)) {
        const std::size_t previewLine = entry.millis ? m_lines.size() : kUntimed;
        m_rows.push_back({entry.songLine, previewLine, lyrics::isPreviewTag(songLines[entry.songLine])});
        if (entry.millis)
            m_lines.push_back({static_cast<double>(*entry.millis) / 1000.0, {}});
    }
    m_earliestFrom.resize(m_lines.size());
    double earliest = HUGE_VAL;
    for (std::size_t i = m_lines.size(); i-- > 0;) {
        earliest = std::min(earliest, m_lines[i].playTime);
        m_earliestFrom[i] = earliest;
    }
    m_areRangesLaidOut = false;
}

bool RBPreviewSong::hasLines(std::string_view text)
{
    if (text.starts_with(lyrics::kByteOrderMark))
        text.remove_prefix(lyrics::kByteOrderMark.size());
    const char *const end = text.data() + text.size();
    lyrics::ReadingContext context;
    lyrics::LineEndFinder finder(text.data(), end);
    for (const char *p = text.data(); p < end;) {
        const char *const next = finder.lineEnd(finder.textEnd(p));
        const auto line = lyrics::BlockRef::copyOf({p, static_cast<std::size_t>(next - p)});
        for (const RBSongLine &read : lyrics::readPart(line, context).lines) {
            if (!read.aryTimes().empty())
                return true;
            context.lyricSeen = context.lyricSeen || lyrics::isLyric(read);
        }
        p = next;
    }
    return false;
}

const std::vector<RBPreviewLine> &RBPreviewSong::aryLines() const
{
    if (!m_areRangesLaidOut)
        static_cast<void>(layOut(true));
    return m_lines;
}

std::optional<std::size_t> RBPreviewSong::currentLineIndex(double seconds) const
{
    // The earliest starts only rise from line to line, and the last one that is not after the position
    // belongs to the line that is looked for: behind it all lines start later.
    return lyrics::lastNotAfter(std::span<const double>(m_earliestFrom), seconds);
}

std::u16string RBPreviewSong::layOut(bool hasTag) const
{
    m_areRangesLaidOut = true;
    std::u16string text;
    // Bytes are at least as many as units, but where lines are repeated.
    text.reserve(m_song.songText().size());
    const auto &songLines = std::as_const(m_song).aryLines();
    bool isFirst = true;
    for (const Row &row : m_rows) {
        if (row.isTag && !hasTag)
            continue;
        if (!isFirst)
            text += u'\n';
        isFirst = false;
        const std::size_t begin = text.size();
        lyrics::appendDisplayText(text, songLines[row.songLine].lineText(), kLongestLine);
        if (row.previewLine != kUntimed)
            m_lines[row.previewLine].txtRg = {begin, text.size() - begin};
    }
    return text;
}
