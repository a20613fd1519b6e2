#pragma once

#include "Vault/VaultPlan.h"

#include <string>

namespace jotwell::bench {

/// The Markdown of `note`: exactly as many bytes as planned, valid UTF-8, with what real notes are
/// made of. The same for the same plan. Any thread.
[[nodiscard]] std::string noteText(const NotePlan& note, const VaultPlan& plan,
                                   const Vocabulary& vocabulary);

} // namespace jotwell::bench
