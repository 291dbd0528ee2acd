// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Options.h"
#include "cli/Parallel.h"
#include "cli/Surroundings.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cli {

class Invocation;

/// For `CommandInfo::most`.
inline constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

/// One command: what it is called, what it takes, and what it does.
struct CommandInfo
{
    std::string_view name;
    std::string_view operands; ///< as the help names them
    std::string_view summary; ///< half a line
    std::string_view description; ///< paragraphs, wrapped; each line ends with a line feed
    std::string_view examples; ///< lines as they are typed, a remark above each
    std::span<const Option> options; ///< besides --help
    std::size_t fewest; ///< operands
    std::size_t most;
    Verdict (*run)(const Invocation &);
};

/// Every command, in the order of the help.
[[nodiscard]] std::span<const CommandInfo *const> allCommands();
/// The command of that name; null when there is none.
[[nodiscard]] const CommandInfo *commandNamed(std::string_view name);

/// A command as it was called.
class Invocation
{
public:
    Invocation(const CommandInfo &command, const Surroundings &around) : m_command(command), m_around(around)
    { }

    [[nodiscard]] const CommandInfo &command() const { return m_command; }
    [[nodiscard]] const Surroundings &around() const { return m_around; }
    [[nodiscard]] const std::vector<std::string> &operands() const { return m_operands; }
    [[nodiscard]] bool has(Option option) const { return find(option) != nullptr; }
    /// The value that was given last; empty when there is none.
    [[nodiscard]] std::string_view value(Option option) const
    {
        const std::string *found = find(option);
        return found ? std::string_view(*found) : std::string_view();
    }
    [[nodiscard]] std::vector<std::string_view> values(Option option) const;
    [[nodiscard]] bool usesColor() const;

    void addOption(Option option, std::string value) { m_options.emplace_back(option, std::move(value)); }
    void addOperand(std::string operand) { m_operands.push_back(std::move(operand)); }

private:
    [[nodiscard]] const std::string *find(Option option) const;

    const CommandInfo &m_command;
    const Surroundings &m_around;
    std::vector<std::pair<Option, std::string>> m_options;
    std::vector<std::string> m_operands;
};

/// Writes "lrctool: `message`" to standard error, with a line feed.
void complain(const Surroundings &around, std::string_view message);
/// The same for a call that is wrong in itself, with the way to the help.
[[nodiscard]] Verdict wrongUse(const Invocation &invocation, std::string_view message);

} // namespace cli
