#include "driver/Operations.h"

#include "Services/NoteText.h"
#include "Services/ObsidianService.h"
#include "Services/VaultFolder.h"
#include "driver/Session.h"

namespace jotwell {

namespace {

void addTextOps(Operations& ops, Session& session)
{
    const Clock& clock = session.platform().clock();
    ops.add(u"ObsidianService.extractContent", {u"text"}, [&session](const QString& text) {
        return extractContent(text, session.notes().templateNames());
    });
    ops.add(u"ObsidianService.generateTitle", {u"content"},
            [&clock](const QString& content) { return generateTitle(content, clock.now()); });
    ops.add(u"ObsidianService.createNoteContent", {u"title", u"content", u"template"},
            [&session, &clock](const QString& title, const QString& content,
                               const std::optional<ObsidianTemplate>& given) {
                return createNoteContent(title, content, session.notes().templateFor(given),
                                         clock.now());
            });
    ops.add(u"ObsidianService.generateFilename", {u"title"},
            [&clock](const QString& title) { return generateFilename(title, clock.now()); });
}

} // namespace

void addNoteOps(Operations& ops, Session& session)
{
    addTextOps(ops, session);
    ops.add(u"ObsidianService.createNote", {u"text", u"template"},
            [&session](const QString& text, const std::optional<ObsidianTemplate>& given) {
                return session.notes().createNote(text, given);
            });
    ops.add(u"ObsidianService.validateFolder", {u"path"},
            [](const QString& path) { return validateFolder(path); });
    ops.add(u"ObsidianService.initializeIndexIfNeeded", {},
            [&session] { return session.notes().initializeIndexIfNeeded(); });
    ops.add(u"ObsidianService.ensureIndexReady", {},
            [&session] { return session.notes().ensureIndexReady(); });
    ops.add(u"ObsidianService.searchNotes", {u"query"},
            [&session](const QString& query) { return session.notes().searchNotes(query); });
    ops.add(u"ObsidianService.getRecentNotes", {},
            [&session] { return session.notes().getRecentNotes(); });
    ops.add(u"ObsidianService.getRecentNotesInTopFolder", {u"folder"},
            [&session](const std::optional<QString>& folder) {
                return session.notes().getRecentNotesInTopFolder(folder);
            });
    ops.add(u"ObsidianService.listVaultFolders", {},
            [&session] { return session.notes().listVaultFolders(); });
    ops.add(u"ObsidianService.openNoteInObsidian", {u"filePath"}, [&session](const QString& path) {
        return session.notes().openNoteInObsidian(NoteSearchResult::forPath(path));
    });
}

} // namespace jotwell
