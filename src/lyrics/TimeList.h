// SPDX-License-Identifier: MIT
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <optional>
#include <span>

class RBSongLine;

namespace lyrics {

/// `time` moved by `millis`; 0 where that falls below, the largest time where it leaves the range.
[[nodiscard]] inline std::int64_t shifted(std::int64_t time, std::int64_t millis)
{
    std::int64_t sum = 0;
    if (__builtin_add_overflow(time, millis, &sum))
        return millis > 0 ? std::numeric_limits<std::int64_t>::max() : 0;
    return sum > 0 ? sum : 0;
}

/// The times of one line, in milliseconds, in the order in which they were stamped.
///
/// Two of them are kept in place. More of them lie on the heap, or, as long as nobody wrote to them, with the
/// text that the line was read from. The list remembers that it was opened for
/// writing: by that the writer of a document knows which lines it can copy unread. Reading through a
/// list that is not const counts as writing, and costs speed only.
class TimeList
{
public:
    using value_type = std::int64_t;
    using iterator = std::int64_t *;
    using const_iterator = const std::int64_t *;

    /// So many times need no memory of their own.
    static constexpr std::size_t kInPlace = 2;

    TimeList() noexcept { }
    TimeList(std::initializer_list<std::int64_t> times);
    TimeList(const TimeList &other);
    TimeList(TimeList &&other) noexcept;
    TimeList &operator=(const TimeList &other);
    TimeList &operator=(TimeList &&other) noexcept;
    ~TimeList()
    {
        if (m_place == Place::Own)
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
        return ownData()[index];
    }
    [[nodiscard]] iterator begin()
    {
        m_touched = true;
        return ownData();
    }
    [[nodiscard]] iterator end()
    {
        m_touched = true;
        return ownData() + m_size;
    }

    /// Adds a time behind the others.
    void push_back(std::int64_t millis);
    /// Takes out the time at `index`, from 0. Past the end does nothing.
    void erase(std::size_t index);
    void clear();
    void removeAllObjects() { clear(); }
    /// Adds `millis` to every time; what would fall below 0 becomes 0, what would leave the range stays at
    /// its end. An amount of 0 changes nothing.
    void shift(std::int64_t millis)
    {
        if (millis == 0)
            return;
        m_touched = m_touched || m_size > 0;
        if (m_place != Place::Here) {
            std::int64_t *times = ownData();
            for (std::size_t i = 0; i < m_size; ++i)
                times[i] = shifted(times[i], millis);
            return;
        }
        // Both places, used or not: nobody reads the second one before it is written again.
        m_storage.inPlace[0] = shifted(m_storage.inPlace[0], millis);
        m_storage.inPlace[1] = shifted(m_storage.inPlace[1], millis);
    }

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

    /// Where the times lie. A line is copied and let go without asking how many it has: only what is its own
    /// has to be looked after.
    enum class Place : std::uint8_t {
        Here,
        Borrowed, ///< with the text that the line was read from
        Own ///< on the heap
    };
    /// Says of a copy that it goes along with the text of its line, so that what lies there may stay there.
    struct WithText
    { };

    TimeList(const TimeList &other, WithText)
        : m_storage(other.m_storage), m_size(other.m_size), m_place(other.m_place), m_touched(other.m_touched)
    {
        if (m_place == Place::Own)
            ownCopy();
    }

    [[nodiscard]] const std::int64_t *data() const
    {
        return m_place == Place::Here ? m_storage.inPlace : m_storage.heap.times;
    }
    [[nodiscard]] std::int64_t *data()
    {
        return m_place == Place::Here ? m_storage.inPlace : m_storage.heap.times;
    }
    /// The times, where they may be written to.
    [[nodiscard]] std::int64_t *ownData()
    {
        own();
        return data();
    }
    /// A list that lies with the text of its line gets a place of its own.
    void own()
    {
        if (m_place == Place::Borrowed)
            ownCopy();
    }
    /// Copies all that there is room for, used or not, rather than ask how many.
    void setInPlace(const std::int64_t *times, std::size_t count)
    {
        for (std::size_t i = 0; i < kInPlace; ++i)
            m_storage.inPlace[i] = times[i];
        m_size = static_cast<std::uint32_t>(count);
    }
    /// Times that somebody else keeps for as long as this list is not written to.
    void borrow(std::int64_t *times, std::size_t count)
    {
        m_storage.heap = {times, 0};
        m_size = static_cast<std::uint32_t>(count);
        m_place = Place::Borrowed;
    }
    void append(std::int64_t millis)
    {
        if (m_size >= kInPlace && (m_place == Place::Here || m_size >= m_storage.heap.capacity))
            grow();
        data()[m_size++] = millis;
    }
    /// Moves the times to the heap, or to more room there.
    void grow();
    /// Copies the times, which are somebody else's, to the heap.
    void ownCopy();
    void takeFrom(TimeList &other) noexcept;
    /// For whole lines: the list as it stands in another line, with what is known about it.
    void replaceWith(TimeList &&other) noexcept;

    /// The capacity of borrowed times is 0.
    struct Heap
    {
        std::int64_t *times;
        std::size_t capacity;
    };
    union Storage {
        std::int64_t inPlace[kInPlace];
        Heap heap;
    };

    Storage m_storage = {.inPlace = {0, 0}};
    std::uint32_t m_size = 0;
    Place m_place = Place::Here;
    bool m_touched = false;
};

} // namespace lyrics
