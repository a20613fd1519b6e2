#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>

namespace jotwell {

/// The shortcuts portal on the session bus, from its own connection, until it goes.
class FakeShortcutsPortal : public QDBusVirtualObject {
    Q_OBJECT

public:
    /// What becomes of the wish for a shortcut.
    enum class Answer {
        granted,
        grantedWithoutList, ///< as by portals that don't say what they have granted
        grantedNothing,
        grantedNonsense,
        denied,
        failed,
        none,
    };
    enum class Trait {
        knowsPrograms,      ///< has the registry
        answersEarly,       ///< before it has said where
        silentFromTheStart, ///< answers no call at all
        refusing,           ///< answers each call with an error
        withoutSession,     ///< forgets to tell of it
        bindsWithSession,   ///< takes shortcuts with the session alone, as that of Plasma 5.27
        bindsAnother,       ///< than the one that it was asked for
    };

    explicit FakeShortcutsPortal(Answer answer = Answer::granted, QList<Trait> traits = {});
    ~FakeShortcutsPortal() override;

    /// What was called, by "Interface.Method" without the common beginning of the names.
    QStringList calls;
    QList<QDBusMessage> messages; ///< of the same calls
    QStringList closed;           ///< the paths of what was closed
    QString session;              ///< the path of the last one
    QString sessionToken;         ///< that it was asked for with
    QString shortcutId;           ///< that was asked for last
    QVariantMap shortcut;         ///< and its properties

    void activate(const QString& session, const QString& id, const QVariantMap& options = {});
    void activate() { activate(session, shortcutId); }
    void closeSession(const QString& session);
    /// Answers the wish for a shortcut that had no answer.
    void answer(Answer answer);
    [[nodiscard]] auto timesBound() const
    {
        return calls.count(QStringLiteral("portal.GlobalShortcuts.BindShortcuts"));
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    [[nodiscard]] QString introspect(const QString& path) const override;

private:
    [[nodiscard]] bool has(Trait trait) const { return m_traits.contains(trait); }
    void createSession(const QDBusMessage& message);
    void takeWithSession(const QVariantMap& options, QVariantMap& results);
    void bindShortcuts(const QDBusMessage& message);
    void take(const QVariant& shortcuts);
    void respond(uint response, const QVariantMap& results);

    const Answer m_answer;
    const QList<Trait> m_traits;
    QDBusConnection m_bus;
    QString m_request; ///< the path of the last one
};

} // namespace jotwell
