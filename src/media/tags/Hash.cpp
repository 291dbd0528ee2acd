// SPDX-License-Identifier: MIT
#include "media/tags/Hash.h"

#include <new>
#include <xxhash.h>

namespace tags {

void Hash::Deleter::operator()(void *state) const
{
    XXH3_freeState(static_cast<XXH3_state_t *>(state));
}

Hash::Hash() : m_state(XXH3_createState())
{
    if (!m_state)
        throw std::bad_alloc();
    XXH3_64bits_reset(static_cast<XXH3_state_t *>(m_state.get()));
}

Hash &Hash::add(std::string_view bytes)
{
    XXH3_64bits_update(static_cast<XXH3_state_t *>(m_state.get()), bytes.data(), bytes.size());
    return *this;
}

std::uint64_t Hash::value() const
{
    return XXH3_64bits_digest(static_cast<XXH3_state_t *>(m_state.get()));
}

} // namespace tags
