// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace cli {
namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isOperand(std::string_view argument)
{
    if (argument.size() < 2 || argument[0] != '-')
        return true;
    return argument.size() > 2 && (isDigit(argument[1]) || argument[1] == '.') && argument[1] != '-';
}

bool isChoice(std::string_view value, std::string_view choices)
{
    while (!choices.empty()) {
        const std::size_t end = std::min(choices.find(' '), choices.size());
        if (choices.substr(0, end) == value)
            return true;
        choices.remove_prefix(std::min(end + 1, choices.size()));
    }
    return false;
}

/// How many letters have to be put in, taken out or replaced.
std::size_t distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t(0));
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

class Parser
{
public:
    Parser(std::span<const std::string> arguments, Invocation &invocation)
        : m_arguments(arguments), m_invocation(invocation)
    { }

    std::string parse()
    {
        while (m_next < m_arguments.size() && m_fault.empty()) {
            const std::string &argument = m_arguments[m_next++];
            if (m_optionsEnded || isOperand(argument))
                m_invocation.addOperand(argument);
            else if (argument == "--")
                m_optionsEnded = true;
            else if (argument.starts_with("--"))
                parseLong(argument);
            else
                parseLetters(std::string_view(argument).substr(1));
        }
        return m_fault;
    }

private:
    /// The options that the command knows.
    [[nodiscard]] std::vector<const OptionInfo *> known() const
    {
        std::vector<const OptionInfo *> known{&infoOf(Option::Help)};
        for (const Option option : m_invocation.command().options)
            known.push_back(&infoOf(option));
        return known;
    }

    void parseLong(std::string_view argument)
    {
        const std::size_t equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        const auto options = known();
        const auto found = std::ranges::find(options, name, &OptionInfo::name);
        if (found == options.end()) {
            noteUnknown(name);
        } else if ((*found)->value.empty()) {
            if (equals != std::string_view::npos)
                m_fault = std::string(name) + " takes no value.";
            else
                m_invocation.addOption((*found)->option, {});
        } else if (equals != std::string_view::npos) {
            addValue(**found, argument.substr(equals + 1));
        } else {
            addNextAsValue(**found);
        }
    }

    void parseLetters(std::string_view letters)
    {
        while (!letters.empty() && m_fault.empty()) {
            const auto options = known();
            const auto found = std::ranges::find(options, letters.front(), &OptionInfo::letter);
            if (found == options.end()) {
                m_fault = "There is no option -" + std::string(letters.substr(0, 1)) + " here.";
                return;
            }
            letters.remove_prefix(1);
            if ((*found)->value.empty()) {
                m_invocation.addOption((*found)->option, {});
                continue;
            }
            if (letters.empty())
                addNextAsValue(**found);
            else
                addValue(**found, letters);
            return;
        }
    }

    void addNextAsValue(const OptionInfo &option)
    {
        if (m_next == m_arguments.size())
            m_fault = std::string(option.name) + " needs a value: " + std::string(option.value) + ".";
        else
            addValue(option, m_arguments[m_next++]);
    }

    void addValue(const OptionInfo &option, std::string_view value)
    {
        if (!option.choices.empty() && !isChoice(value, option.choices)) {
            m_fault = std::string(option.name) + " cannot be '" + std::string(value)
                + "'; it is one of: " + std::string(option.choices) + ".";
            return;
        }
        m_invocation.addOption(option.option, std::string(value));
    }

    void noteUnknown(std::string_view name)
    {
        std::vector<std::string_view> names;
        for (const OptionInfo *option : known())
            names.push_back(option->name);
        m_fault = "There is no option " + std::string(name) + " here.";
        if (const std::string_view near = nearest(name, names); !near.empty())
            m_fault += " Did you mean " + std::string(near) + "?";
    }

    std::span<const std::string> m_arguments;
    Invocation &m_invocation;
    std::size_t m_next = 0;
    bool m_optionsEnded = false;
    std::string m_fault;
};

} // namespace

std::string parseArguments(std::span<const std::string> arguments, Invocation &invocation)
{
    return Parser(arguments, invocation).parse();
}

std::string_view nearest(std::string_view word, std::span<const std::string_view> words)
{
    constexpr std::size_t kLongest = 64;
    std::string_view best;
    std::size_t least = std::min<std::size_t>(word.size() / 3 + 2, 4);
    for (const std::string_view candidate : words) {
        const std::size_t away = word.size() > kLongest ? kLongest : distance(word, candidate);
        if (away < least) {
            least = away;
            best = candidate;
        }
    }
    return best;
}

} // namespace cli
