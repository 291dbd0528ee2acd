// SPDX-License-Identifier: MIT
#include "lyrics/RBSongLine.h"

#include "lyrics/Blanks.h"
#include "lyrics/IdTag.h"
#include "lyrics/RBUtils.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

/// `text` with one blank for each line break.
std::string withoutLineBreaks(std::string_view text)
{
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        plain += text[i] == '\n' || text[i] == '\r' ? ' ' : text[i];
        i += isPair ? 1 : 0;
    }
    return plain;
}

} // namespace

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
    m_block = std::move(other.m_block);
    copyReading(other);
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
    m_flags.isRetagged = m_flags.key != readKey || m_flags.isProperty != (readKey != Kind::Text);
}

bool RBSongLine::isOtherTag() const
{
    return m_flags.readAs == Kind::OtherTag && !m_flags.isProperty && m_times.empty();
}

void RBSongLine::updateWithText(std::string_view newText)
{
    const std::string plain = withoutLineBreaks(newText);
    const std::string_view bare = lyrics::trimmed(plain);
    if (bare != text())
        replaceText(bare);
}

/// Gives the line a small block of its own: what it was spelled as, with another text. A line of no bytes has
/// none, so that it is never taken for a piece of a text.
void RBSongLine::replaceText(std::string_view newText)
{
    const std::string_view before = m_block.text().substr(m_begin, m_textBegin - m_begin);
    const std::string_view after
        = m_block.text().substr(m_textBegin + m_textLength, m_begin + m_length - m_textBegin - m_textLength);
    lyrics::BlockRef block(lyrics::TextBlock::create(before.size() + newText.size() + after.size()));
    char *out = block.get()->writableData();
    out = std::copy(before.begin(), before.end(), out);
    out = std::copy(newText.begin(), newText.end(), out);
    std::copy(after.begin(), after.end(), out);
    // They may lie with the block that is let go.
    m_times.own();
    m_begin = 0;
    m_length = static_cast<std::uint32_t>(block.get()->size());
    m_textBegin = static_cast<std::uint32_t>(before.size());
    m_textLength = static_cast<std::uint32_t>(newText.size());
    m_block = m_length > 0 ? std::move(block) : lyrics::BlockRef();
    if (m_flags.readAs == Kind::Text || m_flags.readAs == Kind::OtherTag)
        m_flags.readAs = lyrics::isKnownOtherTag(newText) ? Kind::OtherTag : Kind::Text;
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
