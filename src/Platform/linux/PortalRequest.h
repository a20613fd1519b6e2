#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <memory>

namespace jotwell {

/// One question to the desktop's portal, whose answer may take as long as a user does.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    enum class Outcome { granted, denied, failed };
    /// Called once at most, from the event loop.
    using Answered = std::function<void(Outcome outcome, const QVariantMap& results)>;

    /// What is to be called asks for `token` as "handle_token" in its options.
    PortalRequest(const QDBusConnection& bus, QString token);

    void call(const QDBusMessage& question, Answered answered);
    /// Takes the question back, if it has no answer yet; the desktop closes its dialog.
    void abandon();

private:
    void finish(Outcome outcome, const QVariantMap& results);

    QDBusConnection m_bus;
    QString m_path; ///< of the request's object at the portal
    Answered m_answered;

private slots:
    void responded(uint response, const QVariantMap& results);
};

/// Owns a request, which may be dropped from within its answer.
struct DropPortalRequest {
    void operator()(PortalRequest* request) const
    {
        request->abandon();
        request->deleteLater();
    }
};
using PortalRequestPointer = std::unique_ptr<PortalRequest, DropPortalRequest>;

} // namespace jotwell
