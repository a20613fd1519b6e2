#include "Platform/linux/DBusDoorObject.h"

namespace jotwell {

namespace {

// A Wayland compositor wants to see what the caller was given when it was started, or it may refuse
// the window the keyboard. Qt looks for it in the environment.
void takeActivationToken(const QVariantMap& platformData)
{
    const QString token = platformData.value(QStringLiteral("activation-token")).toString();
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

} // namespace

void DBusDoorObject::answer(std::function<void()> activate,
                            std::function<void(const QString&)> performAction)
{
    m_activate = std::move(activate);
    m_performAction = std::move(performAction);
}

void DBusDoorObject::Activate(const QVariantMap& platformData)
{
    takeActivationToken(platformData);
    if (m_activate)
        m_activate();
}

void DBusDoorObject::Open(const QStringList&, const QVariantMap& platformData)
{
    Activate(platformData);
}

void DBusDoorObject::ActivateAction(const QString& name, const QVariantList&,
                                    const QVariantMap& platformData)
{
    takeActivationToken(platformData);
    if (m_performAction)
        m_performAction(name);
}

} // namespace jotwell
