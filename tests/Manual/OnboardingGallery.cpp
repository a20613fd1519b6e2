#include "Fakes/FakeFolderPanel.h"
#include "Fakes/FakeWindowSystem.h"
#include "Gallery.h"
#include "Services/LaunchAtLoginManager.h"
#include "Views/Onboarding/OnboardingView.h"
#include "Views/SecondaryWindow.h"
#include "Views/ViewBench.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

using namespace jotwell;
using namespace std::chrono_literals;

namespace {

constexpr auto untilTheKeyboardIsThere = 300ms;

/// The welcome over real services and no desktop.
struct Welcome {
    ViewBench bench;
    FakeFolderPanel folders;
    LaunchAtLoginManager launchAtLogin{bench.fake.loginItem, bench.fake.defaults,
                                       bench.fake.scheduler};

    [[nodiscard]] OnboardingServices services()
    {
        return {bench.settings, bench.index,        bench.templates,
                launchAtLogin,  bench.toastManager, folders};
    }

    void choose(OnboardingView& view, OnboardingView::FolderPickerType type, const QString& path)
    {
        view.selectFolder(type, nullptr);
        folders.answer(path);
    }

    void bring(OnboardingView& view, int step, const QString& state)
    {
        while (view.currentStep() < step) {
            if (view.shouldDisableContinue())
                choose(view, OnboardingView::vault, QStringLiteral("/home/ada/Notes"));
            view.goForward();
        }
        if (state == QLatin1String("chosen")) {
            choose(view, step == 2 ? OnboardingView::vault : OnboardingView::templates,
                   QStringLiteral("/home/ada") +
                       QStringLiteral("/Notes of many years").repeated(5));
            view.setLaunchAtLogin(true);
        }
        if (state == QLatin1String("toast"))
            view.handleSkip();
        // What the services have put off; the times after that never come.
        bench.fake.scheduler.advance({});
    }
};

void pressTab(QWindow& window, int times)
{
    for (int i = 0; i < times; ++i) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, Qt::Key_Tab, Qt::NoModifier);
            QGuiApplication::sendEvent(&window, &event);
        }
    }
}

QCommandLineOption option(const char* name, const char* value)
{
    return {QString::fromLatin1(name), QString(), QString::fromLatin1(value)};
}

} // namespace

int main(int argc, char** argv)
{
    constexpr QSize size(600, 600);
    Gallery gallery(
        argc, argv,
        {option("step", "number"), option("state", "chosen|toast"), option("tabs", "presses")});
    Welcome welcome;
    FakeWindowSystem windowSystem;
    auto owned = std::make_unique<OnboardingView>(welcome.services());
    OnboardingView& view = *owned;
    SecondaryWindow window({QStringLiteral("Welcome to Jotwell"), size, size,
                            QStringLiteral("Onboarding/OnboardingView.qml")},
                           std::move(owned), welcome.bench.fake.scheduler, windowSystem);
    window.makeKeyAndOrderFront();
    welcome.bring(view, gallery.value("step").toInt(), gallery.value("state"));
    QTimer::singleShot(untilTheKeyboardIsThere, &window,
                       [&] { pressTab(window, gallery.value("tabs").toInt()); });
    return gallery.run(window);
}
