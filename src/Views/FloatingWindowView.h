#pragma once

#include "Services/CommandTemplateManager.h"
#include "Services/Input/InputServices.h"
#include "Views/CommandShortcutsRow.h"
#include "Views/DropdownModel.h"
#include "Views/Editor/CustomTextEditor.h"
#include "Views/IndexStatusView.h"
#include "Views/Results/SearchResultsView.h"
#include "Views/ToastContainerView.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

class ToastManager;

/// The state of the capture window's content: the input state, the notes found, who of the text
/// field and the panel of notes has the arrow keys, and how the card answers an executed command,
/// by a short spring at once and by a flash of its colours when the outcome is known. Main thread;
/// lives as long as the window, which is only ever hidden.
class FloatingWindowView : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(FloatingWindowState)
    QML_UNCREATABLE("is made with the capture window")

    Q_PROPERTY(jotwell::CustomTextEditor* editor READ editor CONSTANT)
    Q_PROPERTY(jotwell::DropdownModel* dropdown READ dropdown CONSTANT)
    Q_PROPERTY(jotwell::CommandShortcutsRow* shortcuts READ shortcuts CONSTANT)
    Q_PROPERTY(jotwell::SearchResultsView* results READ results CONSTANT)
    Q_PROPERTY(jotwell::IndexStatusView* indexStatus READ indexStatus CONSTANT)
    Q_PROPERTY(jotwell::ToastContainerView* toasts READ toasts CONSTANT)
    Q_PROPERTY(bool showDropdown READ showDropdown NOTIFY showDropdownChanged)
    Q_PROPERTY(bool showSearchResults READ showSearchResults NOTIFY showSearchResultsChanged)
    Q_PROPERTY(int dynamicHeight READ dynamicHeight NOTIFY dynamicHeightChanged)
    Q_PROPERTY(double springScale READ springScale NOTIFY springScaleChanged)
    Q_PROPERTY(bool showAccentBorder READ showAccentBorder NOTIFY flashChanged)
    Q_PROPERTY(bool showAccentBackground READ showAccentBackground NOTIFY flashChanged)
    Q_PROPERTY(bool showErrorBorder READ showErrorBorder NOTIFY flashChanged)
    Q_PROPERTY(bool showErrorBackground READ showErrorBackground NOTIFY flashChanged)

public:
    FloatingWindowView(const InputServices& services, ToastManager& toastManager,
                       QObject* parent = nullptr);

    [[nodiscard]] CommandTemplateState& commandTemplateState() { return m_commandTemplateState; }
    [[nodiscard]] CustomTextEditor* editor() { return &m_editor; }
    [[nodiscard]] DropdownModel* dropdown() { return &m_dropdown; }
    [[nodiscard]] CommandShortcutsRow* shortcuts() { return &m_shortcuts; }
    [[nodiscard]] SearchResultsView* results() { return &m_results; }
    [[nodiscard]] IndexStatusView* indexStatus() { return &m_indexStatus; }
    [[nodiscard]] ToastContainerView* toasts() { return &m_toasts; }

    /// The text field is to have the keyboard.
    [[nodiscard]] bool isFocused() const { return m_isFocused; }
    [[nodiscard]] bool showDropdown() const { return m_commandTemplateState.fields().showDropdown; }
    [[nodiscard]] const NoteSearchResults& searchResults() const
    {
        return m_results.searchResults();
    }
    [[nodiscard]] bool showSearchResults() const { return m_panel.isShown; }
    /// -1 for none. The panel marks it only while it has the arrow keys.
    [[nodiscard]] int selectedSearchResultIndex() const { return m_panel.selectedIndex; }
    [[nodiscard]] bool searchResultsHaveFocus() const { return m_panel.hasFocus; }
    [[nodiscard]] double springScale() const { return m_springScale; }
    [[nodiscard]] bool showAccentBorder() const { return m_showAccentBorder; }
    [[nodiscard]] bool showAccentBackground() const { return m_showAccentBackground; }
    [[nodiscard]] bool showErrorBorder() const { return m_showErrorBorder; }
    [[nodiscard]] bool showErrorBackground() const { return m_showErrorBackground; }

    /// The card's height for what it shows.
    [[nodiscard]] static int dynamicHeight(bool showDropdown, bool showSearchResults);
    [[nodiscard]] int dynamicHeight() const;

    /// The window is on the screen for the first time. From here on the lists of notes come here.
    void appear();
    /// Runs the command in the text and shows how it went.
    void handleCommandEnter();
    /// Puts a command into the text; the recent notes are listed at once.
    void handleCommandShortcut(Command command);
    /// The same for a `Command`; any other object is passed over.
    void insertCommand(const QVariant& object);
    /// Opens the selected note, if there is one, and has the window hidden then.
    void openSelectedSearchResult();
    // A press on what the card shows, the end of it if it was a tap, and a click beside the card.
    Q_INVOKABLE void pressContent() { m_hasTokenClick = false; }
    Q_INVOKABLE void tapContent();
    Q_INVOKABLE void closeDropdowns() { m_commandTemplateState.closeDropdowns(); }

signals:
    void isFocusedChanged();
    void showDropdownChanged();
    void dynamicHeightChanged();
    void showSearchResultsChanged();
    void springScaleChanged();
    void flashChanged();
    /// The panel is to show its selected row; the direction in which an arrow key has moved it.
    void scrollToSelectedSearchResult(std::optional<jotwell::ArrowDirection> direction);
    /// The window has done what it was called up for and is to be hidden.
    void toggleRequested();

private:
    /// Of the notes found.
    struct Panel {
        bool isShown = false;
        bool hasFocus = false;
        int selectedIndex = -1;

        bool operator==(const Panel&) const = default;
    };

    [[nodiscard]] CustomTextEditorBindings editorBindings();
    void stateChanged(CommandTemplateField field);
    void textChanged();
    void putCommand(Command command);
    [[nodiscard]] bool arrowKey(ArrowDirection direction);
    [[nodiscard]] bool enterKey();
    [[nodiscard]] bool handleSearchResultArrowKey(ArrowDirection direction);
    void handleTabKey();
    void openSearchResult(int index);
    void deliver(const NoteSearchResults& results);
    void clearSearchResults();
    void setPanel(const Panel& panel);
    void setFocused(bool focused);
    void setSpringScale(double scale);
    void flash(bool success);
    void showAccent(bool show);
    void showError(bool show);

    InputServices m_services;
    CommandTemplateState m_commandTemplateState;
    CustomTextEditor m_editor;
    DropdownModel m_dropdown;
    CommandShortcutsRow m_shortcuts;
    SearchResultsView m_results;
    IndexStatusView m_indexStatus;
    ToastContainerView m_toasts;
    bool m_isFocused = false;
    bool m_hasTokenClick = false; ///< since the last press
    bool m_isInserting = false;   ///< the text field is to see only what comes of it
    Panel m_panel;
    double m_springScale = 1.0;
    bool m_showAccentBorder = false;
    bool m_showAccentBackground = false;
    bool m_showErrorBorder = false;
    bool m_showErrorBackground = false;
};

} // namespace jotwell
