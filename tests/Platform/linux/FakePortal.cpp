#include "Platform/linux/FakePortal.h"

#include <QDBusMetaType>
#include <QTest>
#include <QUuid>

namespace jotwell {

namespace {

using Settings = QMap<QString, QVariantMap>;

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString accessibility = QStringLiteral("org.gnome.desktop.a11y.interface");

// What lies between an answer and what is made of it.
constexpr int ofTheBus = 50;

} // namespace

FakePortal::FakePortal(Kind kind)
    : m_kind(kind), m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                                        QUuid::createUuid().toString()))
{
    qDBusRegisterMetaType<Settings>();
    m_bus.registerObject(path, this, QDBusConnection::ExportScriptableContents);
    if (m_kind != Kind::nameless)
        m_bus.registerService(service);
}

FakePortal::~FakePortal()
{
    QDBusConnection::disconnectFromBus(m_bus.name());
}

void FakePortal::setColorScheme(const QVariant& value)
{
    m_settings[appearance][QStringLiteral("color-scheme")] = value;
}

void FakePortal::setContrast(const QVariant& value)
{
    m_settings[appearance][QStringLiteral("contrast")] = value;
}

void FakePortal::setAccessibleContrast(const QVariant& value)
{
    m_settings[accessibility][QStringLiteral("high-contrast")] = value;
}

void FakePortal::changeColorScheme(const QVariant& value)
{
    setColorScheme(value);
    emit SettingChanged(appearance, QStringLiteral("color-scheme"), QDBusVariant(value));
}

void FakePortal::changeContrast(const QVariant& value)
{
    setContrast(value);
    emit SettingChanged(appearance, QStringLiteral("contrast"), QDBusVariant(value));
}

void FakePortal::changeAccessibleContrast(const QVariant& value)
{
    setAccessibleContrast(value);
    emit SettingChanged(accessibility, QStringLiteral("high-contrast"), QDBusVariant(value));
}

bool FakePortal::wasAsked() const
{
    const bool was = QTest::qWaitFor([this] { return !m_questions.isEmpty(); }, 3000);
    QTest::qWait(ofTheBus);
    return was;
}

void FakePortal::answerAll(uint colorScheme)
{
    setColorScheme(colorScheme);
    for (const QDBusMessage& question : m_questions)
        m_bus.send(question.createReply(QVariant::fromValue(m_settings)));
}

Settings FakePortal::ReadAll(const QStringList& groups)
{
    m_questions.append(message());
    Settings asked;
    for (const QString& group : groups) {
        if (m_settings.contains(group))
            asked.insert(group, m_settings[group]);
    }
    if (m_kind == Kind::silent)
        setDelayedReply(true);
    else if (m_kind == Kind::refusing)
        sendErrorReply(QDBusError::AccessDenied, QStringLiteral("no"));
    else if (m_kind == Kind::babbling) {
        setDelayedReply(true);
        m_bus.send(message().createReply(QStringLiteral("dark")));
    }
    return asked;
}

} // namespace jotwell
