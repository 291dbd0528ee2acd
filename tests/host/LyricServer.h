// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>

#include <deque>
#include <functional>
#include <memory>
#include <utility>

/// A lyric service on the loopback address that behaves as a test wants, well or badly.
class LyricServer : public QObject
{
public:
    using Reply = std::function<void(QTcpSocket &socket)>;

    explicit LyricServer(std::unique_ptr<QTcpServer> server = std::make_unique<QTcpServer>())
        : m_server(std::move(server))
    {
        m_server->listen(QHostAddress::LocalHost);
        connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, [this] {
            while (QTcpSocket *socket = m_server->nextPendingConnection()) {
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(*socket); });
                connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
                read(*socket);
            }
        });
    }

    [[nodiscard]] QUrl address(const char *scheme = "http", const char *path = "") const
    {
        return QUrl(QStringLiteral("%1://127.0.0.1:%2%3")
                        .arg(QLatin1String(scheme))
                        .arg(m_server->serverPort())
                        .arg(QLatin1String(path)));
    }
    /// The reply to the next request that has none yet; without any, 404.
    void then(Reply reply) { m_replies.push_back(std::move(reply)); }

    /// A whole answer with the right length.
    static Reply answer(int status, const QByteArray &body, const QByteArray &headers = {})
    {
        return [=](QTcpSocket &socket) {
            socket.write("HTTP/1.1 " + QByteArray::number(status) + " Said\r\nContent-Length: "
                + QByteArray::number(body.size()) + "\r\n" + headers + "\r\n" + body);
        };
    }
    static Reply redirect(const QByteArray &to) { return answer(302, {}, "Location: " + to + "\r\n"); }
    /// These bytes as they are; then the connection ends, or stays open and silent.
    enum class Then { Close, Silence };
    static Reply bytes(const QByteArray &all, Then then)
    {
        return [=](QTcpSocket &socket) {
            socket.write(all);
            if (then == Then::Close) {
                socket.disconnectFromHost();
            }
        };
    }
    /// `head`, then `chunk` for as long as anybody listens.
    static Reply endless(const QByteArray &head, const QByteArray &chunk)
    {
        return [=](QTcpSocket &socket) {
            socket.write(head);
            connect(&socket, &QTcpSocket::bytesWritten, &socket, [&socket, chunk] {
                if (socket.bytesToWrite() < chunk.size()) {
                    socket.write(chunk);
                }
            });
        };
    }

    /// The first lines of the requests that came, and their heads whole.
    QByteArrayList asked;
    QByteArrayList heads;
    /// Who waits for the last reply.
    QPointer<QTcpSocket> client;

private:
    void read(QTcpSocket &from)
    {
        const QByteArray head = from.peek(1 << 16);
        if (!head.contains("\r\n\r\n")) {
            return;
        }
        from.readAll();
        asked.append(head.left(head.indexOf(" HTTP/")));
        heads.append(head);
        client = &from;
        if (m_replies.empty()) {
            answer(404, R"({"code":404,"name":"TrackNotFound"})")(from);
            return;
        }
        const Reply reply = std::move(m_replies.front());
        m_replies.pop_front();
        reply(from);
    }

    std::unique_ptr<QTcpServer> m_server;
    std::deque<Reply> m_replies;
};
