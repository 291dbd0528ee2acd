// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QUrl>

#include <chrono>

class QNetworkAccessManager;
class QNetworkReply;

namespace desk {

/// True for https, and for http on this very computer; never with a user name in it.
[[nodiscard]] bool isSafeAddress(const QUrl &address);

/// One GET that a hostile server cannot make long, large or unsafe.
///
/// Asks once; destroyed at any time, it asks no more and says nothing. Certificate errors end it.
class BoundedGet final : public QObject
{
    Q_OBJECT

public:
    struct Limits
    {
        /// Of the body. It is asked for, and taken, without compression.
        qint64 bytes = qint64(1) << 20;
        /// From the request to the last byte, redirects included.
        std::chrono::milliseconds time = std::chrono::seconds(15);
        /// Redirects that are followed; none to an address that is not safe.
        int redirects = 3;
    };

    enum class Problem {
        None, ///< a whole answer, whatever its status
        Unreachable, ///< no connection, or no answer on it
        BrokenOff, ///< the answer ended before its end, or is compressed
        TooSlow,
        TooLarge,
        BadRedirect, ///< too many, to nowhere, or less safe
        BadCertificate
    };

    struct Answer
    {
        Problem problem = Problem::None;
        /// As HTTP has it; 0 unless there is no problem.
        int status = 0;
        QByteArray body;
        /// As the server sent it, empty when it did not.
        QByteArray retryAfter;
    };

    BoundedGet(QNetworkAccessManager &network, QByteArray userAgent, Limits limits);
    ~BoundedGet() override;

    /// \param address  must be safe.
    void start(const QUrl &address);

Q_SIGNALS:
    /// Once, and never before `start` has returned.
    void finished(const desk::BoundedGet::Answer &answer);

private:
    void ask(const QUrl &address);
    void read();
    void replyFinished();
    void follow(const QUrl &target);
    void finish(Answer answer);
    void fail(Problem problem);
    void letGo();

    QNetworkAccessManager &m_network;
    QByteArray m_userAgent;
    Limits m_limits;
    QTimer m_deadline;
    QPointer<QNetworkReply> m_reply;
    QByteArray m_body;
    int m_redirects = 0;
};

} // namespace desk
