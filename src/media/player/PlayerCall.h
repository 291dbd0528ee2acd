// SPDX-License-Identifier: MIT
#pragma once

#include "media/player/Player.h"

namespace media {

/// Keeps a player alive for the length of one entry into it, whatever its observers do meanwhile.
class Player::Call
{
public:
    explicit Call(Player &player) : m_player(&player), m_self(player.weak_from_this().lock())
    {
        ++player.m_calls;
    }

    ~Call()
    {
        // The last reference may go here: while calls are counted, deleting is put off.
        m_self.reset();
        --m_player->m_calls;
    }

    Call(const Call &) = delete;
    Call &operator=(const Call &) = delete;

private:
    Player *m_player;
    std::shared_ptr<Player> m_self;
};

} // namespace media
