#pragma once

#include "Services/CommandTemplateManager.h"
#include "Views/DropdownModel.h"
#include "Views/Editor/CustomTextEditor.h"
#include "Views/ToastContainerView.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

class Scheduler;
class ToastManager;

/// The state of the capture window's content: the input state, and how the card answers an executed
/// command, by a short spring at once and by a flash of its colours when the outcome is known. Main
/// thread; lives as long as the window, which is only ever hidden.
class FloatingWindowView : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(FloatingWindowState)
    QML_UNCREATABLE("is made with the capture window")

    Q_PROPERTY(jotwell::CustomTextEditor* editor READ editor CONSTANT)
    Q_PROPERTY(jotwell::ToastContainerView* toasts READ toasts CONSTANT)
    Q_PROPERTY(bool isFocused READ isFocused NOTIFY isFocusedChanged)
    Q_PROPERTY(double springScale READ springScale NOTIFY springScaleChanged)
    Q_PROPERTY(bool showAccentBorder READ showAccentBorder NOTIFY flashChanged)
    Q_PROPERTY(bool showAccentBackground READ showAccentBackground NOTIFY flashChanged)
    Q_PROPERTY(bool showErrorBorder READ showErrorBorder NOTIFY flashChanged)
    Q_PROPERTY(bool showErrorBackground READ showErrorBackground NOTIFY flashChanged)
    Q_PROPERTY(jotwell::DropdownModel* dropdown READ dropdown CONSTANT)
    Q_PROPERTY(bool showDropdown READ showDropdown NOTIFY showDropdownChanged)
    Q_PROPERTY(int dynamicHeight READ dynamicHeight NOTIFY showDropdownChanged)

public:
    FloatingWindowView(const InputServices& services, ToastManager& toastManager,
                       QObject* parent = nullptr);

    [[nodiscard]] CommandTemplateState& commandTemplateState() { return m_commandTemplateState; }
    [[nodiscard]] CustomTextEditor* editor() { return &m_editor; }
    [[nodiscard]] DropdownModel* dropdown() { return &m_dropdown; }
    [[nodiscard]] ToastContainerView* toasts() { return &m_toasts; }

    [[nodiscard]] bool isFocused() const { return m_isFocused; }
    [[nodiscard]] double springScale() const { return m_springScale; }
    [[nodiscard]] bool showAccentBorder() const { return m_showAccentBorder; }
    [[nodiscard]] bool showAccentBackground() const { return m_showAccentBackground; }
    [[nodiscard]] bool showErrorBorder() const { return m_showErrorBorder; }
    [[nodiscard]] bool showErrorBackground() const { return m_showErrorBackground; }

    /// The card's height for what it shows.
    [[nodiscard]] static int dynamicHeight(bool showDropdown, bool showSearchResults);
    [[nodiscard]] int dynamicHeight() const { return dynamicHeight(showDropdown(), false); }
    [[nodiscard]] bool showDropdown() const { return m_commandTemplateState.fields().showDropdown; }

    /// The window is on the screen for the first time.
    void appear();
    /// Runs the command in the text and shows how it went.
    void handleCommandEnter();
    /// The user clicked beside the dropdown.
    Q_INVOKABLE void closeDropdowns() { m_commandTemplateState.closeDropdowns(); }

signals:
    void isFocusedChanged();
    void showDropdownChanged();
    void springScaleChanged();
    void flashChanged();

private:
    [[nodiscard]] CustomTextEditorBindings editorBindings();
    void stateChanged(CommandTemplateField field);
    void setSpringScale(double scale);
    void flash(bool success);
    void showAccent(bool show);
    void showError(bool show);

    Scheduler& m_scheduler;
    CommandTemplateState m_commandTemplateState;
    CustomTextEditor m_editor;
    DropdownModel m_dropdown;
    ToastContainerView m_toasts;
    bool m_isFocused = false;
    double m_springScale = 1.0;
    bool m_showAccentBorder = false;
    bool m_showAccentBackground = false;
    bool m_showErrorBorder = false;
    bool m_showErrorBackground = false;
};

} // namespace jotwell
