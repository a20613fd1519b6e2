#pragma once

#include "Samples.h"

#include <cstddef>
#include <string>
#include <vector>

namespace jotwell::bench {

using Texts = std::vector<std::string>;

[[nodiscard]] std::size_t byteCount(const Texts& texts);

/// The time in which one thread cleans all texts and finds their tags.
[[nodiscard]] Samples::Clock::duration timeToClean(const Texts& texts);

} // namespace jotwell::bench
