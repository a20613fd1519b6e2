#pragma once

#include "Platform/InstanceDoor.h"

#include <QDBusConnection>

#include <memory>
#include <optional>

class QLockFile;

namespace jotwell {

class DBusDoorObject;

/// The name com.jotwell.Jotwell on the session bus, with org.freedesktop.Application as the door.
/// Without a session bus a lock file in the user's runtime folder keeps a second start away.
class DBusInstanceDoor : public InstanceDoor {
public:
    DBusInstanceDoor();
    ~DBusInstanceDoor() override;

    [[nodiscard]] Claim claim() override;
    void answer(std::function<void()> activate,
                std::function<void(const QString&)> performAction) override;

private:
    [[nodiscard]] bool takeName();
    [[nodiscard]] std::optional<Claim> handOver();
    [[nodiscard]] Claim claimLockFile();

    QDBusConnection m_bus;
    std::unique_ptr<DBusDoorObject> m_object;
    std::unique_ptr<QLockFile> m_lockFile;
};

} // namespace jotwell
