// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// How loud an item is over its length, as far as it is known.
///
/// In the time of the player: a position p of `TQAudioPlayerProtocol` stands in level
/// p / `secondsPerLevel`. Counted from the first sample of the music on, so the levels fit
/// whatever length is told for the item.
struct WaveformPeaks
{
    /// What one level stands for, above 0.
    double secondsPerLevel = 0;
    /// The largest sample of each stretch, 0 to 1, over all channels. Those that are known: while
    /// the item is being decoded more come at the end.
    std::vector<float> levels;
};
