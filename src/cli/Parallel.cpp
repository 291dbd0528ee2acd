// SPDX-License-Identifier: MIT
#include "cli/Parallel.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace cli {
namespace {

// So many inputs are taken at once where there are many, since a lyric is read faster than a lock is taken.
constexpr std::size_t kLargestStep = 16;
constexpr std::size_t kStepsAhead = 32;

std::size_t stepFor(std::size_t count, unsigned threads)
{
    return std::clamp<std::size_t>(count / (std::size_t(threads) * 8), 1, kLargestStep);
}

class Crew
{
public:
    Crew(std::size_t count, std::size_t step, const std::function<JobResult(std::size_t)> &job,
        const std::function<bool(std::size_t, JobResult)> &emit)
        : m_count(count), m_step(step), m_job(job), m_emit(emit), m_done(kStepsAhead)
    { }

    void run(unsigned threads)
    {
        {
            std::vector<std::jthread> others;
            for (unsigned i = 1; i < threads; ++i)
                others.emplace_back([this] { work(); });
            work();
        }
        if (m_failure)
            std::rethrow_exception(m_failure);
    }

private:
    void work()
    {
        try {
            while (const std::optional<std::size_t> step = takeStep())
                deliver(*step, results(*step));
        } catch (...) {
            const std::lock_guard lock(m_mutex);
            m_failure = m_failure ? m_failure : std::current_exception();
            m_isOver = true;
            m_room.notify_all();
        }
    }

    [[nodiscard]] std::size_t steps() const { return (m_count + m_step - 1) / m_step; }

    std::optional<std::size_t> takeStep()
    {
        std::unique_lock lock(m_mutex);
        m_room.wait(lock, [this] { return m_isOver || m_next < m_emitted + kStepsAhead; });
        if (m_isOver || m_next == steps())
            return std::nullopt;
        return m_next++;
    }

    std::vector<JobResult> results(std::size_t step) const
    {
        std::vector<JobResult> results;
        const std::size_t end = std::min(m_count, (step + 1) * m_step);
        for (std::size_t index = step * m_step; index < end; ++index)
            results.push_back(m_job(index));
        return results;
    }

    /// Puts the results into their place; emits them, and what waited for them, when it is their turn.
    void deliver(std::size_t step, std::vector<JobResult> results)
    {
        const std::lock_guard lock(m_mutex);
        m_done[step % kStepsAhead] = std::move(results);
        while (!m_isOver && !m_done[m_emitted % kStepsAhead].empty()) {
            emitStep(m_emitted * m_step, std::exchange(m_done[m_emitted % kStepsAhead], {}));
            ++m_emitted;
        }
        m_room.notify_all();
    }

    void emitStep(std::size_t index, std::vector<JobResult> results)
    {
        for (JobResult &result : results) {
            if (!m_emit(index++, std::move(result))) {
                m_isOver = true;
                return;
            }
        }
    }

    const std::size_t m_count;
    const std::size_t m_step;
    const std::function<JobResult(std::size_t)> &m_job;
    const std::function<bool(std::size_t, JobResult)> &m_emit;
    std::mutex m_mutex;
    std::condition_variable m_room;
    std::vector<std::vector<JobResult>> m_done;
    std::size_t m_next = 0;
    std::size_t m_emitted = 0;
    bool m_isOver = false;
    std::exception_ptr m_failure;
};

} // namespace

void runInOrder(std::size_t count, unsigned threads, const std::function<JobResult(std::size_t)> &job,
    const std::function<bool(std::size_t, JobResult)> &emit)
{
    threads = static_cast<unsigned>(std::clamp<std::size_t>(threads, 1, std::max<std::size_t>(count, 1)));
    Crew(count, stepFor(count, threads), job, emit).run(threads);
}

} // namespace cli
