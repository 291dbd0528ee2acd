// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/TQAudioPlayerObserver.h"

#include <memory>
#include <vector>

namespace media {

/// The observers of a player, held weakly and told apart by owner.
///
/// By owner and not by address: an observer that takes itself off from its destructor has no
/// living pointer any more, and must still be found.
class PlayerObservers
{
public:
    using Observer = std::weak_ptr<TQAudioPlayerObserver>;

    /// One that is there already, or holds nothing, is not added.
    void add(const Observer &observer);
    void remove(const Observer &observer);

    /// Calls `tell(observer)` for each one that is registered now and still is when its turn
    /// comes. Observers may come and go meanwhile; those who come are not told this time.
    template <typename Tell>
    void forEach(Tell tell)
    {
        const std::vector<Observer> now = m_observers;
        for (const Observer &observer : now) {
            const auto alive = observer.lock();
            if (alive && contains(observer)) {
                tell(*alive);
            }
        }
        removeExpired();
    }

private:
    [[nodiscard]] bool contains(const Observer &observer) const;
    void removeExpired();

    std::vector<Observer> m_observers;
};

} // namespace media
