// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/WaveformPeaks.h"

#include <QtCore/QString>

#include <atomic>
#include <functional>

namespace media {

/// What decoding for a waveform came to.
enum class PeakOutcome {
    /// All was decoded, or all up to where the file is damaged.
    Done,
    /// No sound could be read.
    Nothing,
    Cancelled,
};

/// Decodes the file at `path` as fast as it goes and tells how loud it is.
///
/// In the time of `Player`: the same library decodes, and the same silence is taken off. `tell` is
/// called on this thread, with more each time, a few times a second; the last call before `Done` has
/// everything. Blocks, and ends soon after `cancelled` became true. Not for the GUI thread.
[[nodiscard]] PeakOutcome decodePeaks(const QString &path, const std::atomic<bool> &cancelled,
    const std::function<void(const WaveformPeaks &peaks)> &tell);

} // namespace media
