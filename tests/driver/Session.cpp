#include "driver/Session.h"

#include "AppDelegate.h"
#include "Services/CommandService.h"
#include "Services/CommandTemplateManager.h"
#include "Services/GlobalHotkeyManager.h"
#include "Services/ObsidianService.h"
#include "Services/SharedServices.h"
#include "Services/TagIndexService.h"
#include "Services/ToastManager.h"
#include "Views/FloatingWindowView.h"
#include "Views/LocalKeyMonitor.h"
#include "driver/InputJson.h"

#include <utility>

namespace jotwell {

Session::Session(const QString& home) : m_platform(home, m_effects)
{
    setLogSink([this](const LogRecord& record) { m_effects.recordLog(record); });
    installPlatform(m_platform.platform());
}

Session::~Session()
{
    m_application.reset();
    m_window.reset();
    m_ownInput.reset();
    releaseSharedServices();
    setLogSink({});
}

ToastManager& Session::toasts()
{
    ToastManager& toasts = ToastManager::shared();
    if (!std::exchange(m_recordsToasts, true))
        QObject::connect(&toasts, &ToastManager::shown,
                         [this](const Toast& toast) { m_effects.recordToast(toast); });
    return toasts;
}

TagIndexService& Session::index()
{
    TagIndexService& index = TagIndexService::shared();
    if (!std::exchange(m_recordsIndex, true)) {
        m_publications.listenTo(index);
        // What it logs of its opening is to have been logged when the op is answered.
        m_platform.finishDatabaseWork();
    }
    return index;
}

void Session::stopIndex()
{
    if (m_recordsIndex)
        TagIndexService::shared().stop();
}

ObsidianService& Session::notes()
{
    toasts(); // it would make them itself
    index();
    return ObsidianService::shared();
}

CommandService& Session::commands()
{
    notes();
    if (!std::exchange(m_recordsCommands, true))
        setListening(true);
    return CommandService::shared();
}

GlobalHotkeyManager& Session::hotkey()
{
    toasts(); // it would make them itself
    GlobalHotkeyManager& manager = GlobalHotkeyManager::shared();
    if (!std::exchange(m_recordsHotkey, true)) {
        manager.setHotkeyHandler([this] { m_effects.recordHotkey(); });
        QObject::connect(&manager, &GlobalHotkeyManager::hotkeyUpdated, &manager,
                         [this] { m_effects.recordMenuRefresh(); });
    }
    return manager;
}

CommandTemplateState& Session::input()
{
    if (!m_input)
        makeInput();
    return *m_input;
}

void Session::makeInput()
{
    commands();
    m_ownInput = std::make_unique<CommandTemplateState>(
        InputServices::shared(m_platform.platform().scheduler));
    use(*m_ownInput);
}

void Session::use(CommandTemplateState& input)
{
    m_input = &input;
    m_inputRecorder.listenTo(input);
}

FloatingWindowView& Session::window()
{
    if (!m_window)
        makeWindow();
    return *m_window;
}

void Session::makeWindow()
{
    commands();
    m_window = std::make_unique<FloatingWindowView>(
        InputServices::shared(m_platform.platform().scheduler), toasts());
    use(m_window->commandTemplateState());
    recordWindow();
    m_window->appear();
    // What it has installed is asked as before, and its calls are recorded.
    CommandService::shared().setOnSearchResults(
        [this, show = CommandService::shared().onSearchResults()](const NoteSearchResults& notes) {
            m_effects.recordSearchResults(notes);
            show(notes);
        });
}

void Session::recordWindow()
{
    QObject::connect(m_window.get(), &FloatingWindowView::toggleRequested, m_window.get(),
                     [this] { m_effects.recordToggle(); });
    QObject::connect(
        m_window.get(), &FloatingWindowView::scrollToSelectedSearchResult, m_window.get(),
        [this](std::optional<ArrowDirection> direction) {
            QJsonValue userInfo;
            if (direction)
                userInfo = QJsonObject{{QStringLiteral("direction"), toJson(*direction)}};
            m_effects.recordNotification(QStringLiteral("ScrollToSelectedSearchResult"),
                                         QJsonValue(), userInfo);
        });
}

AppDelegate& Session::application()
{
    if (!m_application) {
        toasts();
        m_application = std::make_unique<AppDelegate>(
            Desktop{m_desktop.door, m_desktop.statusItem, m_desktop.windows,
                    m_desktop.terminationSignals, m_desktop.folders},
            m_platform.platform());
        recordApplication();
    }
    return *m_application;
}

void Session::recordApplication()
{
    const LocalKeyMonitor& keys = m_application->localKeyMonitor();
    const auto recordToggle = [this] { m_effects.recordToggle(); };
    QObject::connect(&keys, &LocalKeyMonitor::hideRequested, &keys, recordToggle);
    QObject::connect(&keys, &LocalKeyMonitor::toggleRequested, &keys, recordToggle);
    QObject::connect(&keys, &LocalKeyMonitor::insertCommand, &keys, [this](Command command) {
        m_effects.recordNotification(QStringLiteral("InsertCommand"),
                                     toJson(std::optional(command)), {});
        if (m_window)
            m_window->insertCommand(QVariant::fromValue(command));
    });
}

void Session::setListening(bool isListening)
{
    CommandService::SearchResultsListener listener;
    if (isListening)
        listener = [this](const NoteSearchResults& notes) { m_effects.recordSearchResults(notes); };
    CommandService::shared().setOnSearchResults(std::move(listener));
}

} // namespace jotwell
