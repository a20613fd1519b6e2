#pragma once

#include "Platform/FolderWatch.h"

namespace jotwell {

/// Watches folders by inotify. Each watch follows the folder itself, also under another name.
class InotifyFolderWatcher : public FolderWatcher {
public:
    [[nodiscard]] bool canOpen(const QString& folder) override;
    [[nodiscard]] std::unique_ptr<FolderWatch> watch(const QString& folder,
                                                     std::function<void()> changed) override;
};

} // namespace jotwell
