// SPDX-License-Identifier: MIT
#include "media/player/PeakReader.h"

#include "media/player/FailureText.h"
#include "media/player/Library.h"
#include "media/player/PeakCache.h"
#include "media/player/PeakDecoder.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>

#include <atomic>
#include <utility>

namespace media {

/// One request on its way through the thread.
class PeakReader::Job : public std::enable_shared_from_this<Job>
{
public:
    Job(QString path, std::shared_ptr<PeakCache> cache, Receiver receiver)
        : m_path(std::move(path)), m_cache(std::move(cache)), m_receiver(std::move(receiver))
    { }

    /// GUI thread: the receiver is called no more.
    void withdraw()
    {
        m_withdrawn = true;
        m_receiver = {};
    }

    /// On the thread.
    void run()
    {
        if (m_withdrawn || !obstacleTo(m_path).isEmpty()) {
            return;
        }
        const PeakCache::Key key(QFileInfo{m_path});
        if (const auto known = m_cache->find(key)) {
            post(known);
        } else if (startLibrary()) {
            decode(key);
        }
    }

private:
    void decode(const PeakCache::Key &key)
    {
        std::shared_ptr<const WaveformPeaks> last;
        const auto outcome = decodePeaks(m_path, m_withdrawn, [&](const WaveformPeaks &peaks) {
            last = std::make_shared<const WaveformPeaks>(peaks);
            post(last);
        });
        if (outcome == PeakOutcome::Done) {
            m_cache->keep(key, last);
        }
    }

    void post(std::shared_ptr<const WaveformPeaks> peaks)
    {
        const auto deliver = [job = shared_from_this(), peaks = std::move(peaks)] {
            // A copy: the receiver may withdraw itself.
            if (const Receiver receiver = job->m_receiver) {
                receiver(peaks);
            }
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), deliver, Qt::QueuedConnection);
    }

    const QString m_path;
    const std::shared_ptr<PeakCache> m_cache;
    std::atomic<bool> m_withdrawn = false;
    /// Of the GUI thread alone.
    Receiver m_receiver;
};

class PeakReader::Request final : public PeakRequest
{
public:
    explicit Request(std::shared_ptr<Job> job) : m_job(std::move(job)) { }
    ~Request() override { m_job->withdraw(); }
    Request(const Request &) = delete;
    Request &operator=(const Request &) = delete;

private:
    std::shared_ptr<Job> m_job;
};

PeakReader::PeakReader(PathOf pathOf) : m_pathOf(std::move(pathOf)), m_cache(std::make_shared<PeakCache>())
{
    // The other processors are for the player and the window.
    m_pool.setMaxThreadCount(1);
}

PeakReader::~PeakReader()
{
    for (const auto &job : m_jobs) {
        if (const auto alive = job.lock()) {
            alive->withdraw();
        }
    }
    m_pool.waitForDone();
}

std::unique_ptr<PeakRequest> PeakReader::requestPeaks(
    const std::shared_ptr<WXEAudioFile> &item, Receiver receiver)
{
    const QString path = item && m_pathOf ? m_pathOf(*item) : QString();
    if (path.isEmpty()) {
        return nullptr;
    }
    std::erase_if(m_jobs, [](const std::weak_ptr<Job> &job) { return job.expired(); });
    const auto job = std::make_shared<Job>(QFileInfo(path).absoluteFilePath(), m_cache, std::move(receiver));
    m_jobs.push_back(job);
    m_pool.start([job] { job->run(); });
    return std::make_unique<Request>(job);
}

} // namespace media
