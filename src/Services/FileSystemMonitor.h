#pragma once

#include "Platform/FolderWatch.h"

#include <QString>

#include <functional>
#include <memory>

namespace jotwell {

/// A watch on one folder that can be started and stopped; making it starts nothing. Main thread.
class FileSystemMonitor {
public:
    FileSystemMonitor(FolderWatcher& watcher, QString path, std::function<void()> callback);

    [[nodiscard]] const QString& path() const { return m_path; }

    /// Calls back on each event from now on. A folder that can't be watched stays unwatched.
    void start();
    void stop();

private:
    FolderWatcher& m_watcher;
    QString m_path;
    std::function<void()> m_callback;
    std::unique_ptr<FolderWatch> m_source;
};

} // namespace jotwell
