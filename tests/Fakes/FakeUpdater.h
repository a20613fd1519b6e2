#pragma once

#include "Platform/Updater.h"

namespace jotwell {

/// An updater that finds what the test lets it find.
class FakeUpdater : public Updater {
public:
    UpdaterDelegate* delegate = nullptr;
    bool canCheck = true;
    bool checksAutomatically = false;
    bool downloadsAutomatically = false;
    int checks = 0;           ///< that the user asked for
    int backgroundChecks = 0; ///< that went without

    void start(UpdaterDelegate* its) override { delegate = its; }
    void setAutomaticallyChecksForUpdates(bool its) override { checksAutomatically = its; }
    void setAutomaticallyDownloadsUpdates(bool its) override { downloadsAutomatically = its; }
    [[nodiscard]] bool canCheckForUpdates() const override { return canCheck; }
    void checkForUpdates() override { ++checks; }
    void checkForUpdatesInBackground() override { ++backgroundChecks; }
};

} // namespace jotwell
