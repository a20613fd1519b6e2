#pragma once

#include "Platform/Platform.h"

#include <QString>

#include <memory>

namespace jotwell {

/// The edge of the process as the running system has it, with all its parts. To be made behind the
/// QCoreApplication; main thread.
class NativePlatform {
public:
    /// The settings lie in `settingsFile`, which need not exist.
    explicit NativePlatform(const QString& settingsFile);
    ~NativePlatform();

    [[nodiscard]] const Platform& platform() const;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace jotwell
