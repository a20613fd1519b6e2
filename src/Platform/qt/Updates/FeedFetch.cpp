#include "Platform/qt/Updates/FeedFetch.h"

#include "Platform/Scheduler.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>

#include <utility>

namespace jotwell {

namespace {

constexpr int ok = 200;
constexpr int firstFailure = 400;

} // namespace

FeedFetch::FeedFetch(Scheduler& scheduler, FetchLimits limits)
    : m_scheduler(scheduler), m_limits(std::move(limits))
{
}

FeedFetch::~FeedFetch()
{
    if (m_reply)
        m_reply->disconnect(this); // its own end is to reach nobody here
}

void FeedFetch::start(const QUrl& address, Done done)
{
    m_done = std::move(done);
    if (address.scheme() != u"https") {
        m_scheduler.after({}, this, [this] { finish(QStringLiteral("its address isn't https")); });
        return;
    }
    m_reply = m_network.get(requestFor(address));
    m_reply->setReadBufferSize(m_limits.bytes);
    connect(m_reply, &QNetworkReply::readyRead, this, &FeedFetch::readMore);
    connect(m_reply, &QNetworkReply::finished, this, &FeedFetch::readEnd);
    m_scheduler.after(m_limits.time, this, [this] { finish(QStringLiteral("it takes too long")); });
}

// The host learns what it needs for an answer, and nothing of the user: neither language nor
// system.
QNetworkRequest FeedFetch::requestFor(const QUrl& address) const
{
    QNetworkRequest request(address);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Jotwell"));
    request.setRawHeader("Accept-Language", "*");
    // Nothing is unpacked that isn't verified yet.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::SameOriginRedirectPolicy);
    request.setMaximumRedirectsAllowed(m_limits.redirects);
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
    if (!m_limits.authorities.isEmpty())
        tls.setCaCertificates(m_limits.authorities);
    request.setSslConfiguration(tls);
    return request;
}

void FeedFetch::readMore()
{
    m_bytes += m_reply->read(m_limits.bytes + 1 - m_bytes.size());
    if (m_bytes.size() > m_limits.bytes)
        finish(QStringLiteral("it is larger than %1 bytes").arg(m_limits.bytes));
}

void FeedFetch::readEnd()
{
    const QString reason = failure();
    if (!reason.isEmpty()) {
        finish(reason);
        return;
    }
    readMore();
    finish(std::exchange(m_bytes, {}));
}

QString FeedFetch::failure() const
{
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    // What the host says of its own failure has no place in a log.
    if (m_reply->error() != QNetworkReply::NoError && status < firstFailure)
        return m_reply->errorString();
    if (status != ok)
        return QStringLiteral("the host answers with status %1").arg(status);
    const QByteArray encoding = m_reply->rawHeader("Content-Encoding");
    if (!encoding.isEmpty() && encoding.compare("identity", Qt::CaseInsensitive) != 0)
        return QStringLiteral("it comes compressed");
    return {};
}

// Only the first end counts: breaking off brings another, and so does the time.
void FeedFetch::finish(Result<QByteArray, QString> result)
{
    if (!m_done)
        return;
    const Done done = std::exchange(m_done, nullptr);
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
    }
    done(std::move(result));
}

} // namespace jotwell
