#pragma once

#include "Platform/FileSystems.h"

#include <atomic>

namespace jotwell {

/// File systems that are as trustworthy as a test says.
struct FakeFileSystems : FileSystems {
    std::atomic<bool> keepsTimes = true;

    [[nodiscard]] std::optional<bool> keepsChangeTimes(const char* /*path*/) override
    {
        return keepsTimes.load();
    }
};

} // namespace jotwell
