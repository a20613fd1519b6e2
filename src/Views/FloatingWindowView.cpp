#include "Views/FloatingWindowView.h"

#include "Platform/Scheduler.h"
#include "Services/CommandService.h"
#include "Services/Input/CommandText.h"
#include "Services/ObsidianService.h"
#include "Services/SettingsService.h"
#include "Support/TextUnits.h"

#include <QCoroTask>

#include <QPointer>
#include <QScopedValueRollback>
#include <QVariant>

#include <utility>

namespace jotwell {

using namespace std::chrono_literals;

FloatingWindowView::FloatingWindowView(const InputServices& services, ToastManager& toastManager,
                                       QObject* parent)
    : QObject(parent), m_services(services), m_commandTemplateState(services),
      m_editor(editorBindings(), services.scheduler),
      m_dropdown(m_commandTemplateState, services.scheduler), m_results(services.scheduler),
      m_indexStatus(services.tags, services.scheduler), m_toasts(toastManager)
{
    connect(&m_commandTemplateState, &CommandTemplateState::changed, this,
            &FloatingWindowView::stateChanged);
    connect(this, &FloatingWindowView::scrollToSelectedSearchResult, &m_results,
            &SearchResultsView::scrollToSelected);
    connect(&m_results, &SearchResultsView::resultTapped, this,
            &FloatingWindowView::openSearchResult);
    connect(&m_shortcuts, &CommandShortcutsRow::commandSelected, this,
            &FloatingWindowView::handleCommandShortcut);
    connect(&m_shortcuts, &CommandShortcutsRow::createNoteRequested, this,
            &FloatingWindowView::handleCommandEnter);
}

CustomTextEditorBindings FloatingWindowView::editorBindings()
{
    CommandTemplateState& state = m_commandTemplateState;
    CustomTextEditorBindings its;
    its.text = [&state] { return state.text(); };
    its.setText = [&state](const QString& text) { state.setText(text); };
    its.isFocused = [this] { return m_isFocused; };
    its.forceUpdate = [&state] { return state.forceTextUpdate(); };
    its.setForceUpdate = [&state](bool force) { state.setForceTextUpdate(force); };
    its.tokenNames = {[&state] { return state.names().templateNames(); },
                      [&state] { return state.names().folderNames(); }};
    its.placeholder = QStringLiteral("What's on your mind right now?");
    its.onTextChange = [this] { textChanged(); };
    its.onCommandEnter = [this] { handleCommandEnter(); };
    its.onArrowKey = [this](ArrowDirection direction) { return arrowKey(direction); };
    its.onEnterKey = [this] { return enterKey(); };
    its.onTabKey = [this] {
        handleTabKey();
        return true;
    };
    const auto tokenClick = [this](auto openList) {
        return [this, openList](const TextRange& range, const QString&) {
            m_hasTokenClick = true;
            (m_commandTemplateState.*openList)(range);
        };
    };
    its.onCommandClick = tokenClick(&CommandTemplateState::handleCommandClick);
    its.onTemplateClick = tokenClick(&CommandTemplateState::handleTemplateClick);
    its.onHashtagClick = tokenClick(&CommandTemplateState::handleHashtagClick);
    return its;
}

void FloatingWindowView::stateChanged(CommandTemplateField field)
{
    using Field = CommandTemplateField;
    if (field == Field::text || field == Field::forceTextUpdate) {
        m_shortcuts.setCurrentText(m_commandTemplateState.text());
        if (!m_isInserting)
            m_editor.updateView();
    } else if (field == Field::showDropdown) {
        emit showDropdownChanged();
        emit dynamicHeightChanged();
    }
}

int FloatingWindowView::dynamicHeight(bool showDropdown, bool showSearchResults)
{
    return (showDropdown ? 264 : 164) + (showSearchResults ? 320 : 0);
}

int FloatingWindowView::dynamicHeight() const
{
    return dynamicHeight(showDropdown(), m_panel.isShown);
}

void FloatingWindowView::appear()
{
    m_services.scheduler.after(100ms, this, [this] { setFocused(true); });
    m_services.commands.setOnSearchResults(
        [self = QPointer(this)](const NoteSearchResults& results) {
            if (self)
                self->deliver(results);
        });
}

void FloatingWindowView::setFocused(bool focused)
{
    if (std::exchange(m_isFocused, focused) == focused)
        return;
    emit isFocusedChanged();
    m_editor.updateView();
}

void FloatingWindowView::tapContent()
{
    if (showDropdown() && !m_hasTokenClick)
        closeDropdowns();
}

// The text and the shortcuts

void FloatingWindowView::textChanged()
{
    m_commandTemplateState.handleTextChange();
    const auto& fields = m_commandTemplateState.fields();
    if (fields.showDropdown && fields.dropdownType == DropdownType::folder) {
        Panel panel = m_panel;
        panel.hasFocus = false;
        setPanel(panel);
        setFocused(true);
    }
    const bool isSearch = containsCommand(fields.text, Command::searchNotes);
    if (!isSearch && !containsCommand(fields.text, Command::recentNotes)) {
        clearSearchResults();
        setFocused(true);
    } else if (isSearch && searchQueryIn(fields.text).isEmpty()) {
        clearSearchResults();
    }
}

void FloatingWindowView::handleCommandShortcut(Command command)
{
    {
        const QScopedValueRollback inserting(m_isInserting, true);
        putCommand(command);
    }
    m_editor.updateView();
    setFocused(true);
    if (command == Command::recentNotes)
        QCoro::connect(m_services.commands.executeRecentNotesCommand(m_commandTemplateState.text()),
                       this, [] {});
}

void FloatingWindowView::putCommand(Command command)
{
    CommandTemplateState& state = m_commandTemplateState;
    const QString blank = QStringLiteral(" ");
    if (command == Command::recentNotes) {
        state.setText(QStringLiteral("/recent  $All Folders "));
    } else {
        const QString before = state.text().isEmpty() ? QString() : state.text() + blank;
        state.setText(before + rawValue(command) + blank);
    }
    if (command == Command::newNote) {
        const ObsidianTemplate noteTemplate = m_services.settings.getLastUsedTemplate();
        state.setCurrentTemplate(noteTemplate);
        state.setText(
            QStringLiteral("%1  $%2 ").arg(trimmedWhitespace(state.text()), noteTemplate.name));
    }
    state.setForceTextUpdate(true);
}

void FloatingWindowView::insertCommand(const QVariant& object)
{
    if (object.metaType() == QMetaType::fromType<Command>())
        handleCommandShortcut(object.value<Command>());
}

// The panel of notes

void FloatingWindowView::deliver(const NoteSearchResults& results)
{
    m_results.setSearchResults(results);
    const bool hasQuery = !searchQueryIn(m_commandTemplateState.text()).isEmpty();
    setPanel({.isShown = hasQuery && !results.isEmpty()});
}

void FloatingWindowView::clearSearchResults()
{
    m_results.setSearchResults({});
    setPanel({});
}

void FloatingWindowView::setPanel(const Panel& panel)
{
    const Panel before = std::exchange(m_panel, panel);
    if (before == panel)
        return;
    m_results.setSelectedIndex(panel.hasFocus ? panel.selectedIndex : -1);
    m_results.setShown(panel.isShown);
    if (before.isShown == panel.isShown)
        return;
    emit showSearchResultsChanged();
    emit dynamicHeightChanged();
}

bool FloatingWindowView::arrowKey(ArrowDirection direction)
{
    return m_panel.isShown ? handleSearchResultArrowKey(direction)
                           : m_commandTemplateState.handleArrowKey(direction);
}

bool FloatingWindowView::handleSearchResultArrowKey(ArrowDirection direction)
{
    if (!m_panel.isShown || searchResults().isEmpty())
        return false;
    Panel panel = m_panel;
    panel.selectedIndex += direction == ArrowDirection::down ? 1 : -1;
    if (panel.selectedIndex < -1 || panel.selectedIndex >= searchResults().size())
        return true;
    if (panel.selectedIndex == -1) { // up and out of the list
        setPanel({.isShown = true});
        setFocused(true);
        return true;
    }
    setPanel(panel);
    emit scrollToSelectedSearchResult(direction);
    return true;
}

bool FloatingWindowView::enterKey()
{
    const int index = m_panel.selectedIndex;
    if (!m_panel.isShown || index < 0 || index >= searchResults().size())
        return m_commandTemplateState.handleEnterKey();
    openSelectedSearchResult();
    return true;
}

void FloatingWindowView::handleTabKey()
{
    if (!m_panel.isShown || searchResults().isEmpty() || m_panel.hasFocus)
        return;
    setPanel({.isShown = true, .hasFocus = true, .selectedIndex = 0});
    setFocused(false);
    emit scrollToSelectedSearchResult(std::nullopt);
}

void FloatingWindowView::openSelectedSearchResult()
{
    openSearchResult(m_panel.selectedIndex);
}

void FloatingWindowView::openSearchResult(int index)
{
    if (index < 0 || index >= searchResults().size())
        return;
    const NoteSearchResult note = searchResults().at(index);
    QCoro::connect(m_services.notes.openNoteInObsidian(note), this,
                   [this] { emit toggleRequested(); });
}

// The card's answer to a command

void FloatingWindowView::handleCommandEnter()
{
    setSpringScale(1.05);
    m_services.scheduler.after(100ms, this, [this] { setSpringScale(1.0); });
    QCoro::connect(m_commandTemplateState.executeCommand(), this,
                   [this](bool success) { flash(success); });
}

void FloatingWindowView::setSpringScale(double scale)
{
    m_springScale = scale;
    emit springScaleChanged();
}

// Each flash ends by itself 0.3 s later, also if another one has begun meanwhile.
void FloatingWindowView::flash(bool success)
{
    const auto show = success ? &FloatingWindowView::showAccent : &FloatingWindowView::showError;
    (this->*show)(true);
    m_services.scheduler.after(300ms, this, [this, show] { (this->*show)(false); });
}

void FloatingWindowView::showAccent(bool show)
{
    m_showAccentBorder = show;
    m_showAccentBackground = show;
    emit flashChanged();
}

void FloatingWindowView::showError(bool show)
{
    m_showErrorBorder = show;
    m_showErrorBackground = show;
    emit flashChanged();
}

} // namespace jotwell
