// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace cli {

/// Writes to a descriptor, much at once. Keeps the first error, and writes nothing more then.
class Output
{
public:
    explicit Output(int fd) : m_fd(fd) { }
    ~Output() { flush(); }
    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    void write(std::string_view text);
    /// Hands over everything so far. \return whether all of it has been taken.
    bool flush();
    /// The value of `errno` that the system refused with; 0 for none.
    [[nodiscard]] int error() const { return m_error; }

private:
    void send(std::string_view text);

    int m_fd;
    int m_error = 0;
    std::string m_waiting;
};

} // namespace cli
