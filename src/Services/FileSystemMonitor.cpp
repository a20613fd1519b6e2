#include "Services/FileSystemMonitor.h"

namespace jotwell {

FileSystemMonitor::FileSystemMonitor(FolderWatcher& watcher, QString path,
                                     std::function<void()> callback)
    : m_watcher(watcher), m_path(std::move(path)), m_callback(std::move(callback))
{
}

void FileSystemMonitor::start()
{
    m_source = m_watcher.watch(m_path, m_callback);
}

void FileSystemMonitor::stop()
{
    m_source.reset();
}

} // namespace jotwell
