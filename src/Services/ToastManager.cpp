#include "Services/ToastManager.h"

#include "Platform/Scheduler.h"

namespace jotwell {

ToastManager::ToastManager(Scheduler& scheduler) : m_scheduler(scheduler) {}

void ToastManager::show(const Toast& toast)
{
    emit shown(toast);
    setCurrentToast(std::nullopt, Transition::immediate);
    setCurrentToast(toast, Transition::animated);
    const auto delay = std::chrono::round<std::chrono::milliseconds>(toast.duration);
    // A toast replaced meanwhile isn't this one any more, and its end must not touch its successor.
    m_scheduler.after(delay, this, [this, id = toast.id] {
        if (m_currentToast && m_currentToast->id == id)
            setCurrentToast(std::nullopt, Transition::animated);
    });
}

void ToastManager::showSuccess(const QString& message, Toast::Seconds duration)
{
    show(Toast::make(ToastType::success, message, duration));
}

void ToastManager::showWarning(const QString& message, Toast::Seconds duration)
{
    show(Toast::make(ToastType::warning, message, duration));
}

void ToastManager::showError(const QString& message, Toast::Seconds duration)
{
    show(Toast::make(ToastType::error, message, duration));
}

void ToastManager::showObsidianError(const QString& message)
{
    showError(QStringLiteral("Can't create a note: ") + message);
}

void ToastManager::showObsidianSuccess()
{
    showSuccess(QStringLiteral("Note created successfully!"));
}

void ToastManager::showFolderNotFound(const QString& path)
{
    showError(QStringLiteral("Can't find the folder: ") + path);
}

void ToastManager::showSettingsRequired()
{
    showWarning(QStringLiteral("Set up this command first in the app settings"));
}

void ToastManager::dismiss()
{
    setCurrentToast(std::nullopt, Transition::animated);
}

void ToastManager::setCurrentToast(std::optional<Toast> toast, Transition transition)
{
    if (m_currentToast == toast)
        return;
    m_currentToast = std::move(toast);
    emit currentToastChanged(transition);
}

} // namespace jotwell
