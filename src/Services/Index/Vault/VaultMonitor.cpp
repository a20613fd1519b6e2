#include "Services/Index/Vault/VaultMonitor.h"

#include "Platform/FolderWatch.h"
#include "Platform/Scheduler.h"
#include "Support/Logging.h"

namespace jotwell {

using namespace std::chrono_literals;

namespace {

constexpr auto eventToScan = 300ms;
constexpr auto periodicScanInterval = 5s;

} // namespace

VaultMonitor::VaultMonitor(FolderWatcher& watcher, Scheduler& scheduler, Scan scan)
    : m_watcher(watcher), m_scheduler(scheduler), m_scan(std::move(scan))
{
}

VaultMonitor::~VaultMonitor() = default;

void VaultMonitor::startFileMonitoring(const QString& vaultPath)
{
    stopFileMonitoring();
    if (!m_watcher.canOpen(vaultPath)) {
        logError(QStringLiteral("TagIndex"),
                 QStringLiteral("Failed to open path for monitoring: ") + vaultPath);
        return;
    }
    m_fileMonitor =
        m_watcher.watch(vaultPath, [this, vaultPath] { handleFileSystemChange(vaultPath); });
    m_monitoredPath = vaultPath;
    m_scheduler.after({}, this, [this] { startTimer(); });
}

void VaultMonitor::stopFileMonitoring()
{
    m_fileMonitor.reset();
    m_monitoredPath.reset();
    m_scheduler.after({}, this, [this] { m_periodicScanTimer.reset(); });
}

// Each event has a scan of its own: none puts off another.
void VaultMonitor::handleFileSystemChange(const QString& vaultPath)
{
    m_scheduler.resumeAfter(eventToScan, this, [this, vaultPath] { m_scan(vaultPath); });
}

void VaultMonitor::performPeriodicScan()
{
    if (m_monitoredPath)
        m_scan(*m_monitoredPath);
}

void VaultMonitor::startTimer()
{
    m_periodicScanTimer = std::make_unique<QObject>();
    scheduleNextScan();
}

void VaultMonitor::scheduleNextScan()
{
    m_scheduler.after(periodicScanInterval, m_periodicScanTimer.get(), [this] {
        scheduleNextScan();
        performPeriodicScan();
    });
}

} // namespace jotwell
