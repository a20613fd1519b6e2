#include "Fakes/FakePlatform.h"
#include "Fakes/FakeWindowSystem.h"
#include "GalleryAppearance.h"
#include "Platform/KeyNames.h"
#include "Platform/NativeParts.h"
#include "Services/GlobalHotkeyManager.h"
#include "Services/LaunchAtLoginManager.h"
#include "Services/SettingsService.h"
#include "Services/SparkleUpdateManager.h"
#include "Services/ToastManager.h"
#include "Views/Settings/SettingsWindowController.h"
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
    QString tab;
    QString state;
    QSize size;
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

QSize sizeOf(const QString& text)
{
    const QStringList sides = text.split(QLatin1Char('x'));
    return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
}

Options parsed(const QStringList& arguments)
{
    const auto valued = [](const char* name, const char* what) {
        return QCommandLineOption(QString::fromLatin1(name), QString(), QString::fromLatin1(what));
    };
    QCommandLineParser parser;
    parser.addOptions({valued("screenshot", "file"),
                       valued("tab", "entry"),
                       valued("state", "denied|recording|recorded|update"),
                       valued("size", "wxh"),
                       valued("scale", "factor"),
                       {QStringLiteral("dark"), QString()},
                       {QStringLiteral("high-contrast"), QString()}});
    if (!parser.parse(arguments)) {
        std::fprintf(stderr, "%s\n", qPrintable(parser.errorText()));
        std::exit(2);
    }
    return {parser.value(QStringLiteral("screenshot")),
            parser.value(QStringLiteral("tab")),
            parser.value(QStringLiteral("state")),
            sizeOf(parser.value(QStringLiteral("size"))),
            parser.isSet(QStringLiteral("dark")),
            parser.isSet(QStringLiteral("high-contrast")),
            parser.value(QStringLiteral("scale")).toUtf8()};
}

/// The settings over real services and no desktop.
struct Settings {
    FakePlatform fake;
    FakeWindowSystem windowSystem;
    ToastManager toasts{fake.scheduler};
    SettingsService settings{fake.defaults, [] { return ObsidianTemplates(); }};
    GlobalHotkeyManager hotkeys{fake.hotkeys, settings, fake.clock, fake.scheduler, toasts};
    LaunchAtLoginManager launchAtLogin{fake.loginItem, fake.defaults, fake.scheduler};
    SparkleUpdateManager updates{fake.updater, fake.workspace, fake.scheduler, toasts};

    [[nodiscard]] SettingsServices services()
    {
        return {settings, hotkeys, launchAtLogin, updates, fake.scheduler};
    }

    void bring(SimpleSettingsView& view, const QString& state)
    {
        ShortcutRecorderView& recorder = *view.globalHotkey()->recorder();
        if (state.startsWith(QLatin1String("record")))
            recorder.startRecording();
        if (state == QLatin1String("recorded"))
            recorder.handleEvent({KeyEvent::keyDown, 40, 0x160000});
        if (state == QLatin1String("update"))
            fake.updater.delegate->didFindValidUpdate({QStringLiteral("2.10.0"), std::nullopt});
        // What the services have put off; the times after that never come.
        fake.scheduler.advance({});
    }
};

/// Once everything that moves has come to rest.
void takeScreenshot(QQuickView& view, const QString& file)
{
    QTimer::singleShot(
        700, &view, [&view, file] { QGuiApplication::exit(view.grabWindow().save(file) ? 0 : 1); });
}

int show(const Options& options)
{
    Settings settings;
    settings.fake.hotkeys.trusted = options.state != QLatin1String("denied");
    SettingsWindowController controller(settings.services(), settings.windowSystem);
    controller.showSettingsWithTab(options.tab);
    SecondaryWindow& window = *controller.settingsWindow();
    if (window.status() != QQuickView::Ready)
        return 1;
    settings.bring(*controller.view(), options.state);
    window.resize(options.size.isValid() ? options.size : SettingsWindowController::contentSize);
    if (!options.screenshot.isEmpty())
        takeScreenshot(window, options.screenshot);
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
