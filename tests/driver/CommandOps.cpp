#include "driver/Operations.h"

#include "Services/CommandService.h"
#include "driver/Session.h"

namespace jotwell {

void addCommandOps(Operations& ops, Session& session)
{
    ops.add(u"CommandService.findCommand", {u"text"},
            [&session](const QString& text) { return session.commands().findCommand(text); });
    ops.add(u"CommandService.executeCommand", {u"command", u"text"},
            [&session](Command command, const QString& text) {
                return session.commands().executeCommand(command, text);
            });
    ops.add(u"CommandService.executeNewNoteCommand", {u"text"}, [&session](const QString& text) {
        return session.commands().executeNewNoteCommand(text);
    });
    ops.add(u"CommandService.executeRecentNotesCommand", {u"text"},
            [&session](const QString& text) {
                return session.commands().executeRecentNotesCommand(text);
            });
    ops.add(u"CommandService.executeSearchNotesCommand", {u"text"},
            [&session](const QString& text) {
                return session.commands().executeSearchNotesCommand(text);
            });
    ops.add(u"CommandService.performSearch", {u"query"},
            [&session](const QString& query) { return session.commands().performSearch(query); });
    ops.add(u"CommandService.setListener", {u"installed"}, [&session](bool isInstalled) {
        session.commands();
        session.setListening(isInstalled);
    });
}

} // namespace jotwell
