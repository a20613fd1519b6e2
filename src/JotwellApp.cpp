#include "AppDelegate.h"
#include "CommandLine.h"
#include "Platform/DefaultsStore.h"
#include "Platform/DesktopAppearance.h"
#include "Platform/FolderPanel.h"
#include "Platform/InstanceDoor.h"
#include "Platform/KeyNames.h"
#include "Platform/NativeParts.h"
#include "Platform/NativePlatform.h"
#include "Platform/StatusItem.h"
#include "Platform/TerminationSignals.h"
#include "Platform/WindowSystem.h"
#include "Services/SharedServices.h"
#include "Support/Background.h"
#include "Views/SymbolImageProvider.h"
#include "Views/ViewResources.h"

#include <QApplication>
#include <QPalette>
#include <QQuickWindow>
#include <QStandardPaths>
#include <QThreadPool>

#include <cstdlib>
#include <utility>

#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

namespace jotwell {

namespace {

// What has to be settled before Qt opens a window system.
void prepareGraphics()
{
    QQuickWindow::setDefaultAlphaBuffer(true);
    // A card of text is drawn as fast without the graphics driver, which would cost 90 MB.
    const bool userChose = qEnvironmentVariableIsSet("QT_QUICK_BACKEND") ||
                           qEnvironmentVariableIsSet("QSG_RHI_BACKEND");
    if (!userChose)
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

void prepareApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("jotwell"));
    QGuiApplication::setWindowIcon(applicationIcon());
    QGuiApplication::setDesktopFileName(QStringLiteral("com.jotwell.Jotwell"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    installFonts();
}

QString settingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/com.jotwell/Jotwell.ini");
}

QString applicationSupport()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/com.jotwell");
}

QIcon statusIcon()
{
    return symbolIcon(QStringLiteral("o.circle.fill"),
                      QGuiApplication::palette().windowText().color());
}

bool hasLetGo(QThreadPool& pool)
{
    constexpr int milliseconds = 1000;
    return pool.waitForDone(milliseconds);
}

// What the windows have set at their end is on its way to the disk, which may not answer.
bool isStored(DefaultsStore& defaults, QThreadPool& pool)
{
    constexpr int milliseconds = 10'000;
    static_cast<void>(startInBackground(pool, [&defaults] { defaults.synchronize(); }));
    return pool.waitForDone(milliseconds);
}

// The application itself: everything that the services and the delegate stand on, in the order in
// which it is to go again.
int run(InstanceDoor& door)
{
    const NativePlatform native(settingsFile(), applicationSupport());
    const Platform& platform = native.platform();
    installPlatform(platform);

    const auto appearance = makeDesktopAppearance();
    const auto keyNames = makeKeyNames();
    const DesktopLooks looks(*appearance, *keyNames);
    const auto statusItem = makeStatusItem(statusIcon(), QStringLiteral("Jotwell"));
    const auto windows = makeWindowSystem();
    const auto terminationSignals = makeTerminationSignals();
    const auto folders = makeFolderPanel();
    int status = 0;
    {
        AppDelegate delegate({door, *statusItem, *windows, *terminationSignals, *folders},
                             platform);
        delegate.applicationDidFinishLaunching();
        status = QApplication::exec();
    }
    // Work that still hangs by now has had its time, and its thread can't be waited for. The index
    // is made anew at the next start: it only has to let go.
    QThreadPool storing;
    if (!isStored(platform.defaults, storing) || !platform.background.waitForDone(0))
        std::_Exit(status);
    releaseSharedServices();
    platform.bulk.clear();
    // The database's thread is left what waits there: it is short by now, and closes the file.
    if (!hasLetGo(platform.database) || !hasLetGo(platform.bulk))
        std::_Exit(status);
    return status;
}

} // namespace

} // namespace jotwell

int main(int argc, char* argv[])
{
    if (const auto status = jotwell::answerCommandLine(argc, argv))
        return *status;
    // Before all else, so that a second start is over at once.
    const auto door = jotwell::makeInstanceDoor();
    if (door->claim() == jotwell::InstanceDoor::Claim::delivered)
        return 0;
    jotwell::prepareGraphics();
    QApplication application(argc, argv);
    jotwell::prepareApplication();
    return jotwell::run(*door);
}
