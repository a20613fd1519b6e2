#pragma once

#include "Platform/FileSystems.h"

namespace jotwell {

/// Trusts the local disk file systems that are known to keep change times, and nothing else.
class LinuxFileSystems : public FileSystems {
public:
    [[nodiscard]] std::optional<bool> keepsChangeTimes(const char* path) override;
};

} // namespace jotwell
