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

TimeList::TimeList(const TimeList &other) : TimeList(other, WithText())
{
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
    if (m_place == Place::Borrowed)
        m_place = Place::Here;
}

void TimeList::grow()
{
    std::int64_t *const before = m_place == Place::Own ? m_storage.heap.times : nullptr;
    ownCopy();
    delete[] before;
}

void TimeList::ownCopy()
{
    const std::size_t capacity = std::max<std::size_t>(std::size_t(m_size) * 2, kInPlace * 2);
    auto *times = new std::int64_t[capacity];
    std::copy_n(std::as_const(*this).data(), m_size, times);
    m_storage.heap = {times, capacity};
    m_place = Place::Own;
}

/// Only on a list that owns nothing.
void TimeList::takeFrom(TimeList &other) noexcept
{
    m_storage = other.m_storage;
    m_size = std::exchange(other.m_size, 0);
    m_place = std::exchange(other.m_place, Place::Here);
    m_touched = std::exchange(other.m_touched, true);
}

void TimeList::replaceWith(TimeList &&other) noexcept
{
    if (this == &other)
        return;
    // A reference into this list may still be in somebody's hands.
    const bool wasTouched = m_touched;
    if (m_place == Place::Own)
        delete[] m_storage.heap.times;
    takeFrom(other);
    m_touched = m_touched || wasTouched;
}

} // namespace lyrics
