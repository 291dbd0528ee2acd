// SPDX-License-Identifier: MIT
#include "cli/Output.h"

#include <cerrno>
#include <cstddef>
#include <poll.h>
#include <unistd.h>

namespace cli {
namespace {

constexpr std::size_t kEnough = 64 * 1024;

/// Another program may have made the terminal or the pipe that we share one that does not wait.
void waitUntilWritable(int fd)
{
    pollfd poll{fd, POLLOUT, 0};
    static_cast<void>(::poll(&poll, 1, -1));
}

} // namespace

void Output::write(std::string_view text)
{
    if (text.size() >= kEnough) {
        flush();
        send(text);
        return;
    }
    m_waiting += text;
    if (m_waiting.size() >= kEnough)
        flush();
}

bool Output::flush()
{
    send(m_waiting);
    m_waiting.clear();
    return m_error == 0;
}

void Output::send(std::string_view text)
{
    while (!text.empty() && m_error == 0) {
        const ssize_t sent = ::write(m_fd, text.data(), text.size());
        if (sent > 0)
            text.remove_prefix(static_cast<std::size_t>(sent));
        else if (sent == 0)
            m_error = ENOSPC; // neither progress nor a reason: do not try for ever
        else if (errno == EAGAIN)
            waitUntilWritable(m_fd);
        else if (errno != EINTR)
            m_error = errno;
    }
}

} // namespace cli
