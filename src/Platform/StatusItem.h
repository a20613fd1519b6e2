#pragma once

#include "Platform/KeyEvent.h"

#include <QString>

#include <functional>
#include <vector>

namespace jotwell {

/// One line of the status item's menu; an entry without a title is a separator.
struct MenuEntry {
    QString title;
    std::function<void()> action;
    QString keyEquivalent; ///< the key that is shown beside the title, empty for none
    quint64 keyEquivalentModifierMask = ModifierBit::command;
    bool isEnabled = true;
};

/// Jotwell's item in the desktop's tray. It shows itself whenever the desktop has a place for it,
/// and asking for it never waits and never fails. Main thread only.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// Replaces the whole menu.
    virtual void setMenu(std::vector<MenuEntry> entries) = 0;
    /// What a plain click on the item does, where the desktop doesn't open the menu for it.
    virtual void setAction(std::function<void()> action) = 0;
};

} // namespace jotwell
