// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringView>

#include <optional>
#include <vector>

/// What a lyric service answers, and which of its answers is the one for a song.
namespace desk {

/// The song whose lyric is wanted.
struct LyricQuery
{
    QString title;
    /// Empty when unknown; the album too.
    QString artist;
    QString album;
    /// Nothing when unknown.
    std::optional<double> seconds;
    friend bool operator==(const LyricQuery &, const LyricQuery &) = default;
};

/// One lyric that the service knows.
struct LyricRecord
{
    QString title;
    QString artist;
    QString album;
    std::optional<double> seconds;
    bool isInstrumental = false;
    /// UTF-8; null when there is none. LRC text with times, and the words alone.
    QByteArray synced;
    QByteArray plain;

    [[nodiscard]] bool hasLyric() const { return !synced.isNull() || !plain.isNull(); }
    /// With times where there are some.
    [[nodiscard]] QByteArray lyric() const { return synced.isNull() ? plain : synced; }
};

/// The record that a JSON object tells; nothing when the answer is not of that shape.
[[nodiscard]] std::optional<LyricRecord> recordFrom(const QByteArray &json);
/// The records of a JSON array, 100 at most, without those that are not of the shape; nothing when
/// the answer is no array.
[[nodiscard]] std::optional<std::vector<LyricRecord>> recordsFrom(const QByteArray &json);

/// How much two names are alike, from 0 to 1; case, accents and punctuation do not count. What is
/// added in brackets or behind a dash ("The Star (Live)") counts little.
[[nodiscard]] double likeness(QStringView a, QStringView b);

/// Whether the record can be this song at all, by its names.
[[nodiscard]] bool isOfSong(const LyricRecord &record, const LyricQuery &query);

/// The record with a lyric that fits best, null when none has one: by the difference of the durations
/// (within 2 s they are the same recording), then with times before without, then by the names.
[[nodiscard]] const LyricRecord *bestOf(const std::vector<LyricRecord> &records, const LyricQuery &query);

/// How much longer (or, below 0, shorter) the record's song is, in seconds; nothing when a duration is
/// unknown or both are of the same recording.
[[nodiscard]] std::optional<double> otherDuration(const LyricRecord &record, const LyricQuery &query);

} // namespace desk
