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
    own();
}

TimeList::TimeList(TimeList &&other) noexcept
{
    takeFrom(other);
    own();
}

TimeList &TimeList::operator=(const TimeList &other)
{
    replaceWith(TimeList(other));
    m_touched = true;
    return *this;
}

TimeList &TimeList::operator=(TimeList &&other) noexcept
{
    replaceWith(std::move(other));
    own();
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
    std::int64_t *times = ownData();
    std::copy(times + index + 1, times + m_size, times + index);
    --m_size;
}

void TimeList::clear()
{
    m_touched = true;
    m_size = 0;
    if (m_onHeap && m_storage.heap.capacity == 0)
        m_onHeap = false;
}

void TimeList::grow()
{
    const std::size_t capacity = std::max<std::size_t>(std::size_t(m_size) * 2, kInPlace * 2);
    auto *times = new std::int64_t[capacity];
    std::copy_n(data(), m_size, times);
    if (m_onHeap)
        dropHeap();
    m_storage.heap = {times, capacity};
    m_onHeap = true;
}

/// Only on a list that owns nothing.
void TimeList::takeFrom(TimeList &other) noexcept
{
    m_storage = other.m_storage;
    m_size = std::exchange(other.m_size, 0);
    m_onHeap = std::exchange(other.m_onHeap, false);
    m_touched = std::exchange(other.m_touched, true);
}

void TimeList::replaceWith(TimeList &&other) noexcept
{
    if (this == &other)
        return;
    // A reference into this list may still be in somebody's hands.
    const bool wasTouched = m_touched;
    if (m_onHeap)
        dropHeap();
    takeFrom(other);
    m_touched = m_touched || wasTouched;
}

} // namespace lyrics
