// SPDX-License-Identifier: MIT
#include "cli/Surroundings.h"

#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace cli {
namespace {

void occupyStandardDescriptors()
{
    for (int fd = 0; fd <= 2; ++fd) {
        if (fcntl(fd, F_GETFD) == -1) {
            // The lowest free number is this one. Open for the wrong direction: reads and writes are refused.
            static_cast<void>(open("/dev/null", fd == 0 ? O_WRONLY : O_RDONLY));
        }
    }
}

bool environmentAllowsColor()
{
    const char *no = std::getenv("NO_COLOR");
    const char *terminal = std::getenv("TERM");
    return !(no && *no) && !(terminal && std::strcmp(terminal, "dumb") == 0);
}

} // namespace

Surroundings processSurroundings()
{
    occupyStandardDescriptors();
    Surroundings surroundings;
    surroundings.inIsTerminal = isatty(0) == 1;
    surroundings.outIsTerminal = isatty(1) == 1;
    surroundings.errIsTerminal = isatty(2) == 1;
    surroundings.mayColor = environmentAllowsColor();
    return surroundings;
}

} // namespace cli
