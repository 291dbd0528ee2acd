// SPDX-License-Identifier: MIT
#include "host/BoundedGet.h"

#include <QtNetwork/QHostAddress>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QNetworkRequest>

#include <utility>

namespace desk {

namespace {

// What is read ahead of us; the rest waits in the network until we have looked at what came.
constexpr qint64 kReadAhead = qint64(64) << 10;

bool isLoopback(const QString &host)
{
    return host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
}

QNetworkRequest requestFor(const QUrl &address, const QByteArray &userAgent)
{
    QNetworkRequest request(address);
    request.setHeader(QNetworkRequest::UserAgentHeader, userAgent);
    request.setRawHeader("Accept", "application/json");
    // The toolkit unpacks without bound and without looking at the clock; what it need not unpack cannot
    // hurt.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    return request;
}

// Though nobody asked for it.
bool isCompressed(const QNetworkReply &reply)
{
    const QByteArray encoding = reply.rawHeader("Content-Encoding").trimmed().toLower();
    return !encoding.isEmpty() && encoding != "identity";
}

} // namespace

bool isSafeAddress(const QUrl &address)
{
    if (!address.isValid() || address.host().isEmpty() || !address.userInfo().isEmpty()) {
        return false;
    }
    return address.scheme() == QLatin1String("https")
        || (address.scheme() == QLatin1String("http") && isLoopback(address.host()));
}

BoundedGet::BoundedGet(QNetworkAccessManager &network, QByteArray userAgent, Limits limits)
    : m_network(network), m_userAgent(std::move(userAgent)), m_limits(limits)
{
    m_deadline.setSingleShot(true);
    m_deadline.setInterval(limits.time);
    connect(&m_deadline, &QTimer::timeout, this, [this] { fail(Problem::TooSlow); });
}

BoundedGet::~BoundedGet()
{
    letGo();
}

void BoundedGet::start(const QUrl &address)
{
    Q_ASSERT(isSafeAddress(address));
    m_deadline.start();
    ask(address);
}

void BoundedGet::ask(const QUrl &address)
{
    // A second answer that a server sent to one question must not be taken for the answer to the next.
    m_network.clearConnectionCache();
    m_body.clear();
    m_reply = m_network.get(requestFor(address, m_userAgent));
    m_reply->setReadBufferSize(kReadAhead);
    connect(m_reply, &QNetworkReply::readyRead, this, &BoundedGet::read);
    connect(m_reply, &QNetworkReply::finished, this, &BoundedGet::replyFinished);
}

void BoundedGet::read()
{
    const qint64 room = m_limits.bytes - m_body.size();
    if (m_reply->bytesAvailable() > room) {
        fail(Problem::TooLarge);
        return;
    }
    m_body += m_reply->readAll();
}

void BoundedGet::replyFinished()
{
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (m_reply->error() == QNetworkReply::SslHandshakeFailedError) {
        fail(Problem::BadCertificate);
        return;
    }
    // What is an error to the toolkit from here on is one of HTTP, with an answer, or there is no whole
    // answer.
    const bool isHttpError = m_reply->error() >= QNetworkReply::ContentAccessDenied;
    if (m_reply->error() != QNetworkReply::NoError && (!isHttpError || status < 400)) {
        fail(status == 0 ? Problem::Unreachable : Problem::BrokenOff);
        return;
    }
    if (status >= 300 && status < 400) {
        follow(m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl());
        return;
    }
    if (isCompressed(*m_reply)) {
        fail(Problem::BrokenOff);
        return;
    }
    read();
    if (m_reply) {
        finish({Problem::None, status, m_body, m_reply->rawHeader("Retry-After")});
    }
}

void BoundedGet::follow(const QUrl &target)
{
    const QUrl next = m_reply->url().resolved(target);
    const bool wasSecure = m_reply->url().scheme() == QLatin1String("https");
    const bool isLessSafe = wasSecure && next.scheme() != QLatin1String("https");
    if (target.isEmpty() || isLessSafe || !isSafeAddress(next) || ++m_redirects > m_limits.redirects) {
        fail(Problem::BadRedirect);
        return;
    }
    letGo();
    ask(next);
}

void BoundedGet::fail(Problem problem)
{
    finish({problem, 0, {}, {}});
}

void BoundedGet::finish(Answer answer)
{
    m_deadline.stop();
    letGo();
    // Not from within a signal of the reply: who is told may let go of the network, and the reply with it.
    QMetaObject::invokeMethod(
        this, [this, answer = std::move(answer)] { Q_EMIT finished(answer); }, Qt::QueuedConnection);
}

void BoundedGet::letGo()
{
    if (QNetworkReply *reply = std::exchange(m_reply, nullptr)) {
        disconnect(reply, nullptr, this, nullptr);
        reply->abort();
        reply->deleteLater();
    }
}

} // namespace desk
