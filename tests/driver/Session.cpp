#include "driver/Session.h"

#include "Services/CommandService.h"
#include "Services/CommandTemplateManager.h"
#include "Services/ObsidianService.h"
#include "Services/SharedServices.h"
#include "Services/TagIndexService.h"
#include "Services/ToastManager.h"

#include <utility>

namespace jotwell {

Session::Session(const QString& home) : m_platform(home, m_effects)
{
    setLogSink([this](const LogRecord& record) { m_effects.recordLog(record); });
    installPlatform(m_platform.platform());
}

Session::~Session()
{
    m_input.reset();
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

CommandTemplateState& Session::input()
{
    if (!m_input)
        makeInput();
    return *m_input;
}

void Session::makeInput()
{
    commands();
    m_input = std::make_unique<CommandTemplateState>(
        InputServices::shared(m_platform.platform().scheduler));
    m_inputRecorder.listenTo(*m_input);
}

void Session::setListening(bool isListening)
{
    CommandService::SearchResultsListener listener;
    if (isListening)
        listener = [this](const NoteSearchResults& notes) { m_effects.recordSearchResults(notes); };
    CommandService::shared().setOnSearchResults(std::move(listener));
}

} // namespace jotwell
