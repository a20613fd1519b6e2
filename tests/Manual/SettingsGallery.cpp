#include "Fakes/FakeFolderPanel.h"
#include "Fakes/FakePlatform.h"
#include "Fakes/FakeWindowSystem.h"
#include "Gallery.h"
#include "Services/GlobalHotkeyManager.h"
#include "Services/LaunchAtLoginManager.h"
#include "Services/SettingsService.h"
#include "Services/SparkleUpdateManager.h"
#include "Services/TagIndexService.h"
#include "Services/TemplateSyncService.h"
#include "Services/ToastManager.h"
#include "Views/Settings/SettingsWindowController.h"

#include <QCoroTask>

#include <QCoreApplication>
#include <QFile>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

using namespace jotwell;

namespace {

/// The settings over real services and no desktop.
struct Settings {
    Settings()
    {
        fake.bulk.setMaxThreadCount(1);
        settings.setObsidianFolderPath(QStringLiteral("/home/ada/Documents/Vault"));
    }
    ~Settings() { built.release(); }

    QTemporaryDir vault;
    QSemaphore built; ///< what a build waits for that is to be seen running
    FakePlatform fake;
    FakeWindowSystem windowSystem;
    ToastManager toasts{fake.scheduler};
    SettingsService settings{fake.defaults, [] { return ObsidianTemplates(); }};
    TagIndexService index{fake.platform};
    TemplateSyncService templates{fake.platform, settings};
    FakeFolderPanel folders;
    QTemporaryDir folder; ///< of templates
    GlobalHotkeyManager hotkeys{fake.hotkeys, settings, fake.clock, fake.scheduler, toasts};
    LaunchAtLoginManager launchAtLogin{fake.loginItem, fake.defaults, fake.scheduler};
    SparkleUpdateManager updates{fake.updater, fake.workspace, fake.scheduler, toasts};

    [[nodiscard]] SettingsServices services()
    {
        return {settings, index,   templates,  hotkeys,       launchAtLogin,
                updates,  folders, fake.clock, fake.scheduler};
    }

    // Before the window opens.
    void prepare(const QString& state)
    {
        if (state == QLatin1String("none"))
            settings.setObsidianTemplates({});
        if (state == QLatin1String("many") || state == QLatin1String("synced"))
            putTemplates(state == QLatin1String("many") ? 5000 : 3);
    }

    void putTemplates(int count)
    {
        for (int number = 1; number <= count; ++number) {
            QFile file(folder.filePath(QStringLiteral("Garden %1.md").arg(number)));
            if (file.open(QIODevice::WriteOnly))
                file.write("# {{title}}\n\nWater the tomatoes.\n\n{{content}}\n");
        }
        settings.setTemplatesFolderPath(folder.path());
        templates.loadSyncedTemplates();
        settings.setLastUsedTemplateId(templates.syncedTemplates().last().id);
    }

    void bring(SimpleSettingsView& view, const QString& state)
    {
        view.newNote()->setShowAddTemplate(state == QLatin1String("sheet"));
        ShortcutRecorderView& recorder = *view.globalHotkey()->recorder();
        if (state.startsWith(QLatin1String("record")))
            recorder.startRecording();
        if (state == QLatin1String("recorded"))
            recorder.handleEvent({KeyEvent::keyDown, 40, 0x160000});
        if (state == QLatin1String("indexing"))
            fake.bulk.start([this] { built.acquire(); });
        if (state == QLatin1String("indexing") || state == QLatin1String("ready"))
            build(vault.path());
        if (state == QLatin1String("error"))
            build(vault.filePath(QStringLiteral("gone")));
        if (state == QLatin1String("update"))
            fake.updater.delegate->didFindValidUpdate({QStringLiteral("2.10.0"), std::nullopt});
        if (state != QLatin1String("indexing"))
            finishBuild();
        // What the services have put off, and the next frame; the times after that never come.
        fake.scheduler.advance(std::chrono::milliseconds(16));
    }

    void build(const QString& path)
    {
        QCoro::connect(index.buildIndex(path), &index, [] {});
    }
    void finishBuild()
    {
        while (index.isIndexing())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
};

QSize sizeOf(const QString& text)
{
    const QStringList sides = text.split(QLatin1Char('x'));
    return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt())
                             : SettingsWindowController::contentSize;
}

QCommandLineOption option(const char* name, const char* value)
{
    return {QString::fromLatin1(name), QString(), QString::fromLatin1(value)};
}

} // namespace

int main(int argc, char** argv)
{
    Gallery gallery(argc, argv,
                    {option("tab", "entry"),
                     option("state", "denied|recording|recorded|update|indexing|ready|error|"
                                     "none|synced|sheet|many"),
                     option("size", "wxh")});
    Settings settings;
    const QString state = gallery.value("state");
    settings.fake.hotkeys.trusted = state != QLatin1String("denied");
    settings.prepare(state);
    SettingsWindowController controller(settings.services(), settings.windowSystem);
    controller.showSettingsWithTab(gallery.value("tab"));
    settings.bring(*controller.view(), state);
    SecondaryWindow& window = *controller.settingsWindow();
    window.resize(sizeOf(gallery.value("size")));
    return gallery.run(window);
}
