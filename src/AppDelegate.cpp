#include "AppDelegate.h"

#include "Platform/DefaultsStore.h"
#include "Platform/InstanceDoor.h"
#include "Platform/Platform.h"
#include "Platform/Scheduler.h"
#include "Platform/StatusItem.h"
#include "Platform/TerminationSignals.h"
#include "Services/CommandService.h"
#include "Services/GlobalHotkeyManager.h"
#include "Services/LaunchAtLoginManager.h"
#include "Services/SettingsService.h"
#include "Services/SparkleUpdateManager.h"
#include "Services/TagIndexService.h"
#include "Services/TemplateSyncService.h"
#include "Services/ToastManager.h"
#include "StatusMenu.h"
#include "Support/Background.h"
#include "Support/Logging.h"
#include "Views/FloatingWindow.h"
#include "Views/FloatingWindowView.h"
#include "Views/LocalKeyMonitor.h"
#include "Views/Onboarding/OnboardingView.h"
#include "Views/SecondaryWindow.h"
#include "Views/Settings/SettingsWindowController.h"

#include <QDeadlineTimer>
#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QThreadPool>

namespace jotwell {

using namespace std::chrono_literals;

namespace {

constexpr auto idlePollInterval = 5ms;
// Two turns: a result that has just arrived may make its receiver start the next piece of work.
constexpr int idleTurnsNeeded = 2;
// A file system that doesn't answer any more must not keep the program alive for ever.
constexpr auto longestWait = 30s;
constexpr int idleTurnsAtMost = longestWait / idlePollInterval;

} // namespace

AppDelegate::AppDelegate(Desktop desktop, const Platform& platform)
    : m_desktop(desktop), m_platform(platform), m_scheduler(platform.scheduler),
      m_settings(SettingsService::shared()), m_localKeyMonitor(std::make_unique<LocalKeyMonitor>(
                                                 m_settings, m_scheduler, m_desktop.windows))
{
}

// What can be knocked at or clicked outlives it.
AppDelegate::~AppDelegate()
{
    m_desktop.terminationSignals.listen([] {});
    m_desktop.door.answer({}, {});
    m_desktop.statusItem.setAction({});
    m_desktop.statusItem.setMenu({});
}

void AppDelegate::applicationDidFinishLaunching()
{
    setupTermination();
    if (!m_settings.onboardingCompleted())
        showOnboarding();
    setupHotkey();
    startIndex();
    warnOfMissingPermission();
    setupStatusItem();
    setupNotifications();
    refreshMenuBar();
    setupFloatingWindow();
}

void AppDelegate::setupHotkey()
{
    const QPointer self(this);
    GlobalHotkeyManager::shared().setHotkeyHandler([self] {
        if (self)
            self->toggleFloatingWindow();
    });
}

void AppDelegate::startIndex()
{
    const QString vaultPath = m_settings.obsidianFolderPath();
    if (!vaultPath.isEmpty())
        QCoro::connect(TagIndexService::shared().buildIndex(vaultPath), this, [] {});
}

void AppDelegate::warnOfMissingPermission()
{
    if (GlobalHotkeyManager::shared().checkAccessibilityPermissions())
        return;
    m_scheduler.after({}, this, [] {
        ToastManager::shared().showWarning(QStringLiteral(
            "Global hotkey requires accessibility permissions. Open Settings to enable."));
    });
}

void AppDelegate::setupStatusItem()
{
    m_desktop.statusItem.setAction([this] { toggleFloatingWindow(); });
    m_desktop.door.answer([this] { activate(); },
                          [this](const QString& name) { performAction(name); });
}

// A desktop that starts the program activates it next, and the welcome is what it has to show then.
void AppDelegate::activate()
{
    if (m_onboardingWindow)
        m_onboardingWindow->makeKeyAndOrderFront();
    else
        toggleFloatingWindow();
}

void AppDelegate::setupNotifications()
{
    connect(&GlobalHotkeyManager::shared(), &GlobalHotkeyManager::hotkeyUpdated, this,
            &AppDelegate::refreshMenuBar);
    connect(&SparkleUpdateManager::shared(), &SparkleUpdateManager::menuChanged, this,
            &AppDelegate::refreshMenuBar);
}

void AppDelegate::setupFloatingWindow()
{
    m_floatingWindowView = std::make_unique<FloatingWindowView>(InputServices::shared(m_scheduler),
                                                                ToastManager::shared());
    m_floatingWindow =
        std::make_unique<FloatingWindow>(*m_floatingWindowView, m_scheduler, m_desktop.windows);
    connect(m_floatingWindowView.get(), &FloatingWindowView::toggleRequested, this,
            &AppDelegate::hideFloatingWindow);
    setupLocalKeyMonitor();
}

void AppDelegate::setupLocalKeyMonitor()
{
    connect(m_localKeyMonitor.get(), &LocalKeyMonitor::hideRequested, this,
            [this] { m_floatingWindow->hide(); });
    connect(m_localKeyMonitor.get(), &LocalKeyMonitor::toggleRequested, this,
            &AppDelegate::performToggleFloatingWindow);
    connect(m_localKeyMonitor.get(), &LocalKeyMonitor::insertCommand, m_floatingWindowView.get(),
            [this](Command command) {
                m_floatingWindowView->insertCommand(QVariant::fromValue(command));
            });
    m_localKeyMonitor->watch(*m_floatingWindow);
}

void AppDelegate::toggleFloatingWindow()
{
    m_scheduler.after({}, this, [this] { performToggleFloatingWindow(); });
}

// Asked twice in one turn, it is still to be hidden.
void AppDelegate::hideFloatingWindow()
{
    m_scheduler.after({}, this, [this] { m_floatingWindow->hide(); });
}

void AppDelegate::performToggleFloatingWindow()
{
    if (!m_floatingWindow)
        return;
    if (m_floatingWindow->isInFront()) {
        m_floatingWindow->hide();
        return;
    }
    m_floatingWindow->centre();
    m_floatingWindow->makeKeyAndOrderFront();
}

void AppDelegate::showOnboarding()
{
    constexpr QSize size(600, 600);
    auto view = std::make_unique<OnboardingView>(OnboardingServices{
        m_settings, TagIndexService::shared(), TemplateSyncService::shared(),
        LaunchAtLoginManager::shared(), ToastManager::shared(), m_desktop.folders});
    const OnboardingView* const onboarding = view.get();
    m_onboardingWindow = std::make_unique<SecondaryWindow>(
        SecondaryWindow::Looks{QStringLiteral("Welcome to Jotwell"), size, size,
                               QStringLiteral("Onboarding/OnboardingView.qml")},
        std::move(view), m_scheduler, m_desktop.windows);
    connect(onboarding, &OnboardingView::dismissed, m_onboardingWindow.get(), &QWindow::close);
    connect(m_onboardingWindow.get(), &SecondaryWindow::willClose, this,
            &AppDelegate::onboardingWillClose);
    m_onboardingWindow->makeKeyAndOrderFront();
}

void AppDelegate::onboardingWillClose()
{
    m_onboardingWindow.release()->deleteLater();
}

void AppDelegate::showSettings()
{
    showSettingsWithTab(QStringLiteral("globalHotkey"));
}

void AppDelegate::showSettingsWithTab(const QString& tab)
{
    if (!m_settingsWindow) {
        const SettingsServices services{m_settings,
                                        TagIndexService::shared(),
                                        TemplateSyncService::shared(),
                                        GlobalHotkeyManager::shared(),
                                        LaunchAtLoginManager::shared(),
                                        SparkleUpdateManager::shared(),
                                        m_desktop.folders,
                                        m_platform.clock,
                                        m_scheduler};
        m_settingsWindow = std::make_unique<SettingsWindowController>(services, m_desktop.windows);
        connect(m_settingsWindow.get(), &SettingsWindowController::globalHotkeyChanged, this,
                [this] { m_scheduler.after({}, this, [this] { refreshMenuBar(); }); });
    }
    m_settingsWindow->showSettingsWithTab(tab);
}

void AppDelegate::refreshMenuBar()
{
    printLine(QStringLiteral("[AppDelegate] refreshMenuBar() called"));
    const Hotkey hotkey{m_settings.globalHotkeyCode(), m_settings.globalHotkeyModifiers()};
    printLine(QStringLiteral("[AppDelegate] Current hotkey settings - keyCode: %1, modifiers: %2")
                  .arg(hotkey.keyCode)
                  .arg(hotkey.modifiers));
    StatusMenuActions actions{[this] { toggleFloatingWindow(); }, [this] { showSettings(); },
                              [this] { terminate(); }};
    m_desktop.statusItem.setMenu(statusMenu(hotkey, std::move(actions),
                                            SparkleUpdateManager::shared().createUpdateMenuItem()));
}

void AppDelegate::performAction(const QString& name)
{
    if (name == QLatin1String("toggle"))
        toggleFloatingWindow();
    else if (name == QLatin1String("settings"))
        showSettings();
    else if (name == QLatin1String("quit"))
        terminate();
}

void AppDelegate::setupTermination()
{
    m_desktop.terminationSignals.listen([this] { terminate(); });
    qApp->installEventFilter(this);
    // The session asks before it ends and may yet be told to stay: the notes are to be safe then,
    // and the wish to end comes by itself.
    connect(
        qApp, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager&) { finishBackgroundWork(); }, Qt::DirectConnection);
}

bool AppDelegate::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != qApp || event->type() != QEvent::Quit)
        return QObject::eventFilter(watched, event);
    terminate();
    return true;
}

void AppDelegate::terminate()
{
    if (std::exchange(m_isTerminating, true))
        return;
    TagIndexService::shared().stop();
    storeSettings();
    quitWhenIdle(0, idleTurnsAtMost);
}

void AppDelegate::quitWhenIdle(int idleTurns, int turnsLeft)
{
    if (idleTurns >= idleTurnsNeeded || turnsLeft == 0) {
        QCoreApplication::exit(0);
        return;
    }
    m_scheduler.after(idlePollInterval, this, [this, idleTurns, turnsLeft] {
        const bool isIdle = m_platform.background.activeThreadCount() == 0;
        quitWhenIdle(isIdle ? idleTurns + 1 : 0, turnsLeft - 1);
    });
}

void AppDelegate::finishBackgroundWork()
{
    const QDeadlineTimer deadline(longestWait);
    do {
        m_platform.background.waitForDone(static_cast<int>(deadline.remainingTime()));
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    } while (m_platform.background.activeThreadCount() > 0 && !deadline.hasExpired());
    storeSettings();
    m_platform.background.waitForDone(static_cast<int>(deadline.remainingTime()));
}

// They are on their way to the disk anyhow: it is the work that is waited for.
void AppDelegate::storeSettings()
{
    DefaultsStore& defaults = m_platform.defaults;
    static_cast<void>(
        startInBackground(m_platform.background, [&defaults] { defaults.synchronize(); }));
}

} // namespace jotwell
