#pragma once

#include <QProcess>
#include <QString>

#include <memory>
#include <optional>

namespace jotwell {

/// What this test program does as its own child.
enum class ChildRole {
    start,       ///< claims the door, and tells by its status how that went
    hangAtDoor,  ///< claims the door, prints a line and never answers
    awaitSignal, ///< listens for requests to end, prints a line, ends with `endedByRequest`
};

inline constexpr int becameOwner = 10;
inline constexpr int wasDelivered = 20;
inline constexpr int endedByRequest = 30;

/// The exit status of the role that the command line names; none if it names none.
[[nodiscard]] std::optional<int> playChildRole(int argc, char** argv);

using Environment = std::initializer_list<std::pair<QString, QString>>;

/// Starts this program as a child; it dies with its parent.
[[nodiscard]] std::unique_ptr<QProcess> startChild(ChildRole role, Environment environment = {});

} // namespace jotwell
