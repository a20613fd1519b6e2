#pragma once

#include <QString>

namespace jotwell {

/// Shows `token`, if there is one, to the compositor with the next window. A Wayland compositor
/// wants to see what the caller was given for the user's wish, or it may refuse the keyboard. An
/// earlier one that nothing came of is worth nothing any more.
inline void useActivationToken(const QString& token)
{
    constexpr auto variable = "XDG_ACTIVATION_TOKEN"; // where Qt looks for it, and takes it away
    if (token.isEmpty())
        qunsetenv(variable);
    else
        qputenv(variable, token.toUtf8());
}

} // namespace jotwell
