#include "Services/CommandService.h"

#include "Services/Input/CommandText.h"
#include "Services/ObsidianService.h"
#include "Services/SettingsService.h"
#include "Services/ToastManager.h"
#include "Support/Background.h"

#include <algorithm>

namespace jotwell {

CommandService::CommandService(ObsidianService& notes, SettingsService& settings,
                               ToastManager& toasts, QThreadPool& background)
    : m_notes(notes), m_settings(settings), m_toasts(toasts), m_background(background)
{
}

void CommandService::setOnSearchResults(SearchResultsListener listener)
{
    m_onSearchResults = std::move(listener);
}

std::optional<Command> CommandService::findCommand(const QString& text) const
{
    return jotwell::findCommand(text);
}

QCoro::Task<bool> CommandService::executeCommand(Command command, QString text)
{
    switch (command) {
    case Command::newNote:
        co_return co_await executeNewNoteCommand(text);
    case Command::searchNotes:
        co_return co_await executeSearchNotesCommand(text);
    case Command::recentNotes:
        co_return co_await executeRecentNotesCommand(text);
    }
    co_return false;
}

QCoro::Task<bool> CommandService::executeNewNoteCommand(QString text)
{
    auto findName = [text] { return templateNameIn(text); };
    const auto name = co_await inBackground(m_background, std::move(findName));
    const auto chosen = name ? regularTemplate(*name) : std::nullopt;
    const auto created = co_await m_notes.createNote(text, chosen);
    co_return created.ok();
}

QCoro::Task<bool> CommandService::executeSearchNotesCommand(QString text)
{
    auto findQuery = [text] { return searchQueryIn(text); };
    const QString query = co_await inBackground(m_background, std::move(findQuery));
    if (query.isEmpty()) {
        m_toasts.showWarning(QStringLiteral("Please enter a search query"));
        co_return false;
    }
    co_return co_await deliverSearch(query);
}

QCoro::Task<void> CommandService::performSearch(QString query)
{
    co_await deliverSearch(query);
}

// False if the search failed; the user has been told by then.
QCoro::Task<bool> CommandService::deliverSearch(QString query)
{
    const auto notes = co_await m_notes.searchNotes(query);
    if (!notes)
        co_return false;
    deliver(*notes);
    if (notes->isEmpty())
        m_toasts.showWarning(QStringLiteral("No notes found matching '%1'").arg(query));
    co_return true;
}

QCoro::Task<bool> CommandService::executeRecentNotesCommand(QString text)
{
    auto findName = [text] { return folderNameIn(text); };
    const auto folder = co_await inBackground(m_background, std::move(findName));
    const auto notes = co_await m_notes.getRecentNotesInTopFolder(folder);
    if (!notes)
        co_return false;
    deliver(*notes);
    if (notes->isEmpty())
        m_toasts.showWarning(QStringLiteral("No recent notes found"));
    co_return true;
}

// Templates of the templates folder don't count: a note that names one is made without a template.
std::optional<ObsidianTemplate> CommandService::regularTemplate(const QString& name) const
{
    const ObsidianTemplates templates = m_settings.obsidianTemplates();
    const auto found =
        std::find_if(templates.begin(), templates.end(),
                     [&name](const ObsidianTemplate& each) { return each.name == name; });
    return found == templates.end() ? std::nullopt : std::optional(*found);
}

void CommandService::deliver(const NoteSearchResults& notes)
{
    const SearchResultsListener listener = m_onSearchResults; // it may put another in its place
    if (listener)
        listener(notes);
}

} // namespace jotwell
