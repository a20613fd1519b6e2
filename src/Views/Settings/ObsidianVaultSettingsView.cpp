#include "Views/Settings/ObsidianVaultSettingsView.h"

#include "Platform/FolderPanel.h"
#include "Platform/Scheduler.h"
#include "Services/SettingsService.h"
#include "Support/DateText.h"
#include "Support/FolderWalk.h"

#include <QGuiApplication>

#include <utility>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

} // namespace

ObsidianVaultSettingsView::ObsidianVaultSettingsView(const VaultSettingsServices& services,
                                                     QObject* parent)
    : SettingsScreen(parent), m_services(services), m_progress(services.index, services.scheduler),
      m_badge(services.index, services.clock)
{
    using Service = TagIndexService;
    for (const auto signal : {&Service::isIndexingChanged, &Service::lastIndexUpdateChanged,
                              &Service::indexStatusChanged})
        connect(&m_services.index, signal, this, &ObsidianVaultSettingsView::updateStatus);
    updateStatus();
}

QString ObsidianVaultSettingsView::indexStatusText(const IndexStatus& status,
                                                   std::optional<Clock::TimePoint> lastIndexUpdate,
                                                   Clock::TimePoint now)
{
    switch (status.kind) {
    case IndexStatus::Kind::notStarted:
        return QStringLiteral("Index not built. Build the index to enable fast search.");
    case IndexStatus::Kind::error:
        return QStringLiteral("Error: ") + status.message;
    case IndexStatus::Kind::building:
    case IndexStatus::Kind::ready:
    case IndexStatus::Kind::updating:
        break;
    }
    return lastIndexUpdate ? QStringLiteral("Index last updated ") +
                                 relativeDate(*lastIndexUpdate, now, UnitsStyle::abbreviated)
                           : QStringLiteral("Index is ready");
}

void ObsidianVaultSettingsView::setObsidianFolderPath(const QString& text)
{
    if (std::exchange(m_obsidianFolderPath, text) != text)
        emit obsidianFolderPathChanged();
}

void ObsidianVaultSettingsView::appear()
{
    loadSettings();
    connect(qApp, &QGuiApplication::focusWindowChanged, this,
            &ObsidianVaultSettingsView::loadSettings, Qt::UniqueConnection);
    m_timer = std::make_unique<QObject>();
    updateEachMinute();
}

void ObsidianVaultSettingsView::disappear()
{
    m_panel.reset();
    m_timer.reset();
    disconnect(qApp, nullptr, this, nullptr);
    commitPath();
}

void ObsidianVaultSettingsView::loadSettings()
{
    const bool isBeingTyped = m_obsidianFolderPath != m_storedPath;
    m_storedPath = m_services.settings.obsidianFolderPath();
    if (!isBeingTyped)
        setObsidianFolderPath(m_storedPath);
}

void ObsidianVaultSettingsView::commitPath()
{
    if (m_obsidianFolderPath != m_storedPath)
        changePath(withHome(m_obsidianFolderPath));
}

// Another program may have stored a path meanwhile.
void ObsidianVaultSettingsView::changePath(const QString& path)
{
    const bool isNew = path != m_services.settings.obsidianFolderPath();
    m_storedPath = path;
    setObsidianFolderPath(path);
    if (!isNew)
        return;
    m_services.settings.setObsidianFolderPath(path);
    if (!path.isEmpty())
        buildIndex(path);
}

void ObsidianVaultSettingsView::browse(QWindow* window)
{
    m_panel = std::make_unique<QObject>();
    FolderQuestion question;
    question.message = QStringLiteral("Obsidian Vault");
    question.prompt = QStringLiteral("Select Obsidian Vault Folder");
    question.folder = withHome(m_obsidianFolderPath);
    m_services.folders.choose(question, window, m_panel.get(),
                              [this](const QString& path) { changePath(path); });
}

void ObsidianVaultSettingsView::rebuildIndex()
{
    commitPath();
    if (hasPath() && !m_services.index.isIndexing())
        buildIndex(m_obsidianFolderPath);
}

// A build goes on though the window closes.
void ObsidianVaultSettingsView::buildIndex(const QString& path)
{
    QCoro::connect(m_services.index.buildIndex(path), &m_services.index, [] {});
}

// While a build runs, its progress stands there instead.
void ObsidianVaultSettingsView::updateStatus()
{
    const TagIndexService& index = m_services.index;
    if (index.isIndexing())
        return;
    QString text =
        indexStatusText(index.indexStatus(), index.lastIndexUpdate(), m_services.clock.now());
    if (std::exchange(m_indexStatusText, text) != text)
        emit indexStatusTextChanged();
}

void ObsidianVaultSettingsView::updateEachMinute()
{
    updateStatus();
    m_badge.update();
    m_services.scheduler.after(1min, m_timer.get(), [this] { updateEachMinute(); });
}

} // namespace jotwell
