#pragma once

#include "Services/Index/Search/ByteRunFilter.h"

#include <string_view>
#include <vector>

namespace jotwell {

/// The part of a term by which it is looked for: runs of bytes, one of which lies in every text
/// that holds the term, where the term's characters from `first` on are.
struct LowercaseAnchor {
    std::size_t first = 0;
    std::vector<ByteRunFilter> filters;
};

/// The anchor of a lower-case term that is likely to be found fast. Any thread.
[[nodiscard]] LowercaseAnchor chooseAnchor(std::u32string_view term);

/// Whether the character at `place` may have come out of the one that becomes two together with
/// one beside it, so that it has no bytes of its own.
[[nodiscard]] bool mayShareItsOrigin(std::u32string_view term, std::size_t place);

} // namespace jotwell
