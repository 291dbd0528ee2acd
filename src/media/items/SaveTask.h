// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/SaveLyric.h"

#include <QtCore/QByteArray>

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <string>

class QThreadPool;

namespace media {

/// One save of a lyric on a thread of its own. It goes on to its end whoever lets go of it, also when the
/// application ends, which waits for it.
class SaveTask : public std::enable_shared_from_this<SaveTask>
{
public:
    /// Both are called on the GUI thread, from its event loop: with what is done of the whole, 0 to 1, and
    /// once with the outcome.
    using Progressed = std::function<void(double done)>;
    using Finished = std::function<void(const tags::Outcome<tags::Saved> &)>;

    SaveTask(std::string path, QByteArray lyric, const tags::FileState &expected);

    /// The threads that saves run on. Not the application's: its other work, the drawing of pictures among
    /// it, would wait for a disk.
    [[nodiscard]] static QThreadPool &threads();

    /// GUI thread, once.
    void start(Progressed progressed, Finished finished);
    /// Asks it to give up. When it is too late for that the save succeeds.
    void cancel() { m_cancelled = true; }
    /// Waits for the end.
    [[nodiscard]] const tags::Outcome<tags::Saved> &wait() { return m_outcome.get(); }

    [[nodiscard]] const QByteArray &lyric() const { return m_lyric; }

private:
    void run(); ///< on the thread
    [[nodiscard]] tags::Outcome<tags::Saved> outcome(const tags::SaveProgress &progress) const;
    void post(std::function<void(SaveTask &)> call);

    const std::string m_path;
    const QByteArray m_lyric;
    const tags::FileState m_expected;
    std::atomic<bool> m_cancelled = false;
    std::promise<tags::Outcome<tags::Saved>> m_promise;
    std::shared_future<tags::Outcome<tags::Saved>> m_outcome;
    /// Of the GUI thread alone.
    Progressed m_progressed;
    Finished m_finished;
};

} // namespace media
