#pragma once

#include "Models/Toast.h"

#include <QObject>

#include <optional>

namespace jotwell {

class Scheduler;

/// The one slot through which every service speaks to the user. A new toast replaces the one on
/// show at once; there is no queue. Main thread only; lives as long as the program.
class ToastManager : public QObject {
    Q_OBJECT

public:
    static constexpr Toast::Seconds shortDuration{2.0};
    static constexpr Toast::Seconds errorDuration{3.0};

    /// How a change of the slot is to look.
    enum class Transition { immediate, animated };

    explicit ToastManager(Scheduler& scheduler);
    [[nodiscard]] static ToastManager& shared();

    [[nodiscard]] const std::optional<Toast>& currentToast() const { return m_currentToast; }

    void show(const Toast& toast);
    void showSuccess(const QString& message, Toast::Seconds duration = shortDuration);
    void showWarning(const QString& message, Toast::Seconds duration = shortDuration);
    void showError(const QString& message, Toast::Seconds duration = errorDuration);
    void showObsidianError(const QString& message);
    void showObsidianSuccess();
    void showFolderNotFound(const QString& path);
    void showSettingsRequired();
    void dismiss();

signals:
    /// A toast was handed to `show`, before the slot changes.
    void shown(const jotwell::Toast& toast);
    /// The slot has changed. The first change of two that follow one another within a `show` is
    /// immediate, so that the new toast always plays its entry.
    void currentToastChanged(jotwell::ToastManager::Transition transition);

private:
    void setCurrentToast(std::optional<Toast> toast, Transition transition);

    Scheduler& m_scheduler;
    std::optional<Toast> m_currentToast;
};

} // namespace jotwell
