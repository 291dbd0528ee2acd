// SPDX-License-Identifier: MIT
#include "media/tags/SourceStream.h"

#include <algorithm>
#include <utility>

namespace tags {

namespace {

/// A block that a damaged length asks for is not worth more than this at once.
constexpr unsigned long kMaxBlockBytes = 128UL << 20;

/// What one call costs at least, however little it asks for: eight million of them are all there are.
constexpr std::uint64_t kLeastCost = 64;

} // namespace

SourceStream::SourceStream(const ByteSource &source, std::uint64_t start, std::string name)
    : m_source(source), m_start(start), m_name(std::move(name)),
      m_length(start < source.size() ? long(source.size() - start) : 0)
{ }

TagLib::ByteVector SourceStream::readBlock(unsigned long length)
{
    // One byte at least is taken off, so that an endless loop at the end runs out as well.
    const std::uint64_t asked = std::clamp<std::uint64_t>(length, 1, kMaxBlockBytes);
    if (m_at < 0 || m_at >= m_length || m_left == 0) {
        m_left -= std::min<std::uint64_t>(m_left, 1024);
        return {};
    }
    const std::uint64_t there = std::min<std::uint64_t>(asked, std::uint64_t(m_length - m_at));
    const std::uint64_t count = std::min({there, m_left, std::uint64_t(length)});
    m_left -= std::min<std::uint64_t>(m_left, std::max(count, kLeastCost));
    const std::string bytes = m_source.read(m_start + std::uint64_t(m_at), std::size_t(count));
    m_at += long(bytes.size());
    return {bytes.data(), static_cast<unsigned>(bytes.size())};
}

void SourceStream::seek(long offset, Position from)
{
    const long base = from == Beginning ? 0 : from == Current ? m_at : m_length;
    if (__builtin_add_overflow(base, offset, &m_at))
        m_at = m_length;
}

} // namespace tags
