// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/ByteSource.h"
#include "media/tags/Container.h"

#include <algorithm>

namespace tags {

/// A ByteSource without one stretch of it: what stands behind moves up.
class PartialSource final : public ByteSource
{
public:
    /// `without` lies inside `source`, which must outlive this.
    PartialSource(const ByteSource &source, Range without) : m_source(source), m_without(without) { }

    [[nodiscard]] std::uint64_t size() const override { return m_source.size() - m_without.size; }
    [[nodiscard]] std::string read(std::uint64_t offset, std::size_t count) const override
    {
        if (offset >= m_without.offset)
            return m_source.read(offset + m_without.size, count);
        const auto before = std::size_t(std::min<std::uint64_t>(count, m_without.offset - offset));
        std::string bytes = m_source.read(offset, before);
        if (bytes.size() == before && before < count)
            bytes += m_source.read(m_without.offset + m_without.size, count - before);
        return bytes;
    }

private:
    const ByteSource &m_source;
    Range m_without;
};

} // namespace tags
