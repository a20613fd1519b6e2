#include "driver/Operations.h"

#include "Services/Input/TemplateParameters.h"
#include "driver/InputJson.h"
#include "driver/Session.h"

namespace jotwell {

namespace {

using State = CommandTemplateState;

Answer selected(State& state, std::optional<qint64> index, const std::optional<State::Item>& item)
{
    if (!index && !item)
        return badRequest(QStringLiteral("\"index\" or \"item\" is missing"));
    const QList<State::Item> items = state.dropdownItems();
    if (index && (*index < 0 || *index >= items.size()))
        return badRequest(QStringLiteral("\"index\" is out of range"));
    state.selectItem(index ? items[*index] : *item);
    return QJsonValue();
}

void addStateOps(Operations& ops, Session& session)
{
    ops.add(u"CommandTemplateState.new", {}, [&session] { session.makeInput(); });
    ops.add(u"CommandTemplateState.setText", {u"text"}, [&session](const QString& text) {
        session.input().setText(text);
        session.input().handleTextChange();
    });
    ops.add(u"CommandTemplateState.assignText", {u"text"},
            [&session](const QString& text) { session.input().setText(text); });
    ops.add(u"CommandTemplateState.clearForceTextUpdate", {},
            [&session] { session.input().setForceTextUpdate(false); });
    ops.add(u"CommandTemplateState.handleTextChange", {},
            [&session] { session.input().handleTextChange(); });
    ops.add(u"CommandTemplateState.closeDropdowns", {},
            [&session] { session.input().closeDropdowns(); });
    ops.add(u"CommandTemplateState.dump", {},
            [&session] { return QJsonValue(toJson(session.input())); });
    ops.add(u"CommandTemplateState.takeChanges", {}, [&session] {
        session.input();
        return QJsonValue(session.takeInputChanges());
    });
}

void addParsingOps(Operations& ops, Session& session)
{
    ops.add(u"CommandTemplateState.getCurrentCommandInput", {},
            [&session] { return session.input().getCurrentCommandInput(); });
    ops.add(u"CommandTemplateState.getCurrentTemplateInput", {},
            [&session] { return session.input().getCurrentTemplateInput(); });
    ops.add(u"CommandTemplateState.getCurrentFolderInput", {},
            [&session] { return session.input().getCurrentFolderInput(); });
    ops.add(u"CommandTemplateState.getCurrentHashtagInput", {},
            [&session] { return session.input().getCurrentHashtagInput(); });
    ops.add(u"CommandTemplateState.hasExistingTemplate", {},
            [&session] { return session.input().hasExistingTemplate(); });
    ops.add(u"CommandTemplateState.hasExistingFolderParameter", {},
            [&session] { return session.input().hasExistingFolderParameter(); });
    ops.add(u"CommandTemplateState.getHighlightedTemplateRanges", {u"text"},
            [&session](const QString& text) {
                return highlightedTemplateRanges(text, session.input().names().templateNames());
            });
    ops.add(u"CommandTemplateState.removeTemplateParameters", {u"text"},
            [&session](const QString& text) {
                return removeTemplateParameters(text, session.input().names().templateNames());
            });
    ops.add(u"CommandTemplateState.checkForValidTemplate", {u"text"},
            [&session](const QString& text) {
                return checkForValidTemplate(text, session.input().names().templateNames());
            });
}

void addListOps(Operations& ops, Session& session)
{
    ops.add(u"CommandTemplateState.updateCommandDropdown", {u"input"},
            [&session](const QString& input) { session.input().updateCommandDropdown(input); });
    ops.add(u"CommandTemplateState.updateTemplateDropdown", {},
            [&session] { session.input().updateTemplateDropdown(); });
    ops.add(u"CommandTemplateState.updateFolderDropdown", {},
            [&session] { session.input().updateFolderDropdown(); });
    ops.add(u"CommandTemplateState.updateHashtagDropdown", {u"input"},
            [&session](const QString& input) { session.input().updateHashtagDropdown(input); });
    ops.add(u"CommandTemplateState.selectItem", {u"index", u"item"},
            [&session](std::optional<qint64> index, const std::optional<State::Item>& item) {
                return selected(session.input(), index, item);
            });
    ops.add(u"CommandTemplateState.selectItemAtIndex", {u"index", u"direction"},
            [&session](qint64 index, std::optional<ArrowDirection> direction) {
                session.input().selectItemAtIndex(index, direction);
            });
}

void addUserOps(Operations& ops, Session& session)
{
    ops.add(
        u"CommandTemplateState.handleArrowKey", {u"direction"},
        [&session](ArrowDirection direction) { return session.input().handleArrowKey(direction); });
    ops.add(u"CommandTemplateState.handleEnterKey", {},
            [&session] { return session.input().handleEnterKey(); });
    ops.add(u"CommandTemplateState.executeCommand", {},
            [&session] { return session.input().executeCommand(); });
    ops.add(u"CommandTemplateState.handleCommandClick", {u"range"},
            [&session](const TextRange& range) { session.input().handleCommandClick(range); });
    ops.add(u"CommandTemplateState.handleTemplateClick", {u"range"},
            [&session](const TextRange& range) { session.input().handleTemplateClick(range); });
    ops.add(u"CommandTemplateState.handleHashtagClick", {u"range"},
            [&session](const TextRange& range) { session.input().handleHashtagClick(range); });
}

} // namespace

void addInputOps(Operations& ops, Session& session)
{
    addStateOps(ops, session);
    addParsingOps(ops, session);
    addListOps(ops, session);
    addUserOps(ops, session);
}

} // namespace jotwell
