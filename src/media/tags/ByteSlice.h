// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/ByteSource.h"

#include <algorithm>

namespace tags {

/// A stretch of another source, which must outlive it.
class ByteSlice final : public ByteSource
{
public:
    ByteSlice(const ByteSource &source, std::uint64_t offset, std::uint64_t size)
        : m_source(source), m_offset(offset), m_size(size)
    { }

    [[nodiscard]] std::uint64_t size() const override { return m_size; }
    [[nodiscard]] std::string read(std::uint64_t offset, std::size_t count) const override
    {
        if (offset >= m_size)
            return {};
        return m_source.read(m_offset + offset, std::size_t(std::min<std::uint64_t>(count, m_size - offset)));
    }

    [[nodiscard]] bool hasFailed() const override { return m_source.hasFailed(); }

private:
    const ByteSource &m_source;
    std::uint64_t m_offset;
    std::uint64_t m_size;
};

} // namespace tags
