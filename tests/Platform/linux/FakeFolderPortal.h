#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QVariantMap>

namespace jotwell {

/// The portal for choosing files on the session bus, from its own connection, until it goes. It
/// answers when it is told to.
class FakeFolderPortal : public QDBusVirtualObject {
    Q_OBJECT

public:
    enum class Kind {
        listening,
        without,    ///< has no panels
        old,        ///< of a version without panels for folders
        refusing,   ///< answers the call with an error
        silent,     ///< never answers the call
        speechless, ///< doesn't even tell its version
        naming,     ///< names its request objects in its own way
    };

    explicit FakeFolderPortal(Kind kind = Kind::listening);
    ~FakeFolderPortal() override;

    struct Question {
        QString window;
        QString title;
        QVariantMap options;
        QString request;
    };

    [[nodiscard]] const QList<Question>& questions() const { return m_questions; }
    /// The paths of the requests that have been taken back.
    [[nodiscard]] const QStringList& closed() const { return m_closed; }
    [[nodiscard]] bool waitForQuestions(qsizetype count) const;
    [[nodiscard]] bool waitForClosed(const QString& request) const;
    /// Answers a question; 0 is a success, 1 a refusal by the user, 2 any other end.
    void respond(qsizetype question, uint response, const QVariantMap& results = {});

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;

private:
    bool tellVersion(const QDBusMessage& message);
    bool take(const QDBusMessage& message);

    const Kind m_kind;
    QDBusConnection m_bus;
    QList<Question> m_questions;
    QStringList m_closed;
};

} // namespace jotwell
