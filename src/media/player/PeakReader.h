// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/PeakProvider.h"

#include <QtCore/QString>
#include <QtCore/QThreadPool>

#include <functional>
#include <memory>
#include <vector>

namespace media {

class PeakCache;

/// The waveforms of audio files, decoded on a thread of its own while they play.
///
/// A song of minutes takes a second or less. Those that were asked for last are kept in memory. A
/// file that cannot be decoded has no waveform, and nobody is told. Must go before the application
/// object; going, it waits for its thread, which takes some milliseconds.
class PeakReader final : public PeakProvider
{
public:
    /// The path of an item's file; empty for items that have none.
    using PathOf = std::function<QString(const WXEAudioFile &item)>;

    explicit PeakReader(PathOf pathOf);
    ~PeakReader() override;
    PeakReader(const PeakReader &) = delete;
    PeakReader &operator=(const PeakReader &) = delete;

    [[nodiscard]] std::unique_ptr<PeakRequest> requestPeaks(
        const std::shared_ptr<WXEAudioFile> &item, Receiver receiver) override;

private:
    class Job;
    class Request;

    PathOf m_pathOf;
    std::shared_ptr<PeakCache> m_cache;
    std::vector<std::weak_ptr<Job>> m_jobs;
    QThreadPool m_pool;
};

} // namespace media
