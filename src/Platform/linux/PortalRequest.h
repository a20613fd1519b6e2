#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

#include <chrono>
#include <functional>
#include <memory>

class QDBusPendingCallWatcher;

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

    /// Fails if the call has no reply within `patience`; the answer may take as long as it likes.
    void call(const QDBusMessage& question, Answered answered,
              std::chrono::milliseconds patience = std::chrono::seconds(25));
    /// Takes the question back, if it has no answer yet; the desktop closes its dialog.
    void abandon();

    /// Whether the portal has replied, so that nothing but the answer is outstanding.
    [[nodiscard]] bool isTaken() const { return m_isTaken; }
    /// Why it has failed, in the bus's words; empty if it hasn't.
    [[nodiscard]] const QString& error() const { return m_error; }

private:
    void listenAt(const QString& path);
    void stopListening();
    void sendClose();
    void takeReply(const QDBusPendingCallWatcher& watcher);
    void finish(Outcome outcome, const QVariantMap& results);

    QDBusConnection m_bus;
    QString m_path; ///< of the request's object at the portal
    QString m_error;
    bool m_isTaken = false;
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
