#include "Fakes/FakeFolderPanel.h"
#include "Fakes/FakeWindowSystem.h"
#include "GalleryAppearance.h"
#include "Platform/KeyNames.h"
#include "Platform/NativeParts.h"
#include "Services/LaunchAtLoginManager.h"
#include "Views/Onboarding/OnboardingView.h"
#include "Views/SecondaryWindow.h"
#include "Views/ViewBench.h"
#include "Views/ViewResources.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>

#include <cstdio>
#include <cstdlib>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

using namespace jotwell;

namespace {

struct Options {
    QString screenshot;
    int step = 1;
    QString state;
    int tabs = 0;
    bool dark = false;
    bool highContrast = false;
    QByteArray scale;
};

// The scale has to be known before there is an application that could tell its arguments.
QStringList texts(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

Options parsed(const QStringList& arguments)
{
    const auto valued = [](const char* name, const char* what) {
        return QCommandLineOption(QString::fromLatin1(name), QString(), QString::fromLatin1(what),
                                  QStringLiteral("1"));
    };
    QCommandLineParser parser;
    parser.addOptions({{QStringLiteral("screenshot"), QString(), QStringLiteral("file")},
                       {QStringLiteral("state"), QString(), QStringLiteral("chosen|toast")},
                       valued("step", "number"),
                       {QStringLiteral("tabs"), QString(), QStringLiteral("presses")},
                       valued("scale", "factor"),
                       {QStringLiteral("dark"), QString()},
                       {QStringLiteral("high-contrast"), QString()}});
    if (!parser.parse(arguments)) {
        std::fprintf(stderr, "%s\n", qPrintable(parser.errorText()));
        std::exit(2);
    }
    Options options;
    options.screenshot = parser.value(QStringLiteral("screenshot"));
    options.step = parser.value(QStringLiteral("step")).toInt();
    options.state = parser.value(QStringLiteral("state"));
    options.tabs = parser.value(QStringLiteral("tabs")).toInt();
    options.dark = parser.isSet(QStringLiteral("dark"));
    options.highContrast = parser.isSet(QStringLiteral("high-contrast"));
    options.scale = parser.value(QStringLiteral("scale")).toUtf8();
    return options;
}

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

/// Once the window has the keyboard, and then once everything that moves has come to rest.
void takeScreenshot(QQuickView& view, const Options& options)
{
    QTimer::singleShot(300, &view, [&] { pressTab(view, options.tabs); });
    QTimer::singleShot(1500, &view, [&] {
        QGuiApplication::exit(view.grabWindow().save(options.screenshot) ? 0 : 1);
    });
}

int show(const Options& options)
{
    constexpr QSize size(600, 600);
    Welcome welcome;
    FakeWindowSystem windowSystem;
    auto owned = std::make_unique<OnboardingView>(welcome.services());
    OnboardingView& view = *owned;
    SecondaryWindow window({QStringLiteral("Welcome to Jotwell"), size, size,
                            QStringLiteral("Onboarding/OnboardingView.qml")},
                           std::move(owned), windowSystem);
    if (window.status() != QQuickView::Ready)
        return 1;
    window.makeKeyAndOrderFront();
    welcome.bring(view, options.step, options.state);
    if (!options.screenshot.isEmpty())
        takeScreenshot(window, options);
    return QGuiApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    const Options options = parsed(texts(argc, argv));
    if (!options.scale.isEmpty())
        qputenv("QT_SCALE_FACTOR", options.scale);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication app(argc, argv);
    installFonts();

    GalleryAppearance appearance;
    appearance.setDark(options.dark);
    appearance.setHighContrast(options.highContrast);
    const auto keyNames = makeKeyNames();
    const DesktopLooks looks(appearance, *keyNames);
    return show(options);
}
