#pragma once

#include "Fakes/FakeFolderPanel.h"
#include "Fakes/FakeWindowSystem.h"
#include "Platform/InstanceDoor.h"
#include "Platform/StatusItem.h"
#include "Platform/TerminationSignals.h"

#include <utility>

namespace jotwell {

/// A door at which the test knocks.
class FakeInstanceDoor : public InstanceDoor {
public:
    std::function<void()> activate;
    std::function<void(const QString&)> performAction;

    [[nodiscard]] Claim claim() override { return Claim::owner; }
    void answer(std::function<void()> itsActivate,
                std::function<void(const QString&)> itsPerformAction) override
    {
        activate = std::move(itsActivate);
        performAction = std::move(itsPerformAction);
    }
};

/// An item whose menu the test reads and clicks.
class FakeStatusItem : public StatusItem {
public:
    std::vector<MenuEntry> menu;
    std::function<void()> action;

    void setMenu(std::vector<MenuEntry> entries) override { menu = std::move(entries); }
    void setAction(std::function<void()> its) override { action = std::move(its); }
};

/// A system that asks the program to end when the test does.
class FakeTerminationSignals : public TerminationSignals {
public:
    std::function<void()> requested;

    void listen(std::function<void()> its) override { requested = std::move(its); }
};

/// All that a desktop has for a program as a whole.
struct FakeDesktop {
    FakeInstanceDoor door;
    FakeStatusItem statusItem;
    FakeWindowSystem windows;
    FakeTerminationSignals terminationSignals;
    FakeFolderPanel folders;
};

} // namespace jotwell
