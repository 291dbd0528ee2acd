// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/WaveformPeaks.h"

#include <QtCore/QFileInfo>
#include <QtCore/QString>

#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <utility>

namespace media {

/// The last few waveforms, by file. Thread-safe.
class PeakCache
{
public:
    static constexpr std::size_t kMost = 16;

    /// A file as it was: after it was written to it is another one.
    struct Key
    {
        explicit Key(const QFileInfo &file);
        friend bool operator==(const Key &, const Key &) = default;

        QString path;
        qint64 size;
        qint64 changed;
    };

    /// Null when it is not there.
    [[nodiscard]] std::shared_ptr<const WaveformPeaks> find(const Key &key);
    /// When there are too many, the one that was asked for least recently goes.
    void keep(const Key &key, std::shared_ptr<const WaveformPeaks> peaks);

private:
    std::mutex m_mutex;
    /// The one that was asked for last is in front.
    std::deque<std::pair<Key, std::shared_ptr<const WaveformPeaks>>> m_kept;
};

} // namespace media
