// SPDX-License-Identifier: MIT
#include "lyrics/TimeList.h"

#include <algorithm>
#include <utility>

namespace lyrics {

TimeList::TimeList(std::initializer_list<std::int64_t> times)
{
    for (const std::int64_t millis : times)
        append(millis);
}

TimeList::TimeList(const TimeList &other)
{
    copyFrom(other);
}

TimeList::TimeList(TimeList &&other) noexcept
{
    takeFrom(other);
}

TimeList &TimeList::operator=(const TimeList &other)
{
    replaceWith(other);
    m_touched = true;
    return *this;
}

TimeList &TimeList::operator=(TimeList &&other) noexcept
{
    replaceWith(std::move(other));
    m_touched = true;
    return *this;
}

void TimeList::push_back(std::int64_t millis)
{
    m_touched = true;
    append(millis);
}

void TimeList::erase(std::size_t index)
{
    if (index >= m_size)
        return;
    m_touched = true;
    std::copy(data() + index + 1, data() + m_size, data() + index);
    --m_size;
}

void TimeList::clear()
{
    m_touched = true;
    m_size = 0;
}

void TimeList::append(std::int64_t millis)
{
    if (m_size == (m_onHeap ? m_storage.heap.capacity : kInPlace))
        grow();
    data()[m_size++] = millis;
}

void TimeList::grow()
{
    const std::size_t capacity = std::size_t(m_size) * 2;
    auto *times = new std::int64_t[capacity];
    std::copy_n(data(), m_size, times);
    if (m_onHeap)
        delete[] m_storage.heap.times;
    m_storage.heap = {times, capacity};
    m_onHeap = true;
}

/// Only on a list that owns nothing.
void TimeList::copyFrom(const TimeList &other)
{
    m_size = other.m_size;
    m_touched = other.m_touched;
    m_onHeap = m_size > kInPlace;
    if (m_onHeap)
        m_storage.heap = {new std::int64_t[m_size], m_size};
    std::copy_n(other.data(), m_size, data());
}

/// Only on a list that owns nothing.
void TimeList::takeFrom(TimeList &other) noexcept
{
    m_storage = other.m_storage;
    m_size = std::exchange(other.m_size, 0);
    m_onHeap = std::exchange(other.m_onHeap, false);
    m_touched = std::exchange(other.m_touched, true);
}

void TimeList::replaceWith(const TimeList &other)
{
    if (this != &other)
        replaceWith(TimeList(other));
}

void TimeList::replaceWith(TimeList &&other) noexcept
{
    if (this == &other)
        return;
    // A reference into this list may still be in somebody's hands.
    const bool wasTouched = m_touched;
    if (m_onHeap)
        delete[] m_storage.heap.times;
    takeFrom(other);
    m_touched = m_touched || wasTouched;
}

} // namespace lyrics
