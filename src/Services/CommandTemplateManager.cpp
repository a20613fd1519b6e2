#include "Services/CommandTemplateManager.h"

#include "Services/CommandService.h"
#include "Services/Input/AutomaticParameter.h"
#include "Services/Input/CommandRuns.h"
#include "Services/Input/CommandText.h"
#include "Services/Input/PartialTokens.h"
#include "Services/SettingsService.h"

#include <QPointer>

namespace jotwell {

using Fields = CommandTemplateFields;

CommandTemplateState::CommandTemplateState(const InputServices& services, QObject* parent)
    : QObject(parent), m_services(services),
      m_fields([this](CommandTemplateField field) { emit changed(field); }),
      m_dropdown(m_fields, services), m_search(services)
{
}

void CommandTemplateState::setText(const QString& text)
{
    m_fields.set<&Fields::text>(text);
}

void CommandTemplateState::setForceTextUpdate(bool force)
{
    m_fields.set<&Fields::forceTextUpdate>(force);
}

void CommandTemplateState::setCurrentTemplate(const std::optional<ObsidianTemplate>& value)
{
    m_fields.set<&Fields::currentTemplate>(value);
}

bool CommandTemplateState::holds(Command command) const
{
    return containsCommand(text(), command);
}

// The editor is to take the text over.
void CommandTemplateState::rewriteText(const QString& text)
{
    setText(text);
    setForceTextUpdate(true);
}

void CommandTemplateState::handleTextChange()
{
    if (m_fields->clickedCommandRange || m_fields->clickedTemplateRange) {
        closeDropdowns();
        return;
    }
    if (needsParameter(text(), Command::recentNotes))
        addFolderParameter();
    if (holds(Command::searchNotes)) {
        waitForSearch();
        return;
    }
    m_search.cancel();
    const QString commandInput = getCurrentCommandInput(); // before the text is written anew
    if (needsParameter(text(), Command::newNote))
        addTemplateParameter();
    if (m_fields->currentTemplate && !holds(Command::newNote))
        setCurrentTemplate(std::nullopt);
    chooseList(commandInput);
}

void CommandTemplateState::addFolderParameter()
{
    setText(withParameter(text(), Command::recentNotes, InputNames::allFolders()));
    m_fields.set<&Fields::currentFolderName>(InputNames::allFolders());
    setForceTextUpdate(true);
}

void CommandTemplateState::addTemplateParameter()
{
    const ObsidianTemplate last = m_services.settings.getLastUsedTemplate();
    setCurrentTemplate(last);
    rewriteText(withParameter(text(), Command::newNote, last.name));
}

void CommandTemplateState::waitForSearch()
{
    m_search.cancel();
    const QString query = searchQueryIn(text());
    if (!query.isEmpty())
        m_search.schedule(query);
    if (const auto hashtag = getCurrentHashtagInput())
        updateHashtagDropdown(*hashtag);
    else
        closeDropdowns();
}

void CommandTemplateState::chooseList(const QString& commandInput)
{
    if (const auto hashtag = getCurrentHashtagInput())
        updateHashtagDropdown(*hashtag);
    else if (const auto noteTemplate = getCurrentTemplateInput())
        m_dropdown.updateTemplateDropdown(noteTemplate);
    else if (const auto folder = getCurrentFolderInput())
        m_dropdown.updateFolderDropdown(folder);
    else if (commandInput.startsWith(u'/'))
        updateCommandDropdown(commandInput);
    else
        closeDropdowns();
}

void CommandTemplateState::closeDropdowns()
{
    m_dropdown.close();
}

QString CommandTemplateState::getCurrentCommandInput() const
{
    return currentCommandInput(text());
}

std::optional<QString> CommandTemplateState::getCurrentTemplateInput() const
{
    if (!text().contains(u'$') || !holds(Command::newNote) || hasExistingTemplate())
        return std::nullopt;
    return currentParameterInput(text());
}

std::optional<QString> CommandTemplateState::getCurrentFolderInput() const
{
    if (!text().contains(u'$') || !holds(Command::recentNotes) || hasExistingFolderParameter())
        return std::nullopt;
    return currentParameterInput(text());
}

std::optional<QString> CommandTemplateState::getCurrentHashtagInput() const
{
    return currentHashtagInput(text());
}

bool CommandTemplateState::hasExistingTemplate() const
{
    return hasExistingParameter(text(), names().templateNames());
}

bool CommandTemplateState::hasExistingFolderParameter() const
{
    return hasExistingParameter(text(), names().folderNames());
}

void CommandTemplateState::updateCommandDropdown(const QString& input)
{
    m_dropdown.updateCommandDropdown(input);
}

void CommandTemplateState::updateTemplateDropdown()
{
    m_dropdown.updateTemplateDropdown(getCurrentTemplateInput());
}

void CommandTemplateState::updateFolderDropdown()
{
    m_dropdown.updateFolderDropdown(getCurrentFolderInput());
}

void CommandTemplateState::updateHashtagDropdown(const QString& input)
{
    m_dropdown.updateHashtagDropdown(input);
}

void CommandTemplateState::selectItem(const Item& item)
{
    // A copy: whoever shows the rows may put others in their place meanwhile.
    std::visit([this](const auto& actual) { select(actual); }, Item(item));
}

void CommandTemplateState::select(Command command)
{
    m_dropdown.storeSelected(command);
    if (const auto clicked = m_fields->clickedCommandRange) {
        putCommand(command, cutAt(text(), *clicked), TokenOrigin::clicked);
        return;
    }
    const QString input = getCurrentCommandInput();
    if (input.isEmpty())
        closeDropdowns();
    else
        putCommand(command, cutAtEnd(text(), input), TokenOrigin::typed);
}

void CommandTemplateState::putCommand(Command command, const TokenCut& cut, TokenOrigin origin)
{
    if (command == Command::newNote) {
        const ObsidianTemplate last = m_services.settings.getLastUsedTemplate();
        setCurrentTemplate(last);
        setText(newNoteText(cut, last.name, names().templateNames()));
    } else if (leavesNewNote(cut, origin)) {
        setText(leavingText(cut, origin, command, names().templateNames()));
        setCurrentTemplate(std::nullopt);
    } else if (command == Command::recentNotes) {
        putRecentNotes(cut);
        return;
    } else {
        setText(searchNotesText(cut));
        setCurrentTemplate(std::nullopt);
    }
    rewriteText(trimmedWhitespace(text()));
    m_fields.clear<&Fields::clickedCommandRange>();
    closeDropdowns();
}

// It runs at once and stays in the text.
void CommandTemplateState::putRecentNotes(const TokenCut& cut)
{
    setText(recentNotesText(cut, InputNames::allFolders()));
    m_fields.set<&Fields::currentFolderName>(InputNames::allFolders());
    setForceTextUpdate(true);
    m_fields.clear<&Fields::clickedCommandRange>();
    closeDropdowns();
    runLater(m_services, Command::recentNotes, text());
}

void CommandTemplateState::select(const ObsidianTemplate& chosen)
{
    m_dropdown.storeSelected(chosen);
    setCurrentTemplate(chosen);
    putToken(m_fields->clickedTemplateRange, getCurrentTemplateInput(), u'$' + chosen.name);
    m_services.settings.setLastUsedTemplateId(chosen.id);
    closeDropdowns();
}

void CommandTemplateState::select(const FolderItem& folder)
{
    m_dropdown.storeSelected(folder);
    m_fields.set<&Fields::currentFolderName>(folder.name);
    putToken(m_fields->clickedTemplateRange, getCurrentFolderInput(), u'$' + folder.name);
    closeDropdowns();
    runLater(m_services, Command::recentNotes, text());
}

void CommandTemplateState::select(const HashtagItem& hashtag)
{
    m_dropdown.storeSelected(hashtag);
    putToken(m_fields->clickedHashtagRange, getCurrentHashtagInput(), u'#' + hashtag.tag,
             QStringLiteral(" "));
    closeDropdowns();
}

// In place of the clicked token, or else of the one being typed; if there is neither, nowhere.
void CommandTemplateState::putToken(const std::optional<TextRange>& clicked,
                                    const std::optional<QString>& typed, const QString& token,
                                    const QString& behindTyped)
{
    if (clicked) {
        const TokenCut cut = cutAt(text(), *clicked);
        rewriteText(cut.before + token + cut.after);
    } else if (typed) {
        rewriteText(cutAtEnd(text(), *typed).before + token + behindTyped);
    }
}

bool CommandTemplateState::handleArrowKey(ArrowDirection direction)
{
    if (!m_fields->showDropdown || m_dropdown.isEmpty())
        return false;
    const qsizetype step = direction == ArrowDirection::up ? -1 : 1;
    if (const auto selected = m_dropdown.selectedIndex())
        selectItemAtIndex(*selected + step, direction); // at an end there is no such row
    else
        selectItemAtIndex(0, std::nullopt);
    return true;
}

void CommandTemplateState::selectItemAtIndex(qsizetype index,
                                             std::optional<ArrowDirection> direction)
{
    if (m_dropdown.select(index))
        emit scrollToSelectedItem(direction);
}

bool CommandTemplateState::handleEnterKey()
{
    const auto selected = selectedItem();
    if (!m_fields->showDropdown || !selected)
        return false;
    selectItem(*selected);
    return true;
}

void CommandTemplateState::handleCommandClick(const TextRange& range)
{
    m_dropdown.openCommands(range);
}

void CommandTemplateState::handleTemplateClick(const TextRange& range)
{
    if (holds(Command::recentNotes))
        m_dropdown.openFolders(range);
    else
        m_dropdown.openTemplates(range);
}

void CommandTemplateState::handleHashtagClick(const TextRange& range)
{
    m_dropdown.openHashtags(range);
}

QCoro::Task<bool> CommandTemplateState::executeCommand()
{
    const auto command = m_services.commands.findCommand(text());
    if (!command)
        co_return false;
    const QPointer self(this);
    const bool success = co_await m_services.commands.executeCommand(*command, text());
    if (success && self) {
        m_search.cancel(); // its list would take the place of the command's
        rewriteText(QString());
        setCurrentTemplate(std::nullopt);
    }
    co_return success;
}

} // namespace jotwell
