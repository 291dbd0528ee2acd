// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/TextBlock.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace lyrics {

/// Collects a text piece by piece and becomes a block.
class TextSink
{
public:
    /// Makes room for `expected` bytes that will probably come; more grow the block, each time to the double.
    /// Before anything else, and once.
    void reserve(std::size_t expected)
    {
        m_block = BlockRef(TextBlock::create(expected));
        m_next = m_block.get()->writableData();
        m_end = m_next + expected;
    }

    /// Room for `size` bytes at the end. What is written there counts once `commit` is told its end.
    [[nodiscard]] char *room(std::size_t size)
    {
        if (static_cast<std::size_t>(m_end - m_next) < size)
            grow(size);
        return m_next;
    }
    void commit(char *end) { m_next = end; }
    void append(std::string_view text)
    {
        if (text.empty())
            return;
        std::memcpy(room(text.size()), text.data(), text.size());
        m_next += text.size();
    }

    [[nodiscard]] std::size_t size() const
    {
        return static_cast<std::size_t>(m_next - m_block.get()->data());
    }
    /// What was written so far. Valid until more is written.
    [[nodiscard]] std::string_view text() const { return {m_block.get()->data(), size()}; }
    /// Takes back what was written behind `size`.
    void cutTo(std::size_t size) { m_next = m_block.get()->writableData() + size; }
    /// The finished block; the sink is of no use afterwards.
    [[nodiscard]] BlockRef take()
    {
        m_block.get()->cutTo(size());
        return std::move(m_block);
    }

private:
    void grow(std::size_t more)
    {
        const std::size_t used = size();
        const std::size_t capacity = std::max(used * 2, used + more);
        BlockRef block(TextBlock::create(capacity));
        if (used > 0)
            std::memcpy(block.get()->writableData(), m_block.get()->data(), used);
        m_block = std::move(block);
        m_next = m_block.get()->writableData() + used;
        m_end = m_block.get()->writableData() + capacity;
    }

    BlockRef m_block;
    char *m_next = nullptr;
    char *m_end = nullptr;
};

} // namespace lyrics
