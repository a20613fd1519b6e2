#pragma once

#include <QString>

namespace jotwell {

/// Shows `token`, if there is one, to the compositor with the next window. A Wayland compositor
/// wants to see what the caller was given for the user's wish, or it may refuse the keyboard.
inline void useActivationToken(const QString& token)
{
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8()); // where Qt looks for it
}

} // namespace jotwell
