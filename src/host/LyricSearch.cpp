// SPDX-License-Identifier: MIT
#include "host/LyricSearch.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace desk {

namespace {

constexpr qsizetype kRememberedQueries = 100;
constexpr int kNotFound = 404;
constexpr int kTooManyRequests = 429;

bool isBusy(int status)
{
    return status == kTooManyRequests || (status >= 500 && status < 600);
}

QString problemText(const BoundedGet::Answer &answer)
{
    using enum BoundedGet::Problem;
    switch (answer.problem) {
    case Unreachable:
        return LyricSearch::tr("The lyric service could not be reached. Is this computer online?");
    case BrokenOff:
        return LyricSearch::tr(
            "The answer of the lyric service broke off or cannot be read. Try again later.");
    case TooSlow:
        return LyricSearch::tr("The lyric service did not answer in time. Try again later.");
    case TooLarge:
        return LyricSearch::tr(
            "The lyric service answered with more than a lyric can be; nothing was loaded.");
    case BadRedirect:
        return LyricSearch::tr("The lyric service led to an address that is not safe; nothing was loaded.");
    case BadCertificate:
        return LyricSearch::tr("The lyric service could not prove who it is; nothing was loaded.");
    case None:
        break;
    }
    return LyricSearch::tr("The lyric service refused the search (status %1).").arg(answer.status);
}

QString durationText(double seconds)
{
    const auto whole = static_cast<int>(std::round(std::abs(seconds)));
    return whole < 60 ? LyricSearch::tr("%1 s").arg(whole)
                      : LyricSearch::tr("%1:%2 min").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

LyricSearch::LyricSearch(Settings settings) : m_settings(std::move(settings))
{
    m_network.setAutoDeleteReplies(false);
}

LyricSearch::~LyricSearch()
{
    // Nobody is told of the outcome any more, but who waits for the answer gets one.
    blockSignals(true);
    withdraw();
}

void LyricSearch::requestLyric_artist_completion(
    const QString &title, const QString &artist, Completion completion)
{
    withdraw();
    m_run = std::make_unique<Run>();
    m_run->query = queryFor(title, artist);
    m_run->completion = std::move(completion);
    ++m_number;
    // Never from within the call.
    constexpr std::chrono::milliseconds soon(0);
    if (const QString reason = reasonNotToAsk(title, m_run->query); !reason.isEmpty()) {
        after(soon, [this, reason] { end(Outcome::Failed, reason); });
    } else if (wasNotFound(m_run->query)) {
        after(soon, [this] { conclude({}); });
    } else {
        m_run->requests = requestsFor(m_settings.address, m_run->query);
        after(soon, [this] { askNext(); });
        after(m_settings.time, [this] { conclude(problemText({BoundedGet::Problem::TooSlow, 0, {}, {}})); });
    }
    Q_EMIT started(m_run->query.title);
}

LyricQuery LyricSearch::queryFor(const QString &title, const QString &artist) const
{
    const SongFacts facts = m_facts ? m_facts() : SongFacts();
    LyricQuery query{title.simplified(), artist.simplified(), facts.album.simplified(), std::nullopt};
    if (std::isfinite(facts.seconds) && facts.seconds > 0) {
        query.seconds = facts.seconds;
    }
    return query;
}

QString LyricSearch::reasonNotToAsk(const QString &title, const LyricQuery &query) const
{
    if (title.isNull()) {
        return tr("There is no song to search for. Open one first.");
    }
    if (query.title.isEmpty()) {
        return tr("The song's file has no title to search for.");
    }
    if (!isSafeAddress(m_settings.address)) {
        return tr("The address of the lyric service is not a safe one.");
    }
    if (const std::int64_t rest = m_restUntil - now(); rest > 0) {
        return tr("The lyric service asks to be left alone for a while. Try again in %1.")
            .arg(durationText(std::ceil(static_cast<double>(rest) / 1000)));
    }
    return {};
}

void LyricSearch::after(std::chrono::milliseconds pause, std::function<void()> next)
{
    // Not a timer of our own: what comes next may let go of us, and the timer with us.
    QTimer::singleShot(pause, this, [this, number = m_number, next = std::move(next)] {
        if (m_run && number == m_number) {
            next();
        }
    });
}

void LyricSearch::askNext()
{
    m_run->get = std::make_unique<BoundedGet>(m_network, m_settings.userAgent, m_settings.limits);
    connect(m_run->get.get(), &BoundedGet::finished, this, &LyricSearch::take);
    m_run->get->start(m_run->requests.constFirst().address);
}

void LyricSearch::take(const BoundedGet::Answer &answer)
{
    // It is what calls us.
    m_run->get.release()->deleteLater();
    if (answer.problem != BoundedGet::Problem::None) {
        conclude(problemText(answer));
    } else if (isBusy(answer.status)) {
        retry(answer);
    } else if (answer.status == kNotFound) {
        takeBody({});
    } else if (answer.status == 200) {
        takeBody(answer.body.isNull() ? QByteArray("") : answer.body);
    } else {
        conclude(problemText(answer));
    }
}

/// \param body  null for "not found".
void LyricSearch::takeBody(const QByteArray &body)
{
    const bool isExact = m_run->requests.takeFirst().isExact;
    if (!body.isNull()) {
        std::optional<std::vector<LyricRecord>> records;
        if (!isExact) {
            records = recordsFrom(body);
        } else if (auto record = recordFrom(body)) {
            records.emplace({std::move(*record)});
        }
        if (!records) {
            conclude(tr("The lyric service answered with something that is no lyric; nothing was loaded."));
            return;
        }
        for (LyricRecord &record : *records) {
            if (isOfSong(record, m_run->query)) {
                m_run->isInstrumental |= isExact && record.isInstrumental && !record.hasLyric();
                m_run->candidates.push_back(std::move(record));
            }
        }
    }
    if (m_run->requests.isEmpty() || isContent()) {
        conclude({});
    } else {
        askNext();
    }
}

// Words without times are not the end: the next request may know the times.
bool LyricSearch::isContent() const
{
    const LyricRecord *best = bestOf(m_run->candidates, m_run->query);
    const bool wasSearched = !m_run->requests.constFirst().isExact && m_run->requests.size() == 1;
    return m_run->isInstrumental || (best && (!best->synced.isNull() || wasSearched));
}

void LyricSearch::retry(const BoundedGet::Answer &answer)
{
    const auto asked = retryAfter(answer.retryAfter, QDateTime::currentDateTimeUtc());
    const std::chrono::milliseconds pause = asked.value_or(m_settings.pause);
    if (!m_run->wasRetried && pause <= m_settings.longestPause) {
        m_run->wasRetried = true;
        after(pause, [this] { askNext(); });
        return;
    }
    if (asked) {
        m_restUntil = now() + std::min(*asked, m_settings.longestRest).count();
    }
    conclude(tr("The lyric service is busy. Try again later."));
}

// What was found before a problem is found all the same.
void LyricSearch::conclude(const QString &problem)
{
    if (const LyricRecord *best = bestOf(m_run->candidates, m_run->query)) {
        concludeWithFound(*best);
    } else if (!problem.isEmpty()) {
        end(Outcome::Failed, problem);
    } else if (m_run->isInstrumental) {
        end(Outcome::NotFound, tr("The lyric service knows this song as one without words."));
    } else {
        rememberNotFound();
        end(Outcome::NotFound, tr("No lyric was found for this song."));
    }
}

bool LyricSearch::wasNotFound(const LyricQuery &query)
{
    m_notFound.removeIf([now = now()](const NotFound &known) { return known.until <= now; });
    return std::any_of(m_notFound.cbegin(), m_notFound.cend(),
        [&query](const NotFound &known) { return known.query == query; });
}

void LyricSearch::rememberNotFound()
{
    if (!wasNotFound(m_run->query)) {
        m_notFound.append({m_run->query, now() + m_settings.memory.count()});
    }
    if (m_notFound.size() > kRememberedQueries) {
        m_notFound.removeFirst();
    }
}

void LyricSearch::concludeWithFound(const LyricRecord &record)
{
    QString message = tr("A lyric was found. Undo brings back the one before it.");
    if (record.synced.isNull()) {
        message = tr("A lyric without times was found. Undo brings back the one before it.");
    } else if (const auto other = otherDuration(record, m_run->query)) {
        message = (*other > 0 ? tr("A lyric was found; its times are of a recording that is %1 longer. Undo "
                                   "brings back the lyric before it.")
                              : tr("A lyric was found; its times are of a recording that is %1 shorter. Undo "
                                   "brings back the lyric before it."))
                      .arg(durationText(*other));
    }
    end(Outcome::Found, message, record.lyric());
}

void LyricSearch::end(Outcome outcome, const QString &message, const QByteArray &text)
{
    // First of all: who is told may ask for the next lyric, or let go of us.
    const std::unique_ptr<Run> run = std::move(m_run);
    if (!run) {
        return;
    }
    const Completion completion = std::move(run->completion);
    const QByteArray lyric = text;
    Q_EMIT finished(outcome, message);
    if (completion) {
        completion(lyric);
    }
}

std::int64_t LyricSearch::now() const
{
    return m_settings.clock ? m_settings.clock() : QDeadlineTimer::current(Qt::PreciseTimer).deadline();
}

} // namespace desk
