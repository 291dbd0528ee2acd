// SPDX-License-Identifier: MIT
#include "lyrics/TextBlock.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace lyrics {

TextBlock *TextBlock::create(std::size_t size)
{
    void *memory = ::operator new(sizeof(TextBlock) + size);
    return new (memory) TextBlock(size);
}

std::int64_t *TextBlock::store(std::span<const std::int64_t> times)
{
    constexpr std::size_t kFirst = 16;
    constexpr std::size_t kMost = 8192;
    if (!m_chunk || m_chunk->capacity - m_chunk->used < times.size()) {
        const std::size_t usual = m_chunk ? std::min(m_chunk->capacity * 2, kMost) : kFirst;
        const std::size_t capacity = std::max(times.size(), usual);
        void *memory = ::operator new(sizeof(Chunk) + capacity * sizeof(std::int64_t));
        m_chunk = new (memory) Chunk{m_chunk, 0, capacity};
    }
    auto *place = reinterpret_cast<std::int64_t *>(m_chunk + 1) + m_chunk->used;
    // They are a handful: a call to copy them costs more than copying them.
    for (std::size_t i = 0; i < times.size(); ++i)
        place[i] = times[i];
    m_chunk->used += times.size();
    return place;
}

void TextBlock::destroy()
{
    while (m_chunk) {
        Chunk *previous = m_chunk->previous;
        ::operator delete(static_cast<void *>(m_chunk));
        m_chunk = previous;
    }
    this->~TextBlock();
    ::operator delete(static_cast<void *>(this));
}

BlockRef BlockRef::copyOf(std::string_view text)
{
    BlockRef block(TextBlock::create(text.size()));
    if (!text.empty())
        std::memcpy(block.get()->writableData(), text.data(), text.size());
    return block;
}

} // namespace lyrics
