#include "driver/Operations.h"

#include "Fakes/FakeScheduler.h"
#include "Services/CommandService.h"
#include "Services/Input/InputNames.h"
#include "Views/Editor/AttributedText.h"
#include "Views/Editor/MarkdownHighlighter.h"
#include "Views/Editor/ReadyNames.h"
#include "driver/DrivenEditor.h"
#include "driver/EditorJson.h"
#include "driver/Session.h"

#include <memory>

namespace jotwell {

namespace {

// The services are made when a text has a use for the names.
TokenNames sharedNames(Session& session)
{
    const auto names = [&session] {
        session.commands();
        return InputNames(InputServices::shared(session.platform().platform().scheduler));
    };
    return {[names] { return names().templateNames(); }, [names] { return names().folderNames(); }};
}

/// The editor that a script works with; made anew as often as it likes.
class CurrentEditor {
public:
    explicit CurrentEditor(Session& session) : m_session(session) {}

    void make(const QString& text)
    {
        m_editor = std::make_unique<DrivenEditor>(text, sharedNames(m_session),
                                                  m_session.platform().platform().scheduler);
    }
    [[nodiscard]] DrivenEditor& get()
    {
        if (!m_editor)
            make({});
        return *m_editor;
    }
    [[nodiscard]] DrivenEditor* operator->() { return &get(); }

private:
    Session& m_session;
    std::unique_ptr<DrivenEditor> m_editor;
};

using Current = std::shared_ptr<CurrentEditor>;

QJsonObject chipsOf(const RoundedBackgroundTextView& view)
{
    return {{QStringLiteral("commandRanges"), toJson(view.commandRanges())},
            {QStringLiteral("templateRanges"), toJson(view.templateRanges())},
            {QStringLiteral("hashtagRanges"), toJson(view.hashtagRanges())}};
}

QJsonValue dumped(DrivenEditor& editor)
{
    const RoundedBackgroundTextView& view = editor.view();
    QJsonObject all = chipsOf(view);
    all.insert(QStringLiteral("string"), view.string());
    all.insert(QStringLiteral("boundText"), editor.values().text);
    all.insert(QStringLiteral("selectedRange"), toJson(view.selectedRange()));
    all.insert(QStringLiteral("isEditing"), editor.coordinator().isEditing());
    all.insert(QStringLiteral("forceUpdate"), editor.values().forceUpdate);
    all.insert(QStringLiteral("isFocused"), editor.values().isFocused);
    all.insert(QStringLiteral("hoveredRange"), toJson(view.hoveredRange()));
    return all;
}

bool isWithin(const TextRange& range, const QString& text)
{
    return range.location >= 0 && range.length >= 0 && range.end() <= utf16Length(text);
}

Answer select(DrivenEditor& editor, const TextRange& range)
{
    if (!isWithin(range, editor.view().string()))
        return badRequest(QStringLiteral("The text isn't that long"));
    editor.view().setSelectedRange(range);
    return QJsonValue();
}

QJsonValue markdownRuns(const QString& text)
{
    AttributedText attributes(utf16Length(text));
    MarkdownHighlighter::shared().applyMarkdownFontStyling(attributes, text, characterCount(text));
    return toJson(attributes.runs());
}

QJsonValue highlighted(const QString& text, const TokenNames& names)
{
    FakeScheduler laterTurns;
    DrivenEditor editor(text, names, laterTurns);
    editor.coordinator().highlightCommands();
    laterTurns.advance({});
    QJsonObject all = chipsOf(editor.view());
    ReadyNames ready(names);
    all.insert(QStringLiteral("runs"), toJson(styledText(text, ready).runs));
    return all;
}

Answer backspaced(const QString& text, const TextRange& selection, const TokenNames& names)
{
    FakeScheduler laterTurns;
    DrivenEditor editor(text, names, laterTurns);
    const Answer selected = select(editor, selection);
    if (!selected)
        return selected;
    const bool isConsumed = editor.coordinator().handleCommandBackspace();
    return QJsonValue(QJsonObject{{QStringLiteral("consumed"), isConsumed},
                                  {QStringLiteral("text"), editor.view().string()},
                                  {QStringLiteral("onTextChange"), editor.takeCalls().size()}});
}

void addFreshEditorOps(Operations& ops, Session& session)
{
    ops.add(u"MarkdownHighlighter.apply", {u"text"},
            [](const QString& text) { return markdownRuns(text); });
    ops.add(u"editor.highlight", {u"text"},
            [&session](const QString& text) { return highlighted(text, sharedNames(session)); });
    ops.add(u"editor.backspace", {u"text", u"cursor", u"selection"},
            [&session](const QString& text, std::optional<int> cursor,
                       const std::optional<TextRange>& selection) -> Answer {
                if (cursor.has_value() == selection.has_value())
                    return badRequest(QStringLiteral("Either \"cursor\" or \"selection\""));
                return backspaced(text, selection.value_or(TextRange{cursor.value_or(0), 0}),
                                  sharedNames(session));
            });
}

void addStateOps(Operations& ops, const Current& editor)
{
    ops.add(u"editor.new", {u"text"}, [editor](const QString& text) { editor->make(text); });
    ops.add(u"editor.dump", {}, [editor] { return dumped(editor->get()); });
    ops.add(u"editor.takeCalls", {}, [editor]() -> QJsonValue { return (*editor)->takeCalls(); });
    ops.add(u"editor.update", {u"text", u"forceUpdate", u"isFocused"},
            [editor](const QString& text, std::optional<bool> forceUpdate,
                     std::optional<bool> isFocused) {
                (*editor)->update({text, forceUpdate.value_or(false), isFocused.value_or(false)});
            });
    ops.add(u"editor.setAnswers", {u"onArrowKey", u"onEnterKey", u"onTabKey"},
            [editor](std::optional<bool> onArrowKey, std::optional<bool> onEnterKey,
                     std::optional<bool> onTabKey) {
                (*editor)->setAnswers(
                    {onArrowKey.value_or(false), onEnterKey.value_or(false), onTabKey});
            });
}

void addUserOps(Operations& ops, const Current& editor)
{
    ops.add(u"editor.type", {u"text"}, [editor](const QString& text) { (*editor)->type(text); });
    ops.add(u"editor.select", {u"range"},
            [editor](const TextRange& range) { return select(editor->get(), range); });
    ops.add(u"editor.beginEditing", {},
            [editor] { (*editor)->coordinator().textDidBeginEditing(); });
    ops.add(u"editor.endEditing", {}, [editor] { (*editor)->coordinator().textDidEndEditing(); });
    ops.add(u"editor.key", {u"selector", u"event"},
            [editor](const QString& selector, const std::optional<CurrentEvent>& event) {
                return (*editor)->coordinator().doCommandBy(selector, event);
            });
    ops.add(u"editor.mouseDown", {u"index"},
            [editor](int index) { return (*editor)->view().mouseDown(index); });
    ops.add(u"editor.mouseMoved", {u"index"},
            [editor](int index) { return (*editor)->view().mouseMoved(index); });
    ops.add(u"editor.mouseExited", {}, [editor] { return (*editor)->view().mouseExited(); });
}

} // namespace

void addEditorOps(Operations& ops, Session& session)
{
    const auto editor = std::make_shared<CurrentEditor>(session);
    addFreshEditorOps(ops, session);
    addStateOps(ops, editor);
    addUserOps(ops, editor);
}

} // namespace jotwell
