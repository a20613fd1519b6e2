#pragma once

#include "Models/NoteSearchResult.h"
#include "Models/ObsidianTemplate.h"
#include "Services/ObsidianError.h"
#include "Services/TopLevelFolders.h"
#include "Support/AtomicFile.h"
#include "Support/Result.h"

#include <QCoroTask>

#include <QString>
#include <QStringList>

#include <optional>

namespace jotwell {

class SettingsService;
class TagIndexService;
class ToastManager;
struct Platform;

/// The vault as a place for notes: writes them, searches them, lists the recent ones and the
/// folders, opens one in Obsidian. An operation that fails has told the user by a toast when it
/// comes back. Main thread; the work on files is done in the background.
class ObsidianService {
public:
    using Notes = Result<NoteSearchResults, NoteError>;

    /// Starts `initializeIndexIfNeeded`, without waiting for it.
    ObsidianService(const Platform& platform, SettingsService& settings, ToastManager& toasts,
                    TagIndexService& tagIndex);
    [[nodiscard]] static ObsidianService& shared();

    /// Writes the note in `text`, command and parameter and all, as a new file in the vault.
    /// Without a template it takes the last used one. A file of the same name is replaced.
    QCoro::Task<Result<void, NoteError>> createNote(QString text,
                                                    std::optional<ObsidianTemplate> noteTemplate);

    /// The names that may stand behind a "$" as a parameter: those of all templates, in their
    /// order.
    [[nodiscard]] QStringList templateNames() const;
    /// What a note is made with: the given template, or else the last used one.
    [[nodiscard]] ObsidianTemplate
    templateFor(const std::optional<ObsidianTemplate>& noteTemplate) const;

    /// Builds the index of the vault, if one is set and none has been begun.
    QCoro::Task<void> initializeIndexIfNeeded();
    /// Builds the index if there is none, and waits for a build under way: 3 seconds at most.
    QCoro::Task<void> ensureIndexReady();

    /// Searches the vault: by text if the query has a blank, else, and for a query that begins with
    /// "#", by file name and tag. In the order of the index; finding nothing is no failure.
    QCoro::Task<Notes> searchNotes(QString query);

    /// The notes of the whole vault that changed last, as many as the settings say.
    QCoro::Task<Notes> getRecentNotes();
    /// The same below one top-level folder; the whole vault for none, for "All Folders", and, with
    /// a warning, for a folder that isn't there.
    QCoro::Task<Notes> getRecentNotesInTopFolder(std::optional<QString> folder);

    /// Names of the vault's top-level folders, sorted by code point. Blocks for microseconds, and
    /// for a listing when something has changed there; any thread.
    [[nodiscard]] QStringList listVaultFolders() const;

    /// Hands the note to Obsidian by its URL scheme.
    QCoro::Task<void> openNoteInObsidian(NoteSearchResult note);

private:
    QCoro::Task<Result<QString, NoteError>> readableVault();

    const Platform& m_platform;
    SettingsService& m_settings;
    ToastManager& m_toasts;
    TagIndexService& m_tagIndex;
    AtomicFile m_files;
    mutable TopLevelFolders m_folders;
};

} // namespace jotwell
