#include "Views/Onboarding/OnboardingView.h"

#include "Platform/FolderPanel.h"
#include "Services/LaunchAtLoginManager.h"
#include "Services/SettingsService.h"
#include "Services/TagIndexService.h"
#include "Services/TemplateSyncService.h"
#include "Services/ToastManager.h"

namespace jotwell {

namespace {

constexpr int vaultStep = 2;

} // namespace

OnboardingView::OnboardingView(const OnboardingServices& services)
    : m_services(services), m_toasts(services.toasts)
{
    m_services.launchAtLogin.checkCurrentStatus();
    connect(&m_services.launchAtLogin, &LaunchAtLoginManager::isEnabledChanged, this,
            &OnboardingView::launchAtLoginChanged);
    connect(this, &OnboardingView::currentStepChanged, this, &OnboardingView::continueChanged);
    connect(this, &OnboardingView::obsidianVaultPathChanged, this,
            &OnboardingView::continueChanged);
}

bool OnboardingView::shouldDisableContinue() const
{
    return m_currentStep == vaultStep && m_obsidianVaultPath.isEmpty();
}

bool OnboardingView::launchAtLogin() const
{
    return m_services.launchAtLogin.isEnabled();
}

void OnboardingView::setLaunchAtLogin(bool launchAtLogin)
{
    m_services.launchAtLogin.setIsEnabled(launchAtLogin);
}

void OnboardingView::goForward()
{
    if (isLastStep())
        completeOnboarding();
    else if (!shouldDisableContinue())
        setCurrentStep(m_currentStep + 1);
}

void OnboardingView::goBack()
{
    if (m_currentStep > 1)
        setCurrentStep(m_currentStep - 1);
}

void OnboardingView::setCurrentStep(int step)
{
    m_currentStep = step;
    emit currentStepChanged();
}

void OnboardingView::handleSkip()
{
    if (shouldDisableContinue())
        m_services.toasts.showWarning(QStringLiteral("Please select your Obsidian vault folder"));
    else
        completeOnboarding();
}

void OnboardingView::selectFolder(FolderPickerType type, QWindow* window)
{
    FolderQuestion question;
    question.message = type == vault ? QStringLiteral("Select your Obsidian vault folder")
                                     : QStringLiteral("Select your templates folder");
    question.folder = type == vault ? m_obsidianVaultPath : m_templatesFolderPath;
    m_services.folders.choose(question, window, this,
                              [this, type](const QString& path) { setFolder(type, path); });
}

void OnboardingView::setFolder(FolderPickerType type, const QString& path)
{
    if (type == vault) {
        m_obsidianVaultPath = path;
        emit obsidianVaultPathChanged();
    } else {
        m_templatesFolderPath = path;
        emit templatesFolderPathChanged();
    }
}

void OnboardingView::completeOnboarding()
{
    if (!m_obsidianVaultPath.isEmpty()) {
        m_services.settings.setObsidianFolderPath(m_obsidianVaultPath);
        QCoro::connect(m_services.index.buildIndex(m_obsidianVaultPath), &m_services.index, [] {});
    }
    if (!m_templatesFolderPath.isEmpty()) {
        m_services.settings.setTemplatesFolderPath(m_templatesFolderPath);
        m_services.templates.startMonitoring();
    }
    m_services.settings.setOnboardingCompleted(true);
    m_services.toasts.showSuccess(QStringLiteral("Welcome to Jotwell!"));
    emit dismissed();
}

} // namespace jotwell
