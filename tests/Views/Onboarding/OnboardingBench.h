#pragma once

#include "Fakes/FakeFolderPanel.h"
#include "Services/LaunchAtLoginManager.h"
#include "Views/Onboarding/OnboardingView.h"
#include "Views/ViewBench.h"

namespace jotwell {

/// The welcome over real services, and a user who answers its panel; what QML tests need of it is
/// invokable.
class OnboardingBench : public QObject {
    Q_OBJECT
    Q_PROPERTY(QObject* view READ view CONSTANT)
    Q_PROPERTY(QString question READ question)
    Q_PROPERTY(bool isCompleted READ isCompleted)

public:
    ViewBench bench;
    FakeFolderPanel folders;
    LaunchAtLoginManager launchAtLogin{bench.fake.loginItem, bench.fake.defaults,
                                       bench.fake.scheduler};
    OnboardingView onboarding{
        {bench.settings, bench.index, bench.templates, launchAtLogin, bench.toastManager, folders}};

    OnboardingBench() { bench.settings.setObsidianFolderPath({}); }

    [[nodiscard]] QObject* view() { return &onboarding; }
    /// The words of the panel that is open.
    [[nodiscard]] QString question() const
    {
        return folders.question ? folders.question->message : QString();
    }
    [[nodiscard]] bool isCompleted() const { return bench.settings.onboardingCompleted(); }

    Q_INVOKABLE void answer(const QString& path) { folders.answer(path); }
};

} // namespace jotwell
