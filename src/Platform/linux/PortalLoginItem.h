#pragma once

#include "Platform/LoginItem.h"
#include "Platform/linux/PortalRequest.h"
#include "Support/AtomicFile.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

namespace jotwell {

class FileCalls;

/// The background portal, which starts a program from a sandbox at login. It can only be asked for
/// something, not about it: its last answer is kept in a file. Nothing waits for it; until it has
/// answered, the status is that of a user who still ponders.
class PortalLoginItem : public QObject, public LoginItem {
    Q_OBJECT

public:
    /// `answerFile` lies in a folder of the program's own, and exists as long as the portal has the
    /// program started.
    PortalLoginItem(QString answerFile, FileCalls& calls);

    [[nodiscard]] Status status() const override;
    [[nodiscard]] std::optional<QString> registerItem() override;
    [[nodiscard]] std::optional<QString> unregisterItem() override;

private:
    [[nodiscard]] std::optional<QString> ask(bool wish);
    void takeAnswer(PortalRequest::Outcome outcome, const QVariantMap& results);
    void settle(bool isStarted);
    void fail(const QString& words);

    QDBusConnection m_bus;
    const QString m_answerFile;
    FileCalls& m_calls;
    AtomicFile m_file;
    std::optional<bool> m_wish; ///< that the portal hasn't answered yet
    PortalRequestPointer m_request;
    int m_questions = 0;
};

} // namespace jotwell
