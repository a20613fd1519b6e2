#pragma once

#include "Platform/FileSystems.h"

namespace jotwell {

/// Trusts the local disk file systems that are known to keep change times, and nothing else. Those
/// in memory aren't among them: they take no note of writes through a memory map.
class LinuxFileSystems : public FileSystems {
public:
    [[nodiscard]] std::optional<bool> keepsChangeTimes(const char* path) override;

    /// The same for a kind of file system, by its magic number.
    [[nodiscard]] static bool kindKeepsChangeTimes(unsigned long magic);
};

} // namespace jotwell
