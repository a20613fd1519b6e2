#pragma once

#include <QString>

#include <functional>

namespace jotwell {

/// The lock that keeps one Jotwell to a user's session, and the door through which a second start,
/// a desktop action or a key bound in the desktop's settings reaches the one that runs.
class InstanceDoor {
public:
    enum class Claim {
        owner,    ///< this process is the one; it must answer at the door
        delivered ///< another process is the one and has been told; this one is to end
    };

    virtual ~InstanceDoor() = default;

    /// Takes the lock or hands this start over to its holder. Needs a QCoreApplication only for the
    /// calls that come in later.
    [[nodiscard]] virtual Claim claim() = 0;

    /// Who answers from now on: `activate` for a second start, `performAction` for a desktop action
    /// by its name. Both are called on the main thread.
    virtual void answer(std::function<void()> activate,
                        std::function<void(const QString&)> performAction) = 0;
};

} // namespace jotwell
