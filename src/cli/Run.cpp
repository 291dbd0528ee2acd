// SPDX-License-Identifier: MIT
#include "cli/Run.h"

#include "cli/Output.h"
#include "cli/Progress.h"

#include <cerrno>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace cli {
namespace {

constexpr unsigned kMostJobs = 1024;

/// Absent when the option says no such number.
std::optional<unsigned> jobsOf(const Invocation &invocation)
{
    const std::string_view value = invocation.value(Option::Jobs);
    if (!invocation.has(Option::Jobs))
        return std::max(1U, std::thread::hardware_concurrency());
    unsigned jobs = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), jobs);
    const bool isNumber = error == std::errc() && end == value.data() + value.size();
    return isNumber && jobs >= 1 && jobs <= kMostJobs ? std::optional(jobs) : std::nullopt;
}

/// Where the results of a run go, one after the other.
class Desk
{
public:
    Desk(const Invocation &invocation, std::size_t count)
        : m_around(invocation.around()), m_out(m_around.out), m_err(m_around.err),
          m_progress(m_err, m_around.errIsTerminal && count > 1 && !invocation.has(Option::Quiet), count)
    { }

    bool take(std::size_t index, const JobResult &result)
    {
        m_verdict = worse(m_verdict, result.verdict);
        if (!result.err.empty() || (m_around.outIsTerminal && !result.out.empty()))
            m_progress.hide();
        m_out.write(result.out);
        if (!result.err.empty()) {
            // In the order in which a reader of both would expect them.
            m_out.flush();
            m_err.write(result.err);
            m_err.flush();
        }
        m_progress.show(index + 1);
        return m_out.error() == 0;
    }

    Verdict finish()
    {
        m_progress.hide();
        m_err.flush();
        if (!m_out.flush()) {
            // Whoever reads us may leave when he has seen enough; that is no reason for words.
            if (m_out.error() != EPIPE) {
                complain(m_around,
                    "standard output could not be written, so the result is not complete: "
                        + std::generic_category().message(m_out.error()) + ".");
            }
            return worse(m_verdict, Verdict::Findings);
        }
        return m_verdict;
    }

private:
    const Surroundings &m_around;
    Output m_out;
    Output m_err;
    Progress m_progress;
    Verdict m_verdict = Verdict::Fine;
};

} // namespace

Verdict forEachInput(
    const Invocation &invocation, const InputList &list, const std::function<void(Report &)> &work)
{
    if (!list.wrongUse.empty())
        return wrongUse(invocation, list.wrongUse);
    const std::optional<unsigned> jobs = jobsOf(invocation);
    if (!jobs)
        return wrongUse(invocation, "--jobs takes a number from 1 to " + std::to_string(kMostJobs) + ".");
    for (const std::string &complaint : list.complaints)
        complain(invocation.around(), complaint);
    Desk desk(invocation, list.inputs.size());
    runInOrder(
        list.inputs.size(), *jobs,
        [&](std::size_t index) {
            Report report(invocation, list.inputs[index], list.isSeveral);
            work(report);
            return report.take();
        },
        [&desk](std::size_t index, const JobResult &result) { return desk.take(index, result); });
    return worse(desk.finish(), list.complaints.empty() ? Verdict::Fine : Verdict::Findings);
}

Verdict forEachLyric(
    const Invocation &invocation, const InputList &list, const std::function<void(Lyric &, Report &)> &work)
{
    if (const std::string fault = faultOfEncoding(invocation); !fault.empty())
        return wrongUse(invocation, fault);
    return forEachInput(invocation, list, [&](Report &report) {
        Lyric lyric = readLyric(invocation, report.input());
        if (!lyric.remark.empty())
            report.remark(lyric.remark);
        if (!lyric.refusal.empty())
            return report.refuse(lyric.refusal);
        try {
            work(lyric, report);
        } catch (const std::length_error &error) {
            // One lyric that was made to be too much; the others go on.
            report.refuse(std::string(error.what()) + ".");
        }
    });
}

} // namespace cli
