// SPDX-License-Identifier: MIT
#include "media/items/SaveTask.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThreadPool>

#include <exception>
#include <string_view>
#include <utility>

namespace media {

namespace {

/// Who watches does not see smaller ones, and each is an event of the GUI thread.
constexpr double kProgressStep = 0.01;

} // namespace

SaveTask::SaveTask(std::string path, QByteArray lyric, const tags::FileState &expected)
    : m_path(std::move(path)), m_lyric(std::move(lyric)), m_expected(expected),
      m_outcome(m_promise.get_future().share())
{ }

QThreadPool &SaveTask::threads()
{
    static QThreadPool pool;
    static const bool awaited = [] {
        // While there still is somebody whom a save can tell of its end.
        qAddPostRoutine([] { pool.waitForDone(); });
        return true;
    }();
    Q_UNUSED(awaited)
    return pool;
}

void SaveTask::start(Progressed progressed, Finished finished)
{
    m_progressed = std::move(progressed);
    m_finished = std::move(finished);
    threads().start([self = shared_from_this()] { self->run(); });
}

void SaveTask::run()
{
    double told = 0;
    const auto progress = [this, &told](double done) {
        if (done - told >= kProgressStep) {
            told = done;
            post([done](SaveTask &task) { task.m_progressed(done); });
        }
        return !m_cancelled;
    };
    m_promise.set_value(outcome(progress));
    post([](SaveTask &task) {
        task.m_progressed = {};
        std::exchange(task.m_finished, {})(task.wait());
    });
}

tags::Outcome<tags::Saved> SaveTask::outcome(const tags::SaveProgress &progress) const
{
    const std::string_view lyric(m_lyric.constData(), std::size_t(m_lyric.size()));
    try {
        return tags::saveLyric(m_path, lyric, m_expected, progress);
    } catch (const std::exception &error) {
        // Memory that is not there ends the save, not the program with what else is typed in it.
        return tags::Failure{tags::Reason::SystemError,
            {"The lyric could not be saved, and the file is as it was. (%1)", {error.what()}}};
    }
}

void SaveTask::post(std::function<void(SaveTask &)> call)
{
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [self = shared_from_this(), call = std::move(call)] { call(*self); },
        Qt::QueuedConnection);
}

} // namespace media
