#pragma once

#include "Platform/Updater.h"

namespace jotwell {

/// For a program that others keep up to date.
class NoUpdater : public Updater {
public:
    void start(UpdaterDelegate*) override {}
    void setAutomaticallyChecksForUpdates(bool) override {}
    void setAutomaticallyDownloadsUpdates(bool) override {}
    [[nodiscard]] bool canCheckForUpdates() const override { return false; }
    void checkForUpdates() override {}
    void checkForUpdatesInBackground() override {}
};

} // namespace jotwell
