// SPDX-License-Identifier: MIT
#include "cli/Help.h"

namespace cli {
namespace {

constexpr std::size_t kWidth = 79;
constexpr std::size_t kCommandColumn = 15;
constexpr std::size_t kOptionColumn = 25;

/// `text` in lines that fit, each but the first one with `indent` blanks before it.
std::string wrapped(std::string_view text, std::size_t indent)
{
    std::string out;
    const std::size_t width = kWidth - indent;
    while (text.size() > width) {
        const std::size_t blank = text.rfind(' ', width);
        if (blank == std::string_view::npos)
            break;
        out.append(text.substr(0, blank)).append("\n").append(indent, ' ');
        text.remove_prefix(blank + 1);
    }
    return out.append(text).append("\n");
}

void addOption(std::string &out, const OptionInfo &option)
{
    std::string left = option.letter ? std::string("  -") + option.letter + ", " : "      ";
    left += option.name;
    if (!option.value.empty())
        left.append(" ").append(option.value);
    if (left.size() + 2 > kOptionColumn)
        out.append(left).append("\n").append(kOptionColumn, ' ');
    else
        out.append(left).append(kOptionColumn - left.size(), ' ');
    out += wrapped(option.help, kOptionColumn);
}

} // namespace

std::string helpOn(const CommandInfo &command)
{
    std::string out = "lrctool " + std::string(command.name) + ": " + std::string(command.summary)
        + "\n\nUsage: lrctool " + std::string(command.name) + " [options] " + std::string(command.operands)
        + "\n\n";
    out.append(command.description).append("\nExamples:\n\n");
    out.append(command.examples).append("\nOptions:\n\n");
    for (const Option option : command.options)
        addOption(out, infoOf(option));
    addOption(out, infoOf(Option::Help));
    out += "\nThe exit status is 0 when all is fine, 1 for findings or a refused input, 2 for a wrong "
           "call.\n";
    return out;
}

std::string generalHelp()
{
    std::string out = "lrctool: looks at, checks and changes time-synchronised lyrics (LRC)\n\n"
                      "Usage: lrctool COMMAND [options] [FILE…]\n\n";
    for (const CommandInfo *command : allCommands()) {
        std::string left = "  " + std::string(command->name);
        out.append(left).append(kCommandColumn - left.size(), ' ');
        out += wrapped(command->summary, kCommandColumn);
    }
    out += R"(
A first round:

  lrctool check ~/Music                     what is wrong in a whole library
  lrctool shift +0.5s song.lrc              the lyric half a second later, shown
  lrctool shift +0.5s -n song.lrc           only what would change
  lrctool shift +0.5s -i song.lrc           and now over the file
  lrctool convert --to srt song.lrc         as subtitles
  lrctool extract song.mp3 | lrctool check  the lyric inside a song

Nothing is changed that you did not ask for: what a command does not touch
comes back byte for byte. Files are only written with --in-place, --output and
--into, and by 'embed', 'extract --beside' and 'fields --equal' or '--clear', each
whole or not at all. '-' is standard input, and so is no file. In folders, lyrics
are found by their names (*.lrc), however deep.

  lrctool COMMAND --help     shows a command, with examples
  lrctool --version          shows the version
  man lrctool                has it all on one page

The exit status is 0 when all is fine, 1 for findings or a refused input, 2 for
a wrong call.
)";
    return out;
}

std::string optionTable()
{
    std::string out;
    for (const CommandInfo *command : allCommands()) {
        std::vector<Option> options(command->options.begin(), command->options.end());
        options.push_back(Option::Help);
        for (const Option option : options) {
            const OptionInfo &info = infoOf(option);
            out.append(command->name).append("\t").append(info.name).append("\t");
            out += info.letter ? info.letter : '-';
            out.append("\t").append(info.value.empty() ? "-" : info.value);
            out.append("\t").append(info.choices.empty() ? "-" : info.choices).append("\n");
        }
    }
    return out;
}

} // namespace cli
