#pragma once

namespace jotwell {

/// Opens the desktop's own settings of its keys, for the user to bind one to the program there,
/// where we know them; else tells on standard error what there is to do.
void openKeyboardSettings();

} // namespace jotwell
