#pragma once

#include "Vault/RandomSource.h"

#include <cstddef>
#include <vector>

namespace jotwell::bench {

/// Draws ranks as often as words of that rank come up in a natural language.
class ZipfRanks {
public:
    explicit ZipfRanks(std::size_t count);

    [[nodiscard]] std::size_t random(RandomSource& random) const;

private:
    /// Walker's alias table: each rank is kept with this share, or else gives way to another one.
    std::vector<double> m_keep;
    std::vector<std::size_t> m_alias;
};

} // namespace jotwell::bench
