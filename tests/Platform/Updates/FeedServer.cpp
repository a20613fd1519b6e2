#include "Platform/Updates/FeedServer.h"

#include "Platform/Updates/TestCertificates.h"

#include <QSslConfiguration>
#include <QSslSocket>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

constexpr qint64 mostUnsent = 100'000;

} // namespace

FeedServer::FeedServer(const QSslCertificate& certificate)
{
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setLocalCertificate(certificate);
    tls.setPrivateKey(TestCertificates::usual().key());
    tls.setAllowedNextProtocols({"h2", "http/1.1"}); // of which it understands the second
    m_server.setSslConfiguration(tls);
    QObject::connect(&m_server, &QTcpServer::pendingConnectionAvailable, &m_server, [this] {
        while (auto* socket = qobject_cast<QSslSocket*>(m_server.nextPendingConnection()))
            serve(socket);
    });
    EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost));
}

FeedServer::FeedServer() : FeedServer(TestCertificates::usual().host()) {}

QString FeedServer::address(const QString& path, const QString& host) const
{
    return QStringLiteral("https://%1:%2%3").arg(host).arg(m_server.serverPort()).arg(path);
}

void FeedServer::answer(const QByteArray& path, const QByteArray& response)
{
    m_responses[path] = response;
}

void FeedServer::answerFeed(const QByteArray& feed)
{
    answer("/appcast.xml",
           httpResponse("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(feed.size()),
                        feed));
}

void FeedServer::answerRedirect(const QByteArray& path, const QString& target)
{
    answer(path,
           httpResponse("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + target.toUtf8(),
                        {}));
}

void FeedServer::serve(QSslSocket* socket)
{
    QObject::connect(socket, &QSslSocket::disconnected, socket, &QObject::deleteLater);
    const auto read = [this, socket] {
        const QByteArray head = socket->peek(10'000);
        if (m_isSilent || !head.contains("\r\n\r\n"))
            return;
        respond(socket, socket->readAll());
    };
    QObject::connect(socket, &QSslSocket::readyRead, socket, read);
    read();
}

void FeedServer::respond(QSslSocket* socket, const QByteArray& head)
{
    m_requests.append(head);
    const QByteArray path = head.split(' ').value(1);
    const QByteArray response = m_responses.value(path);
    EXPECT_FALSE(response.isEmpty()) << path.toStdString();
    m_bytesSent += socket->write(response);
    if (!m_isEndless) {
        socket->disconnectFromHost();
        return;
    }
    QObject::connect(socket, &QSslSocket::encryptedBytesWritten, socket, [this, socket, response] {
        const qint64 unsent = socket->bytesToWrite() + socket->encryptedBytesToWrite();
        if (unsent < mostUnsent)
            m_bytesSent += socket->write(response.right(10'000));
    });
}

QByteArray httpResponse(const QByteArray& head, const QByteArray& body)
{
    return head + "\r\nConnection: close\r\n\r\n" + body;
}

} // namespace jotwell
