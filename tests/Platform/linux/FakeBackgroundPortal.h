#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QVariantMap>

namespace jotwell {

/// The background portal on the session bus, from its own connection, until it goes. It answers
/// when it is told to.
class FakeBackgroundPortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Background")

public:
    enum class Kind {
        listening,
        hasty,    ///< grants before it has answered the call
        naming,   ///< names its request objects in its own way
        refusing, ///< answers the call with an error
        silent,   ///< never answers the call
    };

    explicit FakeBackgroundPortal(Kind kind = Kind::listening);
    ~FakeBackgroundPortal() override;

    struct Question {
        QString window;
        QVariantMap options;
        QString request;
    };

    [[nodiscard]] const QList<Question>& questions() const { return m_questions; }
    [[nodiscard]] bool waitForQuestions(qsizetype count) const;
    /// Answers a question; 0 is a success, 1 a refusal by the user, 2 any other end.
    void respond(qsizetype question, uint response, bool autostart);

public slots:
    Q_SCRIPTABLE QDBusObjectPath RequestBackground(const QString& window,
                                                   const QVariantMap& options);

private:
    const Kind m_kind;
    QDBusConnection m_bus;
    QList<Question> m_questions;
};

} // namespace jotwell
