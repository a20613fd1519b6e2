#pragma once

#include "Platform/Platform.h"

#include <QString>

#include <memory>

namespace jotwell {

/// The edge of the process as the running system has it, with all its parts. To be made behind the
/// QCoreApplication; main thread.
class NativePlatform {
public:
    /// The settings lie in `settingsFile`, what the program keeps for itself in the folder
    /// `applicationSupport`; neither need exist.
    NativePlatform(const QString& settingsFile, const QString& applicationSupport);
    ~NativePlatform();

    [[nodiscard]] const Platform& platform() const;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace jotwell
