#pragma once

#include "Platform/FolderWatch.h"

#include <QStringList>

#include <map>

namespace jotwell {

/// Watches that see what a test tells them to see.
class FakeFolderWatcher : public FolderWatcher {
public:
    bool canOpenFolders = true;
    bool canWatch = true;

    [[nodiscard]] bool canOpen(const QString& folder) override;
    [[nodiscard]] std::unique_ptr<FolderWatch> watch(const QString& folder,
                                                     std::function<void()> changed) override;

    /// Raises an event in every live watch on `folder`.
    void touch(const QString& folder);
    /// Folders of the live watches, sorted.
    [[nodiscard]] QStringList watched() const;

private:
    class Watch;
    std::map<const Watch*, std::pair<QString, std::function<void()>>> m_live;
};

} // namespace jotwell
