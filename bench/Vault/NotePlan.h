#pragma once

#include "Vault/Vocabulary.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace jotwell::bench {

/// What one note of a vault is to be like.
struct NotePlan {
    std::size_t number = 0;
    std::size_t size = 0; ///< bytes
    bool hasFrontMatter = false;
    bool hasLinks = false;
    bool hasTags = false;
    Script script = Script::plain;
    std::size_t folder = 0;            ///< of `VaultPlan::folders`
    std::int64_t modificationTime = 0; ///< nanoseconds since 1970
};

} // namespace jotwell::bench
