#include "Platform/linux/DBusDoorObject.h"

#include "Platform/linux/ActivationToken.h"

namespace jotwell {

namespace {

void takeActivationToken(const QVariantMap& platformData)
{
    useActivationToken(platformData.value(QStringLiteral("activation-token")).toString());
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
