// SPDX-License-Identifier: MIT
#include "media/player/PeakCache.h"

#include <QtCore/QDateTime>

#include <algorithm>

namespace media {

PeakCache::Key::Key(const QFileInfo &file)
    : path(file.absoluteFilePath()), size(file.size()), changed(file.lastModified().toMSecsSinceEpoch())
{ }

std::shared_ptr<const WaveformPeaks> PeakCache::find(const Key &key)
{
    const std::lock_guard lock(m_mutex);
    const auto found
        = std::find_if(m_kept.begin(), m_kept.end(), [&key](const auto &kept) { return kept.first == key; });
    if (found == m_kept.end()) {
        return nullptr;
    }
    std::rotate(m_kept.begin(), found, found + 1);
    return m_kept.front().second;
}

void PeakCache::keep(const Key &key, std::shared_ptr<const WaveformPeaks> peaks)
{
    const std::lock_guard lock(m_mutex);
    m_kept.emplace_front(key, std::move(peaks));
    if (m_kept.size() > kMost) {
        m_kept.pop_back();
    }
}

} // namespace media
