#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace jotwell {

class FolderWatch;
class FolderWatcher;
class Scheduler;

/// Asks for a scan of the vault whenever its top folder changes, and every five seconds, which
/// catches what the watch can't see. Main thread.
class VaultMonitor : public QObject {
    Q_OBJECT

public:
    /// Starts a scan of the vault at this path; not to wait for it.
    using Scan = std::function<void(const QString& vaultPath)>;

    VaultMonitor(FolderWatcher& watcher, Scheduler& scheduler, Scan scan);
    ~VaultMonitor() override;

    /// In the place of what was watched before. A folder that can't be opened is logged and leaves
    /// nothing watched; one that can't be watched for want of resources is scanned all the same.
    void startFileMonitoring(const QString& vaultPath);
    void stopFileMonitoring();

    [[nodiscard]] const std::optional<QString>& monitoredPath() const { return m_monitoredPath; }
    [[nodiscard]] bool hasFileMonitor() const { return m_fileMonitor != nullptr; }
    [[nodiscard]] bool hasPeriodicScanTimer() const { return m_periodicScanTimer != nullptr; }

private:
    void handleFileSystemChange(const QString& vaultPath);
    void performPeriodicScan();
    void startTimer();
    void scheduleNextScan();

    FolderWatcher& m_watcher;
    Scheduler& m_scheduler;
    Scan m_scan;
    std::optional<QString> m_monitoredPath;
    std::unique_ptr<FolderWatch> m_fileMonitor;
    std::unique_ptr<QObject> m_periodicScanTimer; ///< the context of its next firing
};

} // namespace jotwell
