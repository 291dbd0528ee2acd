// SPDX-License-Identifier: MIT
#include "host/LyricRecords.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <tuple>

namespace desk {

namespace {

constexpr qsizetype kMostRecords = 100;
// A name beyond this says no more, and comparing is not linear.
constexpr qsizetype kComparedCharacters = 200;
constexpr double kSameRecordingSeconds = 2.0;
constexpr double kSameTitle = 0.7;
constexpr double kSameArtist = 0.5;
// The same but for what stands behind it, "(Live)", is not quite the same.
constexpr double kSameBase = 0.9;

QByteArray lyricOf(const QJsonValue &value)
{
    const QString text = value.toString();
    return text.trimmed().isEmpty() ? QByteArray() : text.toUtf8();
}

bool isTextOrNull(const QJsonValue &value)
{
    return value.isString() || value.isNull() || value.isUndefined();
}

std::optional<LyricRecord> recordFrom(const QJsonObject &object)
{
    const QJsonValue title = object.value(QLatin1String("trackName"));
    const QJsonValue artist = object.value(QLatin1String("artistName"));
    const QJsonValue synced = object.value(QLatin1String("syncedLyrics"));
    const QJsonValue plain = object.value(QLatin1String("plainLyrics"));
    if (!title.isString() || !artist.isString() || !isTextOrNull(synced) || !isTextOrNull(plain)) {
        return std::nullopt;
    }
    LyricRecord record{title.toString(), artist.toString(),
        object.value(QLatin1String("albumName")).toString(), std::nullopt,
        object.value(QLatin1String("instrumental")).toBool(), lyricOf(synced), lyricOf(plain)};
    const double seconds = object.value(QLatin1String("duration")).toDouble();
    if (std::isfinite(seconds) && seconds > 0) {
        record.seconds = seconds;
    }
    return record;
}

// Letters and digits of a name in small, without accents; a blank between words.
std::u32string essence(QStringView name)
{
    const QString plain = name.left(kComparedCharacters).toString().normalized(QString::NormalizationForm_KD);
    std::u32string all;
    for (const char32_t character : plain.toCaseFolded().toStdU32String()) {
        if (QChar::isMark(character)) {
            continue;
        }
        if (QChar::isLetterOrNumber(character)) {
            all += character;
        } else if (!all.empty() && all.back() != U' ') {
            all += U' ';
        }
    }
    if (!all.empty() && all.back() == U' ') {
        all.pop_back();
    }
    return all;
}

std::vector<std::u32string> pairs(const std::u32string &text)
{
    const std::u32string padded = U' ' + text + U' ';
    std::vector<std::u32string> found;
    for (std::size_t at = 0; at + 1 < padded.size(); ++at) {
        found.push_back(padded.substr(at, 2));
    }
    std::sort(found.begin(), found.end());
    return found;
}

// Twice what is common, of all: Dice's coefficient over pairs of characters.
double commonPairs(const std::u32string &a, const std::u32string &b)
{
    const auto ofA = pairs(a);
    const auto ofB = pairs(b);
    std::vector<std::u32string> common;
    std::set_intersection(ofA.begin(), ofA.end(), ofB.begin(), ofB.end(), std::back_inserter(common));
    return 2.0 * static_cast<double>(common.size()) / static_cast<double>(ofA.size() + ofB.size());
}

bool containsWords(const std::u32string &longer, const std::u32string &shorter)
{
    return (U' ' + longer + U' ').find(U' ' + shorter + U' ') != std::u32string::npos;
}

// The name without "(Live)", "- Remastered" or "feat. somebody".
QStringView baseOf(QStringView name)
{
    static const QStringList additions = {QStringLiteral("("), QStringLiteral("["), QStringLiteral("（"),
        QStringLiteral(" - "), QStringLiteral(" – "), QStringLiteral(" feat"), QStringLiteral(" ft. ")};
    for (const QString &addition : additions) {
        if (const qsizetype at = name.indexOf(addition, 0, Qt::CaseInsensitive); at > 0) {
            name = name.left(at);
        }
    }
    return name;
}

bool isSameArtist(QStringView a, QStringView b)
{
    // One of several is enough.
    const std::u32string one = essence(a);
    const std::u32string other = essence(b);
    return likeness(a, b) >= kSameArtist
        || (!one.empty() && !other.empty() && (containsWords(one, other) || containsWords(other, one)));
}

std::tuple<double, bool, double> rank(const LyricRecord &record, const LyricQuery &query)
{
    double difference = query.seconds ? std::numeric_limits<double>::max() : 0;
    if (query.seconds && record.seconds) {
        difference = std::abs(otherDuration(record, query).value_or(0));
    }
    return {difference, record.synced.isNull(),
        -likeness(record.title, query.title) - likeness(record.artist, query.artist)
            - 0.1 * likeness(record.album, query.album)};
}

} // namespace

std::optional<LyricRecord> recordFrom(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    return document.isObject() ? recordFrom(document.object()) : std::nullopt;
}

std::optional<std::vector<LyricRecord>> recordsFrom(const QByteArray &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray()) {
        return std::nullopt;
    }
    std::vector<LyricRecord> records;
    const QJsonArray array = document.array();
    for (qsizetype at = 0; at < std::min(array.size(), kMostRecords); ++at) {
        if (auto record = recordFrom(array.at(at).toObject())) {
            records.push_back(std::move(*record));
        }
    }
    return records;
}

double likeness(QStringView a, QStringView b)
{
    const std::u32string one = essence(a);
    const std::u32string other = essence(b);
    if (one == other) {
        // Names of signs alone are compared as they are.
        return !one.empty() || a.compare(b, Qt::CaseInsensitive) == 0 ? 1 : 0;
    }
    if (one.empty() || other.empty()) {
        return 0;
    }
    const std::u32string base = essence(baseOf(a));
    const bool hasSameBase = !base.empty() && base == essence(baseOf(b));
    return std::max(hasSameBase ? kSameBase : 0.0, commonPairs(one, other));
}

bool isOfSong(const LyricRecord &record, const LyricQuery &query)
{
    return likeness(record.title, query.title) >= kSameTitle
        && (query.artist.isEmpty() || isSameArtist(record.artist, query.artist));
}

const LyricRecord *bestOf(const std::vector<LyricRecord> &records, const LyricQuery &query)
{
    const LyricRecord *best = nullptr;
    for (const LyricRecord &record : records) {
        if (record.hasLyric() && (!best || rank(record, query) < rank(*best, query))) {
            best = &record;
        }
    }
    return best;
}

std::optional<double> otherDuration(const LyricRecord &record, const LyricQuery &query)
{
    if (!record.seconds || !query.seconds) {
        return std::nullopt;
    }
    const double difference = *record.seconds - *query.seconds;
    return std::abs(difference) <= kSameRecordingSeconds ? std::nullopt : std::optional(difference);
}

} // namespace desk
