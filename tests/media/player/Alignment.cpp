// SPDX-License-Identifier: MIT
#include "media/player/Alignment.h"

#include <cmath>

namespace {

double likeness(std::span<const float> a, std::span<const float> b)
{
    double product = 0;
    double energyOfA = 0;
    double energyOfB = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        product += double{a[i]} * b[i];
        energyOfA += double{a[i]} * a[i];
        energyOfB += double{b[i]} * b[i];
    }
    const double energy = std::sqrt(energyOfA * energyOfB);
    return energy > 0 ? product / energy : 0;
}

} // namespace

Alignment align(std::span<const float> music, std::span<const float> heard, long expected, int reach)
{
    Alignment best;
    for (int lag = -reach; lag <= reach; ++lag) {
        const long at = expected + lag;
        if (at < 0 || static_cast<std::size_t>(at) + heard.size() > music.size()) {
            continue;
        }
        const double found = likeness(music.subspan(static_cast<std::size_t>(at), heard.size()), heard);
        if (found > best.likeness) {
            best = {lag, found};
        }
    }
    return best;
}
