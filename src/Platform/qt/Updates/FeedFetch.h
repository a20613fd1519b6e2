#pragma once

#include "Support/Result.h"

#include <QByteArray>
#include <QList>
#include <QNetworkAccessManager>
#include <QPointer>
#include <QSslCertificate>
#include <QString>
#include <QUrl>

#include <chrono>
#include <functional>

class QNetworkReply;

namespace jotwell {

class Scheduler;

/// What a feed may cost, and whose word is taken for its host.
struct FetchLimits {
    qsizetype bytes = 1'000'000;
    std::chrono::milliseconds time{30'000}; ///< from the first step to the last byte
    int redirects = 3;
    QList<QSslCertificate> authorities{}; ///< none for those of the system
};

/// Reads one file over HTTPS, with the host's certificate verified, redirects followed on the same
/// host alone, and nothing compressed. Leaves no connection, cookie or cache behind: whoever makes
/// it makes one for each file, and ends it to break off. Main thread, which never waits.
class FeedFetch : public QObject {
    Q_OBJECT

public:
    using Done = std::function<void(Result<QByteArray, QString>)>;

    FeedFetch(Scheduler& scheduler, FetchLimits limits);
    ~FeedFetch() override;

    /// Calls `done` once, on a later turn of the event loop, with the bytes or the reason why there
    /// are none; `done` mustn't delete this, but may leave that to the event loop.
    void start(const QUrl& address, Done done);

private:
    [[nodiscard]] QNetworkRequest requestFor(const QUrl& address) const;
    void readMore();
    void readEnd();
    [[nodiscard]] QString failure() const;
    void finish(Result<QByteArray, QString> result);

    Scheduler& m_scheduler;
    const FetchLimits m_limits;
    QNetworkAccessManager m_network;
    QPointer<QNetworkReply> m_reply;
    QByteArray m_bytes;
    Done m_done;
};

} // namespace jotwell
