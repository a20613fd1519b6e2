#pragma once

#include <QString>

namespace jotwell {

/// The desktop as a receiver of URLs.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Hands an already encoded URL to the desktop, character for character, and doesn't wait for
    /// what becomes of it. Main thread.
    virtual void openUrl(const QString& url) = 0;
};

} // namespace jotwell
