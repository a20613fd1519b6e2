#include "driver/Operations.h"

#include "Services/CommandService.h"
#include "Views/FloatingWindowView.h"
#include "driver/InputJson.h"
#include "driver/Session.h"

#include <QJsonArray>

namespace jotwell {

namespace {

QJsonValue dumped(FloatingWindowView& view)
{
    return QJsonObject{
        {QStringLiteral("state"), toJson(view.commandTemplateState())},
        {QStringLiteral("isFocused"), view.isFocused()},
        {QStringLiteral("searchResults"), toJson(view.searchResults())},
        {QStringLiteral("showSearchResults"), view.showSearchResults()},
        {QStringLiteral("selectedSearchResultIndex"), view.selectedSearchResultIndex()},
        {QStringLiteral("searchResultsHaveFocus"), view.searchResultsHaveFocus()},
        {QStringLiteral("springScale"), view.springScale()},
        {QStringLiteral("showAccentBorder"), view.showAccentBorder()},
        {QStringLiteral("showAccentBackground"), view.showAccentBackground()},
        {QStringLiteral("showErrorBorder"), view.showErrorBorder()},
        {QStringLiteral("showErrorBackground"), view.showErrorBackground()},
        {QStringLiteral("dynamicHeight"), view.dynamicHeight()},
    };
}

std::optional<NoteSearchResults> notesIn(const QJsonValue& json)
{
    NoteSearchResults notes;
    for (const QJsonValue each : json.toArray()) {
        const auto path = fromJson<QString>(each[u"filePath"]);
        const QJsonValue snippet = each[u"snippet"];
        if (!path || !(snippet.isString() || snippet.isNull() || snippet.isUndefined()))
            return std::nullopt;
        NoteSearchResult note = NoteSearchResult::forPath(*path);
        note.snippet = fromJson<QString>(snippet);
        notes.append(note);
    }
    return json.isArray() ? std::optional(notes) : std::nullopt;
}

Answer delivered(Session& session, const QJsonValue& results)
{
    const auto notes = notesIn(results);
    if (!notes)
        return badRequest(QStringLiteral("\"results\" is missing or mistyped"));
    session.window();
    session.commands().onSearchResults()(*notes);
    return QJsonValue();
}

void postInsertCommand(Session& session, const QJsonValue& object)
{
    FloatingWindowView& view = session.window();
    const auto command = fromJson<Command>(object);
    session.effects().recordNotification(QStringLiteral("InsertCommand"), toJson(command),
                                         QJsonValue());
    view.insertCommand(command ? QVariant::fromValue(*command) : object.toVariant());
}

Answer tapped(FloatingWindowView& view, qint64 index)
{
    if (index < 0 || index >= view.searchResults().size())
        return badRequest(QStringLiteral("\"index\" is out of range"));
    view.results()->tap(static_cast<int>(index));
    return QJsonValue();
}

void addStateOps(Operations& ops, Session& session)
{
    ops.add(u"FloatingWindowView.new", {}, [&session] { session.makeWindow(); });
    ops.add(u"FloatingWindowView.dump", {}, [&session] { return dumped(session.window()); });
    ops.add(u"FloatingWindowView.shortcut", {u"command"},
            [&session](Command command) { session.window().handleCommandShortcut(command); });
    ops.add(u"FloatingWindowView.postInsertCommand", {u"object"},
            [&session](const QJsonValue& object) { postInsertCommand(session, object); });
    ops.add(u"FloatingWindowView.deliverResults", {u"results"},
            [&session](const QJsonValue& results) { return delivered(session, results); });
    ops.add(u"FloatingWindowView.openSelectedSearchResult", {},
            [&session] { session.window().openSelectedSearchResult(); });
    ops.add(u"FloatingWindowView.tapResult", {u"index"},
            [&session](qint64 index) { return tapped(session.window(), index); });
    ops.add(u"FloatingWindowView.tapContent", {}, [&session] { session.window().tapContent(); });
    ops.add(u"FloatingWindowView.tapBackdrop", {},
            [&session] { session.window().closeDropdowns(); });
}

// What the text field asks of the view.
void addFieldOps(Operations& ops, Session& session)
{
    const auto bindings = [&session]() -> const CustomTextEditorBindings& {
        return session.window().editor()->bindings();
    };
    ops.add(u"FloatingWindowView.textChanged", {u"text"}, [bindings](const QString& text) {
        bindings().setText(text);
        bindings().onTextChange();
    });
    ops.add(u"FloatingWindowView.arrow", {u"direction"},
            [bindings](ArrowDirection direction) { return bindings().onArrowKey(direction); });
    ops.add(u"FloatingWindowView.enter", {}, [bindings] { return bindings().onEnterKey(); });
    ops.add(u"FloatingWindowView.tab", {}, [bindings] { return bindings().onTabKey(); });
    ops.add(u"FloatingWindowView.commandEnter", {}, [bindings] { bindings().onCommandEnter(); });
}

} // namespace

void addWindowOps(Operations& ops, Session& session)
{
    addStateOps(ops, session);
    addFieldOps(ops, session);
}

} // namespace jotwell
