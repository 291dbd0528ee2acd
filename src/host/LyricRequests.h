// SPDX-License-Identifier: MIT
#pragma once

#include "host/LyricRecords.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QList>
#include <QtCore/QUrl>

#include <chrono>
#include <optional>

/// What is asked of a lyric service, and in which order.
namespace desk {

struct LyricRequest
{
    QUrl address;
    /// Is answered by one record, or 404; the others by a list.
    bool isExact = false;
};

/// Below `base`, the most exact first; each address once.
[[nodiscard]] QList<LyricRequest> requestsFor(const QUrl &base, const LyricQuery &query);

/// The pause that the header asks for, in seconds or as a date; nothing when it says nothing that can be
/// read, 0 for what is past already, and never more than a year.
[[nodiscard]] std::optional<std::chrono::milliseconds> retryAfter(
    const QByteArray &header, const QDateTime &now);

} // namespace desk
