#include "Views/FloatingWindowView.h"

#include "Platform/Scheduler.h"

#include <QCoroTask>

namespace jotwell {

using namespace std::chrono_literals;

FloatingWindowView::FloatingWindowView(const InputServices& services, ToastManager& toastManager,
                                       QObject* parent)
    : QObject(parent), m_scheduler(services.scheduler), m_commandTemplateState(services),
      m_editor(editorBindings(), services.scheduler),
      m_dropdown(m_commandTemplateState, services.scheduler), m_toasts(toastManager)
{
    connect(&m_commandTemplateState, &CommandTemplateState::changed, this,
            &FloatingWindowView::stateChanged);
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
    its.onTextChange = [&state] { state.handleTextChange(); };
    its.onCommandEnter = [this] { handleCommandEnter(); };
    its.onArrowKey = [&state](ArrowDirection direction) { return state.handleArrowKey(direction); };
    its.onEnterKey = [&state] { return state.handleEnterKey(); };
    its.onTabKey = [] { return true; };
    its.onCommandClick = [&state](const TextRange& range, const QString&) {
        state.handleCommandClick(range);
    };
    its.onTemplateClick = [&state](const TextRange& range, const QString&) {
        state.handleTemplateClick(range);
    };
    its.onHashtagClick = [&state](const TextRange& range, const QString&) {
        state.handleHashtagClick(range);
    };
    return its;
}

void FloatingWindowView::stateChanged(CommandTemplateField field)
{
    using Field = CommandTemplateField;
    if (field == Field::text || field == Field::forceTextUpdate)
        m_editor.updateView();
    else if (field == Field::showDropdown)
        emit showDropdownChanged();
}

int FloatingWindowView::dynamicHeight(bool showDropdown, bool showSearchResults)
{
    return (showDropdown ? 264 : 164) + (showSearchResults ? 320 : 0);
}

void FloatingWindowView::appear()
{
    m_scheduler.after(100ms, this, [this] {
        m_isFocused = true;
        emit isFocusedChanged();
        m_editor.updateView();
    });
}

void FloatingWindowView::handleCommandEnter()
{
    setSpringScale(1.05);
    m_scheduler.after(100ms, this, [this] { setSpringScale(1.0); });
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
    m_scheduler.after(300ms, this, [this, show] { (this->*show)(false); });
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
