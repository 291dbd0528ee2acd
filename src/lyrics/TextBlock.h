// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

namespace lyrics {

/// Bytes that never change once they are shared, with a count of who refers to them.
///
/// A document keeps its text in one block, and each of its lines refers to a slice of it, so a line that
/// is copied out outlives its document without a copy of its bytes. The count is atomic: documents may be
/// handed to another thread.
class TextBlock
{
public:
    TextBlock(const TextBlock &) = delete;
    TextBlock &operator=(const TextBlock &) = delete;

    /// A block with room for `size` bytes, not yet written; counted once. One allocation.
    [[nodiscard]] static TextBlock *create(std::size_t size);

    [[nodiscard]] const char *data() const { return reinterpret_cast<const char *>(this + 1); }
    [[nodiscard]] std::size_t size() const { return m_size; }
    /// For the maker of the block, before it is shared.
    [[nodiscard]] char *writableData() { return reinterpret_cast<char *>(this + 1); }
    /// Keeps a copy of `times` as long as the block lives; answers where it lies. For the maker of the block.
    [[nodiscard]] std::int64_t *store(std::span<const std::int64_t> times);
    /// Gives up the bytes behind `size`. For the maker, before the block is shared.
    void cutTo(std::size_t size) { m_size = size; }

    /// `count` references more, at the price of one.
    void retain(std::size_t count = 1) { m_references.fetch_add(count, std::memory_order_relaxed); }
    /// `count` references less; the last one frees the block.
    void release(std::size_t count = 1)
    {
        if (m_references.fetch_sub(count, std::memory_order_acq_rel) == count)
            destroy();
    }

private:
    explicit TextBlock(std::size_t size) : m_size(size) { }
    ~TextBlock() = default;
    void destroy();

    /// Room for times; one is followed by its `capacity` times.
    struct Chunk
    {
        Chunk *previous;
        std::size_t used;
        std::size_t capacity;
    };

    std::atomic<std::size_t> m_references = 1;
    std::size_t m_size;
    Chunk *m_chunk = nullptr;
};

/// One reference to a block, or none.
class BlockRef
{
public:
    BlockRef() = default;
    /// Takes over a reference that the caller holds.
    explicit BlockRef(TextBlock *owned) noexcept : m_block(owned) { }
    BlockRef(const BlockRef &other) noexcept : m_block(other.m_block)
    {
        if (m_block)
            m_block->retain();
    }
    BlockRef(BlockRef &&other) noexcept : m_block(std::exchange(other.m_block, nullptr)) { }
    BlockRef &operator=(BlockRef other) noexcept
    {
        std::swap(m_block, other.m_block);
        return *this;
    }
    ~BlockRef()
    {
        if (m_block)
            m_block->release();
    }

    /// A block of its own that holds a copy of `text`.
    [[nodiscard]] static BlockRef copyOf(std::string_view text);

    /// Gives the reference away; the caller has to release it.
    [[nodiscard]] TextBlock *take() { return std::exchange(m_block, nullptr); }

    explicit operator bool() const { return m_block != nullptr; }
    [[nodiscard]] TextBlock *get() const { return m_block; }
    /// The bytes; empty without a block.
    [[nodiscard]] std::string_view text() const
    {
        return m_block ? std::string_view(m_block->data(), m_block->size()) : std::string_view();
    }

private:
    TextBlock *m_block = nullptr;
};

/// References to one block, or to none, taken at once and handed out one by one; what is left over goes back.
class ReferenceStock
{
public:
    ReferenceStock(TextBlock *block, std::size_t count) : m_block(block), m_left(count)
    {
        if (m_block)
            m_block->retain(count);
    }
    ReferenceStock(const ReferenceStock &) = delete;
    ReferenceStock &operator=(const ReferenceStock &) = delete;
    ~ReferenceStock()
    {
        if (m_block)
            m_block->release(m_left);
    }

    [[nodiscard]] BlockRef takeOne()
    {
        --m_left;
        return BlockRef(m_block);
    }

private:
    TextBlock *m_block;
    std::size_t m_left;
};

} // namespace lyrics
