#include "Views/FloatingWindowView.h"

#include "Platform/Scheduler.h"

#include <QCoroTask>

namespace jotwell {

using namespace std::chrono_literals;

FloatingWindowView::FloatingWindowView(const InputServices& services, ToastManager& toastManager,
                                       QObject* parent)
    : QObject(parent), m_scheduler(services.scheduler), m_commandTemplateState(services),
      m_editor(m_commandTemplateState, services.scheduler,
               QStringLiteral("What's on your mind right now?")),
      m_toasts(toastManager)
{
    m_editor.setOnCommandEnter([this] { handleCommandEnter(); });
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
