#include "Views/Editor/CustomTextEditorCoordinator.h"

#include "Platform/Scheduler.h"
#include "Views/Editor/EmojiRanges.h"
#include "Views/Editor/StyledText.h"

#include <QScopedValueRollback>

#include <utility>

namespace jotwell {

namespace {

template <typename... Arguments>
bool isUsed(const std::function<bool(Arguments...)>& action, Arguments... arguments)
{
    return action && action(arguments...);
}

} // namespace

CustomTextEditorCoordinator::CustomTextEditorCoordinator(const CustomTextEditorBindings& parent,
                                                         RoundedBackgroundTextView& view,
                                                         Scheduler& scheduler)
    : m_parent(parent), m_view(view), m_scheduler(scheduler), m_names(parent.tokenNames)
{
}

void CustomTextEditorCoordinator::textDidChange()
{
    const QScopedValueRollback telling(m_isTelling, true);
    m_parent.setText(m_view.string());
    if (m_parent.onTextChange)
        m_parent.onTextChange();
}

bool CustomTextEditorCoordinator::doCommandBy(QStringView selector,
                                              const std::optional<CurrentEvent>& event)
{
    const bool hasCommand = event && event->hasCommand();
    const bool isReturn =
        event && event->type == CurrentEvent::keyDown && event->keyCode == CurrentEvent::returnKey;
    if (hasCommand && (isReturn || selector == u"insertNewline:")) {
        if (m_parent.onCommandEnter)
            m_parent.onCommandEnter();
        return true;
    }
    if (selector == u"deleteBackward:")
        return handleCommandBackspace();
    if (selector == u"insertNewline:")
        return isUsed(m_parent.onEnterKey);
    if (selector == u"moveUp:")
        return isUsed(m_parent.onArrowKey, ArrowDirection::up);
    if (selector == u"moveDown:")
        return isUsed(m_parent.onArrowKey, ArrowDirection::down);
    return selector == u"insertTab:" && isUsed(m_parent.onTabKey);
}

bool CustomTextEditorCoordinator::handleCommandBackspace()
{
    const TextRange selection = m_view.selectedRange();
    if (selection.length != 0)
        return false;
    const QString& text = m_view.string();
    const auto word = slashWordAt(text, characterCount(text), selection.location);
    if (!word)
        return false;
    m_view.document().replaceCharacters(*word, QString());
    m_view.setSelectedRange({word->location, 0});
    textDidChange();
    return true;
}

void CustomTextEditorCoordinator::highlightCommands()
{
    const QString& text = m_view.string();
    StyledText styled = styledText(text, m_names);
    m_view.styles().apply(m_view.document(), styled.runs, emojiRanges(text));
    m_found = std::move(styled.tokens);
    // The views are not to see new chips in the midst of an update.
    if (!std::exchange(m_storesChips, true))
        m_scheduler.after({}, this, [this] { storeChips(); });
}

void CustomTextEditorCoordinator::storeChips()
{
    m_storesChips = false;
    TokenRanges found = std::exchange(m_found, {});
    m_view.updateCommandRanges(std::move(found.commands));
    m_view.updateTemplateRanges(std::move(found.templates));
    m_view.updateHashtagRanges(std::move(found.hashtags));
}

} // namespace jotwell
