#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace jotwell {

/// What stands on the bus at the door. Calls reach it by the event loop of the thread that it lives
/// in, the main thread, and so wait for a start to be over.
class DBusDoorObject : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    void answer(std::function<void()> activate, std::function<void(const QString&)> performAction);

public slots:
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameter,
                                     const QVariantMap& platformData);

private:
    std::function<void()> m_activate;
    std::function<void(const QString&)> m_performAction;
};

} // namespace jotwell
