// SPDX-License-Identifier: MIT
#include "cli/Command.h"

#include "cli/Output.h"
#include "cli/Utf8.h"

#include <algorithm>

namespace cli {

std::vector<std::string_view> Invocation::values(Option option) const
{
    std::vector<std::string_view> values;
    for (const auto &[given, value] : m_options) {
        if (given == option)
            values.emplace_back(value);
    }
    return values;
}

const std::string *Invocation::find(Option option) const
{
    const auto found = std::find_if(
        m_options.rbegin(), m_options.rend(), [option](const auto &given) { return given.first == option; });
    return found == m_options.rend() ? nullptr : &found->second;
}

bool Invocation::usesColor() const
{
    const std::string_view when = value(Option::Color);
    if (when.empty() || when == "auto")
        return m_around.outIsTerminal && m_around.mayColor;
    return when == "always";
}

void complain(const Surroundings &around, std::string_view message)
{
    Output(around.err).write("lrctool: " + shown(message) + "\n");
}

Verdict wrongUse(const Invocation &invocation, std::string_view message)
{
    const std::string name(invocation.command().name);
    complain(invocation.around(), name + ": " + std::string(message));
    Output(invocation.around().err).write("Try 'lrctool " + name + " --help'.\n");
    return Verdict::WrongUse;
}

} // namespace cli
