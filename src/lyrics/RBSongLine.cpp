// SPDX-License-Identifier: MIT
#include "lyrics/RBSongLine.h"

#include "lyrics/Blanks.h"
#include "lyrics/IdTag.h"
#include "lyrics/LineEnds.h"
#include "lyrics/RBUtils.h"

#include <algorithm>
#include <string>
#include <utility>

RBSongLine &RBSongLine::operator=(const RBSongLine &other)
{
    if (this != &other)
        *this = RBSongLine(other);
    return *this;
}

RBSongLine &RBSongLine::operator=(RBSongLine &&other) noexcept
{
    if (this == &other)
        return *this;
    m_times.replaceWith(std::move(other.m_times));
    m_flags = other.m_flags;
    m_place = other.m_place;
    m_block = std::move(other.m_block);
    other.forget();
    return *this;
}

std::string_view RBSongLine::propertyStr() const
{
    return lyrics::propertyName(m_flags.key);
}

void RBSongLine::setPropertyStr(std::string_view key)
{
    m_flags.key = lyrics::propertyKey(key);
    noteTag();
}

void RBSongLine::noteTag()
{
    const Kind readKey = m_flags.readAs == Kind::OtherTag ? Kind::Text : m_flags.readAs;
    m_flags.set(Retagged, m_flags.key != readKey || m_flags.isProperty != (readKey != Kind::Text));
    // A tag line has no word stamps; its text may have them once it is no tag line any more.
    if (m_flags.stamps == Stamps::None)
        m_flags.stamps = Stamps::Unknown;
}

bool RBSongLine::isOtherTag() const
{
    return m_flags.readAs == Kind::OtherTag && !m_flags.isProperty && m_times.empty();
}

void RBSongLine::updateWithText(std::string_view newText)
{
    const std::string plain = lyrics::withoutLineBreaks(newText);
    const std::string_view bare = lyrics::trimmed(plain);
    if (bare != text())
        replaceText(bare);
}

void RBSongLine::replaceText(std::string_view newText)
{
    setBlock(newText, {}, {});
    m_flags.stamps = Stamps::Unknown;
    if (m_flags.readAs == Kind::Text || m_flags.readAs == Kind::OtherTag)
        m_flags.readAs = lyrics::isKnownOtherTag(newText) ? Kind::OtherTag : Kind::Text;
}

/// Gives the line a small block of its own: what it was spelled as, with another text, between `head` and
/// `tail`, which are no part of it. A line of no bytes has none, so that it is never taken for a piece of a
/// text.
void RBSongLine::setBlock(std::string_view newText, std::string_view head, std::string_view tail)
{
    const std::string_view before = m_block.text().substr(m_place.begin, m_place.textBegin - m_place.begin);
    const std::string_view after = m_block.text().substr(m_place.textBegin + m_place.textLength,
        m_place.begin + m_place.length - m_place.textBegin - m_place.textLength);
    const std::size_t length = before.size() + newText.size() + after.size();
    lyrics::BlockRef block(lyrics::TextBlock::create(head.size() + length + tail.size()));
    char *out = block.get()->writableData();
    for (const std::string_view part : {head, before, newText, after, tail})
        out = std::copy(part.begin(), part.end(), out);
    // They may lie with the block that is let go.
    m_times.own();
    m_place.begin = static_cast<std::uint32_t>(head.size());
    m_place.length = static_cast<std::uint32_t>(length);
    m_place.textBegin = static_cast<std::uint32_t>(head.size() + before.size());
    m_place.textLength = static_cast<std::uint32_t>(newText.size());
    m_block = m_place.length > 0 ? std::move(block) : lyrics::BlockRef();
}

void RBSongLine::updateWithTimeStr_atIndex(std::string_view newText, std::ptrdiff_t index)
{
    if (index < 0)
        return;
    const auto at = static_cast<std::size_t>(index);
    const lyrics::TimeList &times = std::as_const(m_times);
    if (newText.empty()) {
        m_times.erase(at);
    } else if (!RBUtils::isTimeString(newText)) {
        return;
    } else if (at >= times.size()) {
        m_times.push_back(RBUtils::getTimeInterval(newText));
    } else if (newText != RBUtils::getTimeIntervalPeerStr(times[at])) {
        m_times[at] = RBUtils::getTimeInterval(newText);
    }
}

bool operator==(const RBSongLine &a, const RBSongLine &b)
{
    if (a.isTagLine() != b.isTagLine() || a.text() != b.text())
        return false;
    return a.isTagLine() ? a.m_flags.key == b.m_flags.key : a.m_times == b.m_times;
}
