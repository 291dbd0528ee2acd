// SPDX-License-Identifier: MIT
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>

class RBSongLine;

namespace lyrics {

/// The times of one line, in milliseconds, in the order in which they were stamped.
///
/// Two of them are kept in place, more of them on the heap. The list remembers that it was opened for
/// writing: by that the writer of a document knows which lines it can copy unread. Reading through a
/// list that is not const counts as writing, and costs speed only.
class TimeList
{
public:
    using value_type = std::int64_t;
    using iterator = std::int64_t *;
    using const_iterator = const std::int64_t *;

    TimeList() noexcept { }
    TimeList(std::initializer_list<std::int64_t> times);
    TimeList(const TimeList &other);
    TimeList(TimeList &&other) noexcept;
    TimeList &operator=(const TimeList &other);
    TimeList &operator=(TimeList &&other) noexcept;
    ~TimeList()
    {
        if (m_onHeap)
            delete[] m_storage.heap.times;
    }

    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] std::size_t count() const { return m_size; }
    [[nodiscard]] bool empty() const { return m_size == 0; }
    /// The time that was stamped first; nothing when there is none.
    [[nodiscard]] std::optional<std::int64_t> firstObject() const
    {
        return empty() ? std::nullopt : std::optional(*data());
    }
    [[nodiscard]] const std::int64_t &operator[](std::size_t index) const
    {
        assert(index < m_size);
        return data()[index];
    }
    [[nodiscard]] const_iterator begin() const { return data(); }
    [[nodiscard]] const_iterator end() const { return data() + m_size; }

    [[nodiscard]] std::int64_t &operator[](std::size_t index)
    {
        assert(index < m_size);
        m_touched = true;
        return data()[index];
    }
    [[nodiscard]] iterator begin()
    {
        m_touched = true;
        return data();
    }
    [[nodiscard]] iterator end()
    {
        m_touched = true;
        return data() + m_size;
    }

    /// Adds a time behind the others.
    void push_back(std::int64_t millis);
    /// Takes out the time at `index`, from 0. Past the end does nothing.
    void erase(std::size_t index);
    void clear();
    void removeAllObjects() { clear(); }

    /// The same times in the same order.
    friend bool operator==(const TimeList &a, const TimeList &b)
    {
        if (a.m_size != b.m_size)
            return false;
        for (std::size_t i = 0; i < a.m_size; ++i) {
            if (a.data()[i] != b.data()[i])
                return false;
        }
        return true;
    }

    /// False as long as nobody asked for write access since the line was read.
    [[nodiscard]] bool isTouched() const { return m_touched; }

private:
    friend class ::RBSongLine;
    friend struct LineAccess;

    static constexpr std::size_t kInPlace = 2;

    [[nodiscard]] const std::int64_t *data() const
    {
        return m_onHeap ? m_storage.heap.times : m_storage.inPlace;
    }
    [[nodiscard]] std::int64_t *data() { return m_onHeap ? m_storage.heap.times : m_storage.inPlace; }
    void append(std::int64_t millis);
    void grow();
    void copyFrom(const TimeList &other);
    void takeFrom(TimeList &other) noexcept;
    /// For whole lines: the list as it stands in another line, with what is known about it.
    void replaceWith(const TimeList &other);
    void replaceWith(TimeList &&other) noexcept;

    struct Heap
    {
        std::int64_t *times;
        std::size_t capacity;
    };
    union Storage {
        std::int64_t inPlace[kInPlace];
        Heap heap;
    };

    Storage m_storage;
    std::uint32_t m_size = 0;
    bool m_onHeap = false;
    bool m_touched = false;
};

} // namespace lyrics
