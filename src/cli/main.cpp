// SPDX-License-Identifier: MIT
#include "cli/Program.h"

#include <csignal>
#include <string>
#include <vector>

int main(int argc, char *argv[])
{
    // A reader that leaves is noticed where we write, so that files are finished and temporaries removed.
    std::signal(SIGPIPE, SIG_IGN);
    const cli::Surroundings around = cli::processSurroundings();
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return cli::runProgram(arguments, around);
}
