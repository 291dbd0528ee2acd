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

namespace {

// More than any screen has room for.
constexpr std::size_t kLinesOfBeginning = 500;
constexpr std::size_t kBytesOfBeginning = 64 * 1024;

/// The first lines of `text`. Empty when it is short, or the first line does not end soon.
std::string_view beginningOf(std::string_view text)
{
    if (text.size() <= kBytesOfBeginning)
        return {};
    const char *const begin = text.data();
    const char *const end = begin + kBytesOfBeginning;
    lyrics::LineEndFinder finder(begin, end);
    const char *p = begin;
    for (std::size_t line = 0; line < kLinesOfBeginning; ++line) {
        const char *const next = finder.lineEnd(finder.textEnd(p));
        // What ends there may go on, a line or a line end.
        if (next == end)
            break;
        p = next;
    }
    return text.substr(0, static_cast<std::size_t>(p - begin));
}

} // namespace

/// What was read, and what stands where.
struct RBPreviewSong::Content
{
    Content(std::string_view text, lyrics::PreviewPart part)
    {
        auto built = std::make_shared<RBEditSong>();
        built->buildWithLrcText(text);
        song = std::move(built);
        order = lyrics::previewOrder(song->aryLines(), part);
    }

    [[nodiscard]] bool isShown(const lyrics::PreviewEntry &entry, bool hasTag) const
    {
        return hasTag || !lyrics::isPreviewTag(song->aryLines()[entry.songLine]);
    }

    std::shared_ptr<const RBEditSong> song;
    std::vector<lyrics::PreviewEntry> order;
};

void RBPreviewSong::buildWithLrcText(std::string_view text)
{
    m_content = std::make_shared<Content>(text, lyrics::PreviewPart::Whole);
    m_lines.clear();
    m_lines.reserve(m_content->order.size());
    for (const lyrics::PreviewEntry &entry : m_content->order) {
        if (entry.isTimed)
            m_lines.push_back({static_cast<double>(entry.millis) / 1000.0, {}});
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

std::shared_ptr<const lyrics::PreviewText> RBPreviewSong::beginningOf(std::string_view text, bool hasTag)
{
    const std::string_view beginning = ::beginningOf(text);
    if (beginning.empty())
        return nullptr;
    const Content content(beginning, lyrics::PreviewPart::Beginning);
    auto shown = std::make_shared<lyrics::PreviewText>(content.song);
    for (const lyrics::PreviewEntry &entry : content.order) {
        if (content.isShown(entry, hasTag))
            shown->addLine(entry.songLine);
    }
    return shown;
}

std::shared_ptr<const lyrics::PreviewText> RBPreviewSong::layOut(bool hasTag) const
{
    m_areRangesLaidOut = true;
    if (!m_content)
        return std::make_shared<lyrics::PreviewText>();
    auto text = std::make_shared<lyrics::PreviewText>(m_content->song);
    text->reserve(m_content->order.size());
    auto line = m_lines.begin();
    for (const lyrics::PreviewEntry &entry : m_content->order) {
        if (!m_content->isShown(entry, hasTag))
            continue;
        const RBTextRange range = text->addLine(entry.songLine);
        if (entry.isTimed)
            (line++)->txtRg = range;
    }
    return text;
}
