// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace cli {

/// What a run answers, worse ones later.
enum class Verdict {
    Fine = 0,
    Findings = 1, ///< or an input that was refused
    WrongUse = 2
};

[[nodiscard]] inline Verdict worse(Verdict a, Verdict b)
{
    return a < b ? b : a;
}

/// What became of one input.
struct JobResult
{
    std::string out; ///< for standard output
    std::string err; ///< for standard error, whole lines
    Verdict verdict = Verdict::Fine;
};

/// Runs `job` for 0 … `count` − 1 on `threads` threads, and hands the results to `emit` in that order, one at
/// a time. Ends early when `emit` answers false.
///
/// No more than some hundreds of results wait for an earlier one, whatever `count` is. What a job throws is
/// thrown here, and ends the run.
void runInOrder(std::size_t count, unsigned threads, const std::function<JobResult(std::size_t)> &job,
    const std::function<bool(std::size_t, JobResult)> &emit);

} // namespace cli
