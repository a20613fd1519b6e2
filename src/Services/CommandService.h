#pragma once

#include "Models/Command.h"
#include "Models/NoteSearchResult.h"
#include "Models/ObsidianTemplate.h"

#include <QCoroTask>

#include <functional>
#include <optional>

class QThreadPool;

namespace jotwell {

class ObsidianService;
class SettingsService;
class ToastManager;

/// The thin layer between the input language and the note service: takes out of the raw text what a
/// command needs, runs it, and hands lists of notes to the one listener. A failure comes back as
/// false; the note service has told the user of it by then. Main thread only.
class CommandService {
public:
    using SearchResultsListener = std::function<void(const NoteSearchResults&)>;

    CommandService(ObsidianService& notes, SettingsService& settings, ToastManager& toasts,
                   QThreadPool& background);
    [[nodiscard]] static CommandService& shared();

    /// Who gets the lists of notes from now on, empty ones too; an empty function for nobody.
    void setOnSearchResults(SearchResultsListener listener);
    [[nodiscard]] const SearchResultsListener& onSearchResults() const { return m_onSearchResults; }

    /// The first command, in the order of the commands, whose raw value the text contains.
    [[nodiscard]] std::optional<Command> findCommand(const QString& text) const;

    QCoro::Task<bool> executeCommand(Command command, QString text);
    QCoro::Task<bool> executeNewNoteCommand(QString text);
    QCoro::Task<bool> executeSearchNotesCommand(QString text);
    QCoro::Task<bool> executeRecentNotesCommand(QString text);

    /// Searches for `query` as it stands and hands the notes to the listener. Doesn't end an
    /// earlier search: the list of the one that finishes last stays.
    QCoro::Task<void> performSearch(QString query);

private:
    QCoro::Task<bool> deliverSearch(QString query);
    [[nodiscard]] std::optional<ObsidianTemplate> regularTemplate(const QString& name) const;
    void deliver(const NoteSearchResults& notes);

    ObsidianService& m_notes;
    SettingsService& m_settings;
    ToastManager& m_toasts;
    QThreadPool& m_background;
    SearchResultsListener m_onSearchResults;
};

} // namespace jotwell
