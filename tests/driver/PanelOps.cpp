#include "driver/Operations.h"

#include "Views/CommandShortcutsRow.h"
#include "Views/FloatingDropdown.h"
#include "Views/FloatingDropdownRows.h"
#include "Views/Results/KeyMonitorView.h"
#include "Views/Results/SearchResultRow.h"
#include "Views/Results/SearchResultsView.h"
#include "Views/Results/SnippetParts.h"
#include "driver/InputJson.h"
#include "driver/Session.h"

#include <QJsonArray>
#include <QMetaEnum>

#include <memory>

namespace jotwell {

template <>
std::optional<DropdownType> fromJson(const QJsonValue& json)
{
    using Type = DropdownType;
    constexpr std::array named{std::pair("command", Type::command),
                               std::pair("template", Type::noteTemplate),
                               std::pair("folder", Type::folder),
                               std::pair("hashtag", Type::hashtag), std::pair("none", Type::none)};
    const QString name = json.toString();
    for (const auto& [text, type] : named) {
        if (name == QLatin1String(text))
            return type;
    }
    return std::nullopt;
}

namespace {

QJsonValue toJson(const std::optional<ScrollTarget>& target)
{
    if (!target)
        return {};
    const auto anchors = QMetaEnum::fromType<ScrollAnchor::Anchor>();
    return QJsonObject{
        {QStringLiteral("index"), target->index},
        {QStringLiteral("anchor"), QString::fromLatin1(anchors.valueToKey(target->anchor))}};
}

QJsonValue toJson(const SnippetParts& parts)
{
    QJsonArray all;
    for (const SnippetPart& part : parts)
        all.append(QJsonObject{{QStringLiteral("text"), part.text},
                               {QStringLiteral("isHighlighted"), part.isHighlighted}});
    return all;
}

QJsonValue buttonsBeside(const QString& currentText)
{
    const bool showsCreateNote = CommandShortcutsRow::showCreateNoteButton(currentText);
    QJsonArray buttons;
    QJsonArray numbers;
    if (showsCreateNote)
        buttons.append(QStringLiteral("Create Note"));
    for (const ShortcutCommand& each : CommandShortcutsRow::shortcutButtons(currentText)) {
        buttons.append(rawValue(each.command));
        numbers.append(each.number);
    }
    return QJsonObject{{QStringLiteral("showCreateNoteButton"), showsCreateNote},
                       {QStringLiteral("buttons"), buttons},
                       {QStringLiteral("shortcutNumbers"), numbers}};
}

QJsonArray sorted(const QSet<QString>& keys)
{
    QStringList all = keys.values();
    all.sort();
    return QJsonArray::fromStringList(all);
}

void addListOps(Operations& ops, Session& session)
{
    ops.add(u"FloatingDropdown.colors", {u"dropdownType", u"isSelected", u"isHovered"},
            [](DropdownType type, bool isSelected, bool isHovered) {
                return QJsonValue(QJsonObject{
                    {QStringLiteral("iconColor"), FloatingDropdown::iconColor(type, isSelected)},
                    {QStringLiteral("backgroundColor"),
                     FloatingDropdown::backgroundColor(type, isSelected, isHovered)}});
            });
    ops.add(u"FloatingDropdown.scrollTarget", {u"direction"},
            [&session](std::optional<ArrowDirection> direction) {
                const CommandTemplateState& input = session.input();
                std::optional<DropdownItem> selected;
                if (const auto item = input.selectedItem())
                    selected = Dropdown::row(*item);
                return toJson(FloatingDropdown::scrollTarget(FloatingDropdownRows(input.fields()),
                                                             selected, direction));
            });
    ops.add(u"SearchResultsView.scrollTarget", {u"count", u"selectedIndex", u"direction"},
            [](qint64 count, qint64 selected, std::optional<ArrowDirection> direction) {
                return toJson(SearchResultsView::scrollTarget(count, selected, direction));
            });
}

void addTextOps(Operations& ops)
{
    ops.add(u"SearchResultsView.countText", {u"count"},
            [](qint64 count) { return SearchResultsView::countText(count); });
    ops.add(u"HighlightedSnippetView.parseSnippet", {u"snippet"},
            [](const QString& snippet) { return toJson(parseSnippet(snippet)); });
    ops.add(u"SearchResultRow.truncatedPath", {u"path"},
            [](const QString& path) { return truncatedPath(path); });
    ops.add(u"CommandShortcutsRow.buttons", {u"currentText"},
            [](const QString& currentText) { return buttonsBeside(currentText); });
}

void addKeyOps(Operations& ops, Session& session)
{
    const auto current = std::make_shared<std::unique_ptr<KeyMonitorView>>();
    const auto make = [current, &session] {
        *current = std::make_unique<KeyMonitorView>(session.platform().platform().scheduler);
    };
    const auto monitor = [current, make]() -> KeyMonitorView& {
        if (!*current)
            make();
        return **current;
    };
    ops.add(u"KeyMonitorView.new", {}, make);
    ops.add(u"KeyMonitorView.keyDown", {u"keyCode"},
            [monitor](int keyCode) { monitor().handleKeyDown(keyCode); });
    ops.add(u"KeyMonitorView.keyUp", {u"keyCode"},
            [monitor](int keyCode) { monitor().handleKeyUp(keyCode); });
    ops.add(u"KeyMonitorView.flagsChanged", {}, [monitor] { monitor().flagsChanged(); });
    ops.add(u"KeyMonitorView.dump", {}, [monitor] {
        return QJsonValue(QJsonObject{
            {QStringLiteral("currentPressedKeys"), sorted(monitor().currentPressedKeys())},
            {QStringLiteral("pressedKeys"), sorted(monitor().pressedKeys())}});
    });
}

} // namespace

void addPanelOps(Operations& ops, Session& session)
{
    addListOps(ops, session);
    addTextOps(ops);
    addKeyOps(ops, session);
}

} // namespace jotwell
