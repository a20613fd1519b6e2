#include "Fakes/FakeFolderWatcher.h"

namespace jotwell {

class FakeFolderWatcher::Watch : public FolderWatch {
public:
    explicit Watch(FakeFolderWatcher& watcher) : m_watcher(watcher) {}
    ~Watch() override { m_watcher.m_live.erase(this); }

private:
    FakeFolderWatcher& m_watcher;
};

bool FakeFolderWatcher::canOpen(const QString& /*folder*/)
{
    return canOpenFolders;
}

std::unique_ptr<FolderWatch> FakeFolderWatcher::watch(const QString& folder,
                                                      std::function<void()> changed)
{
    if (!canWatch)
        return nullptr;
    auto watch = std::make_unique<Watch>(*this);
    m_live.emplace(watch.get(), std::pair(folder, std::move(changed)));
    return watch;
}

void FakeFolderWatcher::touch(const QString& folder)
{
    const auto live = m_live; // the receiver may end its watch
    for (const auto& [watch, content] : live) {
        if (content.first == folder)
            content.second();
    }
}

QStringList FakeFolderWatcher::watched() const
{
    QStringList folders;
    for (const auto& [watch, content] : m_live)
        folders.append(content.first);
    folders.sort();
    return folders;
}

} // namespace jotwell
