// SPDX-License-Identifier: MIT
#pragma once

namespace cli {

/// What a run is connected to. Tests hand in files of their own.
struct Surroundings
{
    int in = 0; ///< descriptors
    int out = 1;
    int err = 2;
    bool inIsTerminal = false;
    bool outIsTerminal = false;
    bool errIsTerminal = false;
    /// The user's environment has nothing against colours.
    bool mayColor = true;
};

/// Those of this process. Descriptors that were closed by whoever started it are opened on nothing, so that
/// no file of ours ever takes their place; writing to them still fails.
[[nodiscard]] Surroundings processSurroundings();

} // namespace cli
