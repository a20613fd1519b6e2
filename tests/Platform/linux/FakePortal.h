#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <QVariantMap>

namespace jotwell {

/// The settings portal on the session bus, from its own connection, until it goes.
class FakePortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    enum class Kind {
        answering,
        silent,   ///< answers when it is told to
        refusing, ///< answers with an error
        babbling, ///< answers with something else
        nameless, ///< isn't the portal at all
    };

    explicit FakePortal(Kind kind = Kind::answering);
    ~FakePortal() override;

    void setColorScheme(const QVariant& value);
    void setContrast(const QVariant& value);
    void setAccessibleContrast(const QVariant& value);

    // These tell of it as well.

    void changeColorScheme(const QVariant& value);
    void changeContrast(const QVariant& value);
    void changeAccessibleContrast(const QVariant& value);

    [[nodiscard]] int questions() const { return static_cast<int>(m_questions.size()); }
    /// Waits until there is a question and what came of it has been dealt with.
    [[nodiscard]] bool wasAsked() const;
    /// Answers all questions that are open with that preference.
    void answerAll(uint colorScheme);

public slots:
    Q_SCRIPTABLE QMap<QString, QVariantMap> ReadAll(const QStringList& groups);

signals:
    Q_SCRIPTABLE void SettingChanged(const QString& group, const QString& key,
                                     const QDBusVariant& value);

private:
    const Kind m_kind;
    QDBusConnection m_bus;
    QMap<QString, QVariantMap> m_settings;
    QList<QDBusMessage> m_questions;
};

} // namespace jotwell
