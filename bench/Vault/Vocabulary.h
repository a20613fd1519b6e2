#pragma once

#include "Vault/RandomSource.h"
#include "Vault/ZipfRanks.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace jotwell::bench {

/// What a note is written in. All but `plain` go beyond ASCII.
enum class Script { plain, umlauts, cyrillic, han, emoji };

/// Made-up words, the lower the rank the more frequent, as in a natural language. No word holds the
/// letter "q": what does is absent from every note.
class Vocabulary {
public:
    static constexpr std::size_t size = 40'000;

    Vocabulary();

    /// In lower case; of rank 0 up to `size`.
    [[nodiscard]] const std::string& word(Script script, std::size_t rank) const;
    /// A word as it comes up in running text.
    [[nodiscard]] const std::string& randomWord(Script script, RandomSource& random) const
    {
        return word(script, m_ranks.random(random));
    }

private:
    using Words = std::vector<std::string>;

    Words& words(Script script) { return m_words[static_cast<std::size_t>(script)]; }

    std::array<Words, 4> m_words; ///< emoji go with plain words
    ZipfRanks m_ranks{size};
};

[[nodiscard]] const std::string& randomEmoji(RandomSource& random);

/// The word with a capital first letter.
[[nodiscard]] std::string capitalised(const std::string& word);

} // namespace jotwell::bench
