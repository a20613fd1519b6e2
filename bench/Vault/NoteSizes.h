#pragma once

#include <cstddef>
#include <vector>

namespace jotwell::bench {

/// The sizes, in bytes, of `count` notes in ascending order, distributed as in real vaults: a
/// log-normal body (median 1.6 KB, p99 30 KB) and a heavier tail that lifts the mean to 3.8 KB.
[[nodiscard]] std::vector<std::size_t> noteSizes(std::size_t count);

} // namespace jotwell::bench
