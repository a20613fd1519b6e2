#pragma once

#include "Views/ToastContainerView.h"

#include <QPointer>
#include <QWindow>

namespace jotwell {

class FolderPanel;
class LaunchAtLoginManager;
class SettingsService;
class TagIndexService;
class TemplateSyncService;
class ToastManager;

/// What the welcome works with; all of it outlives the view.
struct OnboardingServices {
    SettingsService& settings;
    TagIndexService& index;
    TemplateSyncService& templates;
    LaunchAtLoginManager& launchAtLogin;
    ToastManager& toasts;
    FolderPanel& folders;
};

/// The welcome of the first start: five steps, of which nothing but the launch at login takes
/// effect before the end. Main thread.
class OnboardingView : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(OnboardingState)
    QML_UNCREATABLE("belongs to the onboarding window")

    Q_PROPERTY(int currentStep READ currentStep NOTIFY currentStepChanged)
    Q_PROPERTY(int totalSteps READ totalStepCount CONSTANT)
    Q_PROPERTY(bool isLastStep READ isLastStep NOTIFY currentStepChanged)
    Q_PROPERTY(bool shouldDisableContinue READ shouldDisableContinue NOTIFY continueChanged)
    Q_PROPERTY(QString obsidianVaultPath READ obsidianVaultPath NOTIFY obsidianVaultPathChanged)
    Q_PROPERTY(
        QString templatesFolderPath READ templatesFolderPath NOTIFY templatesFolderPathChanged)
    Q_PROPERTY(
        bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY launchAtLoginChanged)
    Q_PROPERTY(jotwell::ToastContainerView* toasts READ toasts CONSTANT)

public:
    static constexpr int totalSteps = 5;

    enum FolderPickerType { vault, templates };

    explicit OnboardingView(const OnboardingServices& services);

    /// Counted from 1.
    [[nodiscard]] int currentStep() const { return m_currentStep; }
    [[nodiscard]] bool isLastStep() const { return m_currentStep == totalSteps; }
    [[nodiscard]] bool shouldDisableContinue() const;
    /// Absolute paths; empty while none is chosen.
    [[nodiscard]] const QString& obsidianVaultPath() const { return m_obsidianVaultPath; }
    [[nodiscard]] const QString& templatesFolderPath() const { return m_templatesFolderPath; }
    [[nodiscard]] bool launchAtLogin() const;
    void setLaunchAtLogin(bool launchAtLogin);
    [[nodiscard]] ToastContainerView* toasts() { return &m_toasts; }

    /// To the next step, or out at the last one.
    Q_INVOKABLE void goForward();
    Q_INVOKABLE void goBack();
    /// Out of the welcome, but for the step that wants a vault and has none.
    Q_INVOKABLE void handleSkip();
    /// Asks for a folder in a panel that belongs to `window`. The others are for QML, which knows
    /// no value whose name begins with a small letter, and takes it for the first one.
    void selectFolder(FolderPickerType type, QWindow* window);
    Q_INVOKABLE void selectVaultFolder(QWindow* window) { selectFolder(vault, window); }
    Q_INVOKABLE void selectTemplatesFolder(QWindow* window) { selectFolder(templates, window); }

    /// Stores what was chosen and has it read; the welcome doesn't come again.
    void completeOnboarding();

signals:
    void currentStepChanged();
    void continueChanged();
    void obsidianVaultPathChanged();
    void templatesFolderPathChanged();
    void launchAtLoginChanged();
    /// The window is to close.
    void dismissed();

private:
    void setCurrentStep(int step);
    void setFolder(FolderPickerType type, const QString& path);
    [[nodiscard]] static int totalStepCount() { return totalSteps; }

    OnboardingServices m_services;
    ToastContainerView m_toasts;
    int m_currentStep = 1;
    QString m_obsidianVaultPath;
    QString m_templatesFolderPath;
};

} // namespace jotwell
