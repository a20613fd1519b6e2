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
        co_return false; // joins with the index
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
