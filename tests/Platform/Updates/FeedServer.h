#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSslServer>
#include <QString>

namespace jotwell {

class TestCertificates;

/// A web server on this machine that answers each path with the very bytes that a test gives it,
/// and then ends the connection.
class FeedServer {
public:
    explicit FeedServer(const QSslCertificate& certificate);
    FeedServer();

    /// The address of a path, on the host that the certificate is for or on another.
    [[nodiscard]] QString address(const QString& path = QStringLiteral("/appcast.xml"),
                                  const QString& host = QStringLiteral("localhost")) const;

    /// `response` is all of it, with its head. Of an endless one, the end comes again and again.
    void answer(const QByteArray& path, const QByteArray& response);
    void answerFeed(const QByteArray& feed);
    void answerRedirect(const QByteArray& path, const QString& target);
    /// Takes connections and says nothing.
    void fallSilent() { m_isSilent = true; }
    /// Repeats the last of a response until the other side has enough.
    void neverEnd() { m_isEndless = true; }

    [[nodiscard]] const QList<QByteArray>& requests() const { return m_requests; } ///< their heads
    [[nodiscard]] qint64 bytesSent() const { return m_bytesSent; }

private:
    void serve(QSslSocket* socket);
    void respond(QSslSocket* socket, const QByteArray& head);

    QSslServer m_server;
    QHash<QByteArray, QByteArray> m_responses;
    QList<QByteArray> m_requests;
    qint64 m_bytesSent = 0;
    bool m_isSilent = false;
    bool m_isEndless = false;
};

/// A response with a head of its own.
[[nodiscard]] QByteArray httpResponse(const QByteArray& head, const QByteArray& body);

} // namespace jotwell
