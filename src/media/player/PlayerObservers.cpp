// SPDX-License-Identifier: MIT
#include "media/player/PlayerObservers.h"

#include <algorithm>

namespace media {

namespace {

bool sameOwner(const PlayerObservers::Observer &a, const PlayerObservers::Observer &b)
{
    return !a.owner_before(b) && !b.owner_before(a);
}

} // namespace

void PlayerObservers::add(const Observer &observer)
{
    if (!observer.expired() && !contains(observer)) {
        m_observers.push_back(observer);
    }
}

void PlayerObservers::remove(const Observer &observer)
{
    std::erase_if(m_observers, [&](const Observer &known) { return sameOwner(known, observer); });
}

bool PlayerObservers::contains(const Observer &observer) const
{
    return std::any_of(m_observers.begin(), m_observers.end(),
        [&](const Observer &known) { return sameOwner(known, observer); });
}

void PlayerObservers::removeExpired()
{
    std::erase_if(m_observers, [](const Observer &known) { return known.expired(); });
}

} // namespace media
