#include "Services/ObsidianService.h"

#include "Platform/Clock.h"
#include "Platform/Platform.h"
#include "Platform/Scheduler.h"
#include "Platform/Workspace.h"
#include "Services/NoteText.h"
#include "Services/SettingsService.h"
#include "Services/TagIndexService.h"
#include "Services/ToastManager.h"
#include "Services/VaultFolder.h"
#include "Support/Background.h"
#include "Support/FolderWalk.h"
#include "Support/Sleep.h"

#include <QPointer>
#include <QUrl>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

const QString allFolders = QStringLiteral("All Folders");

// A search doesn't wait longer for a build than these together: it then finds what there is.
constexpr auto indexPollInterval = 100ms;
constexpr int indexPollsAtMost = 30;

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

NoteSearchResult noteOf(const IndexSearchResult& found)
{
    NoteSearchResult note = NoteSearchResult::forPath(found.path);
    note.snippet = found.snippet;
    note.relevanceScore = found.relevanceScore;
    note.isFullTextResult = found.matchType == MatchType::fullText;
    return note;
}

bool isForText(const QString& query)
{
    return !query.startsWith(u'#') && query.contains(u' ');
}

} // namespace

ObsidianService::ObsidianService(const Platform& platform, SettingsService& settings,
                                 ToastManager& toasts, TagIndexService& tagIndex)
    : m_platform(platform), m_settings(settings), m_toasts(toasts), m_tagIndex(tagIndex),
      m_files(platform.files), m_folders(platform.clock, platform.fileSystems)
{
    QCoro::connect(initializeIndexIfNeeded(), &m_tagIndex, [] {});
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

QCoro::Task<void> ObsidianService::initializeIndexIfNeeded()
{
    const QString folder = m_settings.obsidianFolderPath();
    if (folder.isEmpty())
        co_return;
    const QPointer index(&m_tagIndex);
    co_await nextTurn(); // whoever made this service goes on first
    if (index && index->indexStatus().kind == IndexStatus::Kind::notStarted)
        co_await index->buildIndex(folder);
}

QCoro::Task<void> ObsidianService::ensureIndexReady()
{
    const QString folder = m_settings.obsidianFolderPath();
    if (folder.isEmpty())
        co_return;
    const QPointer index(&m_tagIndex);
    const IndexStatus::Kind status = index->indexStatus().kind;
    if (status == IndexStatus::Kind::notStarted || status == IndexStatus::Kind::error)
        co_await index->buildIndex(folder);
    Scheduler& scheduler = m_platform.scheduler;
    for (int polls = 0; index && index->isIndexing() && polls < indexPollsAtMost; ++polls)
        co_await sleepFor(scheduler, indexPollInterval);
}

QCoro::Task<ObsidianService::Notes> ObsidianService::searchNotes(QString query)
{
    const auto vault = co_await readableVault();
    if (!vault)
        co_return vault.error();
    const QPointer index(&m_tagIndex);
    co_await ensureIndexReady();
    if (index)
        co_await index->refreshIndex();
    if (!index)
        co_return NoteSearchResults();
    SearchAnswer answer;
    if (isForText(query))
        answer = co_await index->searchContent(query, *vault);
    else
        answer = co_await index->searchNotes(query, *vault);
    NoteSearchResults notes;
    for (const IndexSearchResult& found : answer.results)
        notes.append(noteOf(found));
    co_return notes;
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
    return folder.isEmpty() ? QStringList() : m_folders.below(folder);
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
