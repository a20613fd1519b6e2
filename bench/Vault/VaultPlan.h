#pragma once

#include "Vault/NotePlan.h"

#include <string>
#include <vector>

namespace jotwell::bench {

/// What real vaults are like, and ours therefore are.
namespace statistics {
constexpr double meanSize = 3800; // bytes
constexpr double medianSize = 1600;
constexpr double percentile99Size = 30'000;
constexpr double withFrontMatter = 0.43; // of all notes
constexpr double withLinks = 0.29;
constexpr double withTags = 0.34;
constexpr double beyondAscii = 0.20;
constexpr double foldersPerNote = 0.061;
} // namespace statistics

/// A vault before its texts are written. The same for the same number of notes.
struct VaultPlan {
    std::vector<std::string> folders; ///< below the vault, parents first; the first is the vault
    std::vector<NotePlan> notes;
};

[[nodiscard]] VaultPlan planVault(std::size_t noteCount, const Vocabulary& vocabulary);

/// A note's name without its extension, which no other note has.
[[nodiscard]] std::string noteTitle(const NotePlan& note, const Vocabulary& vocabulary);

} // namespace jotwell::bench
