#include "Services/SparkleUpdateManager.h"

#include "Platform/BuildSettings.h"
#include "Platform/Scheduler.h"
#include "Platform/Workspace.h"
#include "Services/ToastManager.h"
#include "Support/Logging.h"

#include <QUrl>

namespace jotwell {

using namespace std::chrono_literals;

namespace {

const QString logCategory = QStringLiteral("SparkleUpdateManager");

// How long a check that the user asked for has before its result is told, whatever it is by then.
constexpr auto timeUntilResult = 2s;

// What a feed names is handed to the desktop, where another scheme could start anything.
std::optional<QString> httpsAddress(const std::optional<QString>& address)
{
    const QUrl url(address.value_or(QString()), QUrl::StrictMode);
    if (!url.isValid() || url.scheme() != u"https" || url.host().isEmpty())
        return std::nullopt;
    return url.toString(QUrl::FullyEncoded);
}

} // namespace

SparkleUpdateManager::SparkleUpdateManager(Updater& updater, Workspace& workspace,
                                           Scheduler& scheduler, ToastManager& toasts)
    : m_updater(updater), m_workspace(workspace), m_scheduler(scheduler), m_toasts(toasts)
{
    m_updater.start(this);
    m_updater.setAutomaticallyChecksForUpdates(m_checksAutomatically);
    m_updater.setAutomaticallyDownloadsUpdates(m_downloadsAutomatically);
    m_canCheck = m_updater.canCheckForUpdates();
}

SparkleUpdateManager::~SparkleUpdateManager()
{
    m_updater.start(nullptr);
}

void SparkleUpdateManager::setAutomaticallyChecksForUpdates(bool checks)
{
    if (checks == m_checksAutomatically)
        return;
    m_checksAutomatically = checks;
    m_updater.setAutomaticallyChecksForUpdates(checks);
    emit automaticallyChecksForUpdatesChanged();
}

void SparkleUpdateManager::setAutomaticallyDownloadsUpdates(bool downloads)
{
    if (downloads == m_downloadsAutomatically)
        return;
    m_downloadsAutomatically = downloads;
    m_updater.setAutomaticallyDownloadsUpdates(downloads);
    emit automaticallyDownloadsUpdatesChanged();
}

void SparkleUpdateManager::checkForUpdates()
{
    forgetUpdate();
    m_updater.checkForUpdates();
}

void SparkleUpdateManager::checkForUpdatesInBackground()
{
    forgetUpdate();
    m_updater.checkForUpdatesInBackground();
}

void SparkleUpdateManager::openLandingPage()
{
    if (const auto page = httpsAddress(m_releaseNotes.value_or(build::landingPage)))
        m_workspace.openUrl(*page);
}

MenuEntry SparkleUpdateManager::createUpdateMenuItem()
{
    MenuEntry entry;
    if (m_updateAvailable) {
        entry.title = QStringLiteral("Download Update... (v%1)").arg(namedVersion());
        entry.action = [this] { downloadUpdateAction(); };
    } else {
        entry.title = QStringLiteral("Check for Updates...");
        entry.action = [this] { checkForUpdatesAction(); };
        entry.isEnabled = m_canCheck;
    }
    return entry;
}

void SparkleUpdateManager::checkForUpdatesAction()
{
    checkForUpdates();
    m_scheduler.after(timeUntilResult, this, [this] { tellResult(); });
}

void SparkleUpdateManager::tellResult()
{
    if (m_updateAvailable)
        m_toasts.showSuccess(QStringLiteral("Update available! Click 'Download Update' in the menu "
                                            "to get version ") +
                             namedVersion());
    else
        m_toasts.showSuccess(QStringLiteral("You're using the latest version"));
}

void SparkleUpdateManager::downloadUpdateAction()
{
    openLandingPage();
}

QString SparkleUpdateManager::feedURLString() const
{
    return build::updateFeed;
}

void SparkleUpdateManager::didFinishLoading(int itemCount)
{
    logInfo(logCategory,
            QStringLiteral("Sparkle: Successfully loaded appcast with %1 items").arg(itemCount));
}

void SparkleUpdateManager::didFindValidUpdate(const AppcastItem& item)
{
    setUpdate(true, item.displayVersionString, httpsAddress(item.infoUrl));
    emit menuChanged();
    m_toasts.showSuccess(QStringLiteral("Update v") + item.displayVersionString +
                         QStringLiteral(" is available! Check the menu bar to download."));
}

void SparkleUpdateManager::didNotFindUpdate()
{
    forgetUpdate();
}

void SparkleUpdateManager::willDownloadUpdate(const AppcastItem& item)
{
    m_toasts.showSuccess(QStringLiteral("Downloading update v") + item.displayVersionString);
}

void SparkleUpdateManager::willInstallUpdate(const AppcastItem& item)
{
    m_toasts.showSuccess(QStringLiteral("Installing update v") + item.displayVersionString);
}

void SparkleUpdateManager::failedToDownloadUpdate(const QString& description)
{
    m_toasts.showError(QStringLiteral("Failed to download update: ") + description);
}

void SparkleUpdateManager::didChangeCanCheckForUpdates()
{
    const bool canCheck = m_updater.canCheckForUpdates();
    if (canCheck == m_canCheck)
        return;
    m_canCheck = canCheck;
    emit canCheckForUpdatesChanged();
    emit menuChanged();
}

QString SparkleUpdateManager::namedVersion() const
{
    const QString version = latestVersionText();
    return version.isEmpty() ? QStringLiteral("new") : version;
}

void SparkleUpdateManager::setUpdate(bool isAvailable, const std::optional<QString>& version,
                                     const std::optional<QString>& releaseNotes)
{
    const bool availableChanged = m_updateAvailable != isAvailable;
    const bool versionChanged = m_latestVersion != version;
    const bool releaseNotesChanged = m_releaseNotes != releaseNotes;
    m_updateAvailable = isAvailable;
    m_latestVersion = version;
    m_releaseNotes = releaseNotes;
    if (availableChanged)
        emit updateAvailableChanged();
    if (versionChanged)
        emit latestVersionChanged();
    if (releaseNotesChanged)
        emit releaseNotesURLChanged();
}

// The menu is only made anew where it would offer what isn't there any more.
void SparkleUpdateManager::forgetUpdate()
{
    const bool wasOffered = m_updateAvailable;
    setUpdate(false, std::nullopt, std::nullopt);
    if (wasOffered)
        emit menuChanged();
}

} // namespace jotwell
