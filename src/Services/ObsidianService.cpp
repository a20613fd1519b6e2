#include "Services/ObsidianService.h"

#include "Platform/Clock.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "Services/NoteText.h"
#include "Services/SettingsService.h"
#include "Services/ToastManager.h"
#include "Services/VaultFolder.h"
#include "Support/Background.h"
#include "Support/FolderWalk.h"

#include <QUrl>

namespace jotwell {

namespace {

const QString allFolders = QStringLiteral("All Folders");

/// All that a note is made of, taken on the main thread for the work in the background.
struct NoteOrder {
    QString folder;
    QString text;
    QStringList templateNames;
    ObsidianTemplate noteTemplate;
    Clock::TimePoint now;
};

Result<void, NoteError> writeNote(const NoteOrder& order, const AtomicFile& files)
{
    if (const auto valid = validateFolder(order.folder); !valid)
        return NoteError(valid.error());
    const QString content = extractContent(order.text, order.templateNames);
    const QString title = generateTitle(content, order.now);
    const QString body = createNoteContent(title, content, order.noteTemplate, order.now);
    const QString path = pathBelow(order.folder, generateFilename(title, order.now));
    if (const auto written = files.write(path, body.toUtf8()); !written)
        return NoteError(written.error());
    return {};
}

void reportNoteError(ToastManager& toasts, const NoteError& error)
{
    const auto* vaultError = std::get_if<ObsidianError>(&error);
    if (!vaultError)
        toasts.showObsidianError(description(error));
    else if (vaultError->kind == ObsidianError::Kind::folderNotFound)
        toasts.showFolderNotFound(vaultError->path);
    else
        toasts.showError(vaultError->errorDescription());
}

} // namespace

ObsidianService::ObsidianService(const Platform& platform, SettingsService& settings,
                                 ToastManager& toasts)
    : m_platform(platform), m_settings(settings), m_toasts(toasts), m_files(platform.files)
{
}

QCoro::Task<Result<void, NoteError>>
ObsidianService::createNote(QString text, std::optional<ObsidianTemplate> noteTemplate)
{
    const QString folder = m_settings.obsidianFolderPath();
    if (folder.isEmpty()) {
        m_toasts.showSettingsRequired();
        co_return NoteError(ObsidianError());
    }
    NoteOrder order{folder, text, templateNames(), templateFor(noteTemplate),
                    m_platform.clock.now()};
    auto work = [order = std::move(order), files = m_files] { return writeNote(order, files); };
    const auto written = co_await inBackground(m_platform.background, std::move(work));
    if (written)
        m_toasts.showObsidianSuccess();
    else
        reportNoteError(m_toasts, written.error());
    co_return written;
}

QStringList ObsidianService::templateNames() const
{
    QStringList names;
    for (const ObsidianTemplate& each : m_settings.getAllTemplates())
        names.append(each.name);
    return names;
}

ObsidianTemplate
ObsidianService::templateFor(const std::optional<ObsidianTemplate>& noteTemplate) const
{
    return noteTemplate ? *noteTemplate : m_settings.getLastUsedTemplate();
}

QCoro::Task<ObsidianService::Notes> ObsidianService::getRecentNotes()
{
    const auto vault = co_await readableVault();
    if (!vault)
        co_return vault.error();
    auto work = [folder = *vault, count = m_settings.recentFilesCount()] {
        return recentNotesBelow(folder, count);
    };
    co_return co_await inBackground(m_platform.background, std::move(work));
}

QCoro::Task<ObsidianService::Notes>
ObsidianService::getRecentNotesInTopFolder(std::optional<QString> folder)
{
    if (!folder || *folder == allFolders)
        co_return co_await getRecentNotes();
    const auto vault = co_await readableVault();
    if (!vault)
        co_return vault.error();
    const QString path = pathBelow(*vault, *folder);
    auto check = [path] { return validateFolder(path).ok(); };
    const bool isFolder = co_await inBackground(m_platform.background, std::move(check));
    if (!isFolder) {
        m_toasts.showWarning(QStringLiteral("Folder not found: ") + *folder);
        co_return co_await getRecentNotes();
    }
    auto work = [path, count = m_settings.recentFilesCount()] {
        return recentNotesBelow(path, count);
    };
    co_return co_await inBackground(m_platform.background, std::move(work));
}

QStringList ObsidianService::listVaultFolders() const
{
    const QString folder = m_settings.obsidianFolderPath();
    return folder.isEmpty() ? QStringList() : topLevelFolders(folder);
}

QCoro::Task<void> ObsidianService::openNoteInObsidian(NoteSearchResult note)
{
    // Exactly what a URL query may hold stays as it is, "&" and "+" too.
    const QByteArray path =
        QUrl::toPercentEncoding(note.fileURL.toLocalFile(), QByteArrayLiteral("!$&'()*+,;=:@/?"));
    m_platform.workspace.openUrl(QStringLiteral("obsidian://open?path=") +
                                 QString::fromLatin1(path));
    co_return;
}

// The vault's path if notes can be listed there; otherwise the user has been told.
QCoro::Task<Result<QString, NoteError>> ObsidianService::readableVault()
{
    const QString folder = m_settings.obsidianFolderPath();
    if (folder.isEmpty()) {
        m_toasts.showSettingsRequired();
        co_return NoteError(ObsidianError());
    }
    auto check = [folder] { return validateFolder(folder); };
    const auto valid = co_await inBackground(m_platform.background, std::move(check));
    if (!valid) {
        m_toasts.showError(valid.error().errorDescription());
        co_return NoteError(valid.error());
    }
    co_return folder;
}

} // namespace jotwell
