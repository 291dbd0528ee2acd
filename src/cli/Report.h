// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Command.h"
#include "cli/Inputs.h"
#include "cli/Json.h"
#include "cli/Parallel.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace cli {

/// What a command has to say on one input, kept until it is that input's turn.
class Report
{
public:
    Report(const Invocation &invocation, const Input &input, bool isSeveral)
        : m_invocation(invocation), m_input(input), m_isSeveral(isSeveral)
    { }

    [[nodiscard]] const Invocation &invocation() const { return m_invocation; }
    [[nodiscard]] const Input &input() const { return m_input; }
    /// Answers tell which file is meant.
    [[nodiscard]] bool isSeveral() const { return m_isSeveral; }

    /// For standard output.
    [[nodiscard]] std::string &out() { return m_result.out; }
    /// Something worth knowing, for standard error; left out when the user wants quiet.
    void remark(std::string_view sentence) { remark(m_input.label(), sentence); }
    void remark(std::string_view label, std::string_view sentence);
    /// The same about a physical line, from 1.
    void remarkAt(std::size_t line, std::string_view sentence);
    /// Something that was refused: told whatever the user wants, and the answer is 1.
    void refuse(std::string_view sentence) { refuse(m_input.label(), sentence); }
    void refuse(std::string_view label, std::string_view sentence);
    /// The answer is 1, without a word.
    void noteFindings() { m_result.verdict = worse(m_result.verdict, Verdict::Findings); }

    /// Begins the object on this input: with several files its first member is "file".
    JsonWriter beginJson();
    /// Ends that object and its line.
    void endJson(JsonWriter &json);

    [[nodiscard]] JobResult take() { return std::move(m_result); }

private:
    const Invocation &m_invocation;
    const Input &m_input;
    bool m_isSeveral;
    JobResult m_result;
};

} // namespace cli
