#pragma once

#include <QString>

namespace jotwell {

/// What stands on the keys of the user's keyboard. Main thread only.
class KeyNames {
public:
    virtual ~KeyNames() = default;

    /// The word on the key of a modifier, given as one of the symbols ⌘ ⌥ ⌃ ⇧; any other text as
    /// it is.
    [[nodiscard]] virtual QString nameOf(const QString& key) const = 0;
};

} // namespace jotwell
