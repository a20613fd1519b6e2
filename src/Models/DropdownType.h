#pragma once

namespace jotwell {

/// Which list the dropdown serves.
enum class DropdownType { command, noteTemplate, folder, hashtag, none };

} // namespace jotwell
