#pragma once

namespace jotwell {

enum class ArrowDirection { up, down };

} // namespace jotwell
