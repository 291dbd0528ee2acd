// SPDX-License-Identifier: MIT
#include "cli/Program.h"

#include "cli/Command.h"
#include "cli/CommandLine.h"
#include "cli/Help.h"
#include "cli/Output.h"

#include <cerrno>
#include <new>
#include <stdexcept>
#include <system_error>
#include <vector>

namespace cli {
namespace {

Verdict say(const Surroundings &around, std::string_view text)
{
    Output out(around.out);
    out.write(text);
    if (out.flush())
        return Verdict::Fine;
    if (out.error() != EPIPE)
        complain(around,
            "standard output could not be written: " + std::generic_category().message(out.error()) + ".");
    return Verdict::Findings;
}

Verdict noSuchCommand(const Surroundings &around, std::string_view name)
{
    std::vector<std::string_view> names;
    for (const CommandInfo *command : allCommands())
        names.push_back(command->name);
    std::string message = "there is no command '" + std::string(name) + "'.";
    if (const std::string_view near = nearest(name, names); !near.empty())
        message += " Did you mean '" + std::string(near) + "'?";
    complain(around, message);
    Output(around.err).write("Try 'lrctool --help'.\n");
    return Verdict::WrongUse;
}

Verdict helpWith(std::span<const std::string> words, const Surroundings &around)
{
    if (words.empty())
        return say(around, generalHelp());
    const CommandInfo *command = commandNamed(words.front());
    return command ? say(around, helpOn(*command)) : noSuchCommand(around, words.front());
}

/// Operands that no command takes, or that are missing.
std::string faultOfOperands(const Invocation &invocation)
{
    const CommandInfo &command = invocation.command();
    if (invocation.operands().size() < command.fewest)
        return "Something is missing: lrctool " + std::string(command.name) + " "
            + std::string(command.operands) + ".";
    if (invocation.operands().size() > command.most)
        return "There is too much: lrctool " + std::string(command.name) + " " + std::string(command.operands)
            + ".";
    return {};
}

Verdict runCommand(
    const CommandInfo &command, std::span<const std::string> arguments, const Surroundings &around)
{
    Invocation invocation(command, around);
    const std::string fault = parseArguments(arguments, invocation);
    if (invocation.has(Option::Help))
        return say(around, helpOn(command));
    if (!fault.empty())
        return wrongUse(invocation, fault);
    if (const std::string missing = faultOfOperands(invocation); !missing.empty())
        return wrongUse(invocation, missing);
    return command.run(invocation);
}

Verdict runWords(std::span<const std::string> arguments, const Surroundings &around)
{
    if (arguments.empty()) {
        Output(around.err).write(generalHelp());
        return Verdict::WrongUse;
    }
    const std::string &first = arguments.front();
    if (first == "--help" || first == "-h" || first == "help")
        return helpWith(arguments.subspan(1), around);
    if (first == "--version")
        return say(around, "lrctool " TQLRC_VERSION "\n");
    // For the test of the completions, not for people.
    if (first == "--option-table")
        return say(around, optionTable());
    const CommandInfo *command = commandNamed(first);
    return command ? runCommand(*command, arguments.subspan(1), around) : noSuchCommand(around, first);
}

} // namespace

int runProgram(std::span<const std::string> arguments, const Surroundings &around)
{
    try {
        return static_cast<int>(runWords(arguments, around));
    } catch (const std::bad_alloc &) {
        complain(around, "there is not enough memory for this.");
    } catch (const std::system_error &error) {
        complain(around, std::string("the system refused: ") + error.what() + ".");
    } catch (const std::length_error &error) {
        complain(around, std::string(error.what()) + " is more than is read here.");
    }
    return static_cast<int>(Verdict::Findings);
}

} // namespace cli
