// SPDX-License-Identifier: MIT
#include "host/LyricRequests.h"

#include <QtCore/QUrlQuery>

#include <algorithm>
#include <cmath>

namespace desk {

namespace {

using namespace std::chrono_literals;

constexpr auto kLongestPause = 365 * 24h;
// What the service takes, in whole seconds.
constexpr double kLongestSong = 3600;

QUrl address(const QUrl &base, const char *path, const QUrlQuery &query)
{
    QUrl url = base;
    QString folder = url.path();
    while (folder.endsWith(QLatin1Char('/'))) {
        folder.chop(1);
    }
    url.setPath(folder + QLatin1String(path));
    url.setQuery(query);
    url.setFragment({});
    return url;
}

void add(QUrlQuery &query, const char *key, const QString &value)
{
    // A plus would be read as a blank.
    query.addQueryItem(QLatin1String(key), QString::fromLatin1(QUrl::toPercentEncoding(value)));
}

QUrlQuery namesOf(const LyricQuery &song)
{
    QUrlQuery query;
    add(query, "track_name", song.title);
    if (!song.artist.isEmpty()) {
        add(query, "artist_name", song.artist);
    }
    return query;
}

QUrl exact(const QUrl &base, const LyricQuery &song, bool withAlbum)
{
    QUrlQuery query = namesOf(song);
    if (withAlbum && !song.album.isEmpty()) {
        add(query, "album_name", song.album);
    }
    const double seconds = std::round(song.seconds.value_or(0));
    if (seconds >= 1 && seconds <= kLongestSong) {
        add(query, "duration", QString::number(static_cast<int>(seconds)));
    }
    return address(base, "/api/get", query);
}

} // namespace

QList<LyricRequest> requestsFor(const QUrl &base, const LyricQuery &query)
{
    QList<LyricRequest> all;
    if (!query.artist.isEmpty()) {
        all.append({exact(base, query, true), true});
        if (!query.album.isEmpty()) {
            all.append({exact(base, query, false), true});
        }
    }
    all.append({address(base, "/api/search", namesOf(query)), false});
    QUrlQuery words;
    add(words, "q", (query.title + QLatin1Char(' ') + query.artist).trimmed());
    all.append({address(base, "/api/search", words), false});
    return all;
}

std::optional<std::chrono::milliseconds> retryAfter(const QByteArray &header, const QDateTime &now)
{
    const QByteArray text = header.trimmed();
    const bool isNumber = !text.isEmpty()
        && std::all_of(text.begin(), text.end(), [](char sign) { return sign >= '0' && sign <= '9'; });
    if (isNumber) {
        bool fits = false;
        const qint64 seconds = text.toLongLong(&fits);
        return fits && seconds < std::chrono::seconds(kLongestPause).count()
            ? std::chrono::milliseconds(std::chrono::seconds(seconds))
            : std::chrono::milliseconds(kLongestPause);
    }
    // "Fri, 07 Aug 2026 12:00:00 GMT": the toolkit knows the shape with a number for the zone.
    QString date = QString::fromLatin1(text);
    if (date.endsWith(QLatin1String(" GMT"))) {
        date.replace(date.size() - 3, 3, QLatin1String("+0000"));
    }
    const QDateTime then = QDateTime::fromString(date, Qt::RFC2822Date);
    if (!then.isValid()) {
        return std::nullopt;
    }
    const std::chrono::milliseconds pause(std::max<qint64>(0, now.msecsTo(then)));
    return std::min<std::chrono::milliseconds>(pause, kLongestPause);
}

} // namespace desk
