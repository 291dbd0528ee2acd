// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Message.h"

#include <cassert>
#include <optional>
#include <utility>

namespace tags {

/// Why a file was not read or not written.
enum class Reason {
    Missing, ///< no such file, or a folder on the way to it is gone
    NoPermission, ///< the system does not let this user in
    NotAFile, ///< a folder, a pipe, a device
    TooLarge, ///< beyond a bound of ours, or of the format's
    SystemError, ///< the system refused; its reason is in the message
    NotAudio, ///< the content is no audio that is known here, whatever the name says
    Unsupported, ///< audio, but of a kind or shape that cannot be read or written yet
    Damaged, ///< the structure ends too early or contradicts itself
    Hostile, ///< made to exhaust memory, stack or time
    ReadOnly, ///< the file's permissions say that it shall not be written
    ChangedMeanwhile, ///< somebody else wrote the file since it was read
    NotText, ///< the lyric holds bytes that this kind of tag cannot store
    Cancelled, ///< whoever asked for it wanted it no more
    WouldChangeMore, ///< the edited file does not read back as the old one with the new lyric
};

/// A refusal: what kind, and a sentence for people that says what happened and what to do.
struct Failure
{
    Reason reason = Reason::SystemError;
    Message message; ///< may name the system's reason, never the file
};

/// A value, or the reason why there is none.
template <typename T>
class Outcome
{
public:
    Outcome(T value) : m_value(std::move(value)) { }
    Outcome(Failure failure) : m_failure(std::move(failure)) { }

    [[nodiscard]] bool ok() const { return m_value.has_value(); }
    /// Only when `ok()`.
    [[nodiscard]] T &value()
    {
        assert(ok());
        return *m_value;
    }
    [[nodiscard]] const T &value() const
    {
        assert(ok());
        return *m_value;
    }
    /// Only when not `ok()`.
    [[nodiscard]] const Failure &failure() const
    {
        assert(!ok());
        return m_failure;
    }

private:
    std::optional<T> m_value;
    Failure m_failure;
};

} // namespace tags
