// SPDX-License-Identifier: MIT
#pragma once

#include "host/BoundedGet.h"
#include "host/LyricRecords.h"
#include "host/LyricRequests.h"
#include "shell/contracts/TQLrcDownloadInterface.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtNetwork/QNetworkAccessManager>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace desk {

/// Finds lyrics at a service that speaks as LRCLIB does.
///
/// One search at a time: a new request withdraws the one before it. It asks for the exact recording first,
/// then without its album, then searches by the names, and takes the best of what fits. A service that is
/// busy is asked once more after a pause; one that asks for a longer pause gets it. What was not found is not
/// asked for again for a while. GUI thread; nothing blocks. Destroyed at any time: a request that is under
/// way is then answered with a null text.
class LyricSearch final : public QObject, public TQLrcDownloadInterface
{
    Q_OBJECT

public:
    struct Settings
    {
        /// https, or http on this computer; requests go below it.
        QUrl address = QUrl(QStringLiteral("https://lrclib.net"));
        /// Who asks, "lyricdesk v1.0.0".
        QByteArray userAgent = "lyricdesk";
        /// Of each answer.
        BoundedGet::Limits limits;
        /// For the whole search, its pauses included.
        std::chrono::milliseconds time = std::chrono::seconds(15);
        /// Before a busy service that names no pause is asked again.
        std::chrono::milliseconds pause = std::chrono::seconds(1);
        /// The longest pause that a search waits for.
        std::chrono::milliseconds longestPause = std::chrono::seconds(5);
        /// The longest pause that is kept between searches, whatever the service asks for.
        std::chrono::milliseconds longestRest = std::chrono::minutes(10);
        /// How long it is remembered that a song was not found.
        std::chrono::milliseconds memory = std::chrono::hours(1);
        /// Milliseconds that only grow; empty for the system's.
        std::function<std::int64_t()> clock;
    };
    /// What the current song is known to be, besides what a request says.
    struct SongFacts
    {
        QString album;
        /// 0 when unknown.
        double seconds = 0;
    };

    enum class Outcome { Found, NotFound, Failed, Cancelled, Withdrawn };
    Q_ENUM(Outcome)

    explicit LyricSearch(Settings settings);
    ~LyricSearch() override;

    /// Asked at each request.
    void setSongFacts(std::function<SongFacts()> facts) { m_facts = std::move(facts); }

    void requestLyric_artist_completion(
        const QString &title, const QString &artist, Completion completion) override;
    /// The user does not want it any more. The request is answered before this returns.
    void cancel() { end(Outcome::Cancelled, tr("The search was cancelled.")); }
    /// Another song is shown: the answer would be for the wrong one. As `cancel`, and without a word.
    void withdraw() { end(Outcome::Withdrawn, {}); }
    [[nodiscard]] bool isSearching() const { return m_run != nullptr; }

Q_SIGNALS:
    /// \param title  of the song.
    void started(const QString &title);
    /// After each `started`, right before the request is answered; `message` is a sentence for the user,
    /// empty when there is nothing to say.
    void finished(desk::LyricSearch::Outcome outcome, const QString &message);

private:
    struct Run
    {
        LyricQuery query;
        Completion completion;
        QList<LyricRequest> requests;
        std::vector<LyricRecord> candidates;
        std::unique_ptr<BoundedGet> get;
        bool wasRetried = false;
        bool isInstrumental = false;
    };

    [[nodiscard]] LyricQuery queryFor(const QString &title, const QString &artist) const;
    [[nodiscard]] QString reasonNotToAsk(const QString &title, const LyricQuery &query) const;
    void after(std::chrono::milliseconds pause, std::function<void()> next);
    [[nodiscard]] bool wasNotFound(const LyricQuery &query);
    void rememberNotFound();
    void askNext();
    void take(const BoundedGet::Answer &answer);
    void takeBody(const QByteArray &body);
    void retry(const BoundedGet::Answer &answer);
    [[nodiscard]] bool isContent() const;
    void conclude(const QString &problem);
    void concludeWithFound(const LyricRecord &record);
    void end(Outcome outcome, const QString &message, const QByteArray &text = {});
    [[nodiscard]] std::int64_t now() const;

    Settings m_settings;
    QNetworkAccessManager m_network;
    std::function<SongFacts()> m_facts;
    std::unique_ptr<Run> m_run;
    /// Tells a search from those before it.
    quint64 m_number = 0;
    struct NotFound
    {
        LyricQuery query;
        std::int64_t until;
    };
    QList<NotFound> m_notFound;
    /// By the clock; asked for by the service.
    std::int64_t m_restUntil = 0;
};

} // namespace desk
