#include "Views/Settings/SettingsWindowController.h"

#include "Fakes/FakeAppearance.h"
#include "Views/Appearance.h"
#include "Views/Settings/SettingsBench.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

const QString globalHotkey = QStringLiteral("globalHotkey");
const QString obsidianVault = QStringLiteral("obsidianVault");
const QString other = QStringLiteral("other");

class SettingsWindowControllerTest : public testing::Test {
protected:
    void show(const QString& tab)
    {
        controller.showSettingsWithTab(tab);
        ASSERT_TRUE(QTest::qWaitForWindowActive(controller.settingsWindow()));
    }
    /// How often it goes or comes when it is wished for behind another program's window.
    qsizetype showingsWhileCovered()
    {
        bench.windowSystem.coversWindows = true;
        const QSignalSpy changes(controller.settingsWindow(), &QWindow::visibleChanged);
        controller.showSettingsWithTab(globalHotkey);
        return changes.count();
    }
    SimpleSettingsView& view() { return *controller.view(); }
    QQuickItem* item(const char* name)
    {
        return controller.settingsWindow()->rootObject()->findChild<QQuickItem*>(
            QString::fromLatin1(name));
    }

    SettingsBench bench;
    SettingsWindowController controller{bench.services(), bench.windowSystem};
};

} // namespace

TEST_F(SettingsWindowControllerTest, IsAnOrdinaryWindowInTheMiddle)
{
    EXPECT_EQ(controller.settingsWindow(), nullptr);
    show(globalHotkey);
    const SecondaryWindow& window = *controller.settingsWindow();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.title(), QStringLiteral("Settings"));
    EXPECT_FALSE(window.flags().testFlag(Qt::FramelessWindowHint));
    EXPECT_FALSE(window.flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_GT(window.maximumWidth(), 900);
    const QRect frame = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(window.size(), QSize(900, 600).boundedTo(frame.size()));
    EXPECT_EQ(window.y(), frame.y() + (frame.height() - window.height()) / 2);
}

TEST_F(SettingsWindowControllerTest, GroundIsThatOfTheAppearance)
{
    show(globalHotkey);
    EXPECT_EQ(controller.settingsWindow()->color(), QColor(0xececec));
    FakeAppearance appearance;
    Appearance::ofAllViews().follow(&appearance);
    appearance.set(true);
    EXPECT_EQ(controller.settingsWindow()->color(), QColor(0x323232));
    Appearance::ofAllViews().follow(nullptr);
}

TEST_F(SettingsWindowControllerTest, OpenWindowComesForwardOnItsOwnTab)
{
    show(other);
    const SecondaryWindow* const first = controller.settingsWindow();
    show(globalHotkey);
    EXPECT_EQ(controller.settingsWindow(), first);
    EXPECT_EQ(view().selectedItem(), other);
}

TEST_F(SettingsWindowControllerTest, OpenWindowTakesTheKeyboardBack)
{
    show(globalHotkey);
    QWindow another;
    another.show();
    another.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&another));
    show(globalHotkey);
    EXPECT_EQ(QGuiApplication::focusWindow(), controller.settingsWindow());
}

TEST_F(SettingsWindowControllerTest, ComesUpAnewWhereItCannotBeRaised)
{
    show(globalHotkey);
    EXPECT_EQ(showingsWhileCovered(), 2);
}

TEST_F(SettingsWindowControllerTest, DoesNotComeUpAnewBeforeItMayHaveTheKeyboard)
{
    controller.showSettingsWithTab(globalHotkey);
    EXPECT_EQ(showingsWhileCovered(), 0) << "it would flicker";
    bench.advance(1000);
    EXPECT_EQ(showingsWhileCovered(), 2);
}

TEST_F(SettingsWindowControllerTest, DoesNotComeUpAnewWhileADialogBelongsToIt)
{
    show(globalHotkey);
    QWindow dialog;
    dialog.setTransientParent(controller.settingsWindow());
    dialog.show();
    EXPECT_EQ(showingsWhileCovered(), 0) << "the dialog would belong to nothing";
    EXPECT_FALSE(bench.windowSystem.coversWindows) << "it isn't activated";
    dialog.hide();
    EXPECT_EQ(showingsWhileCovered(), 2);
}

TEST_F(SettingsWindowControllerTest, ComesUpAnewThoughAnotherWindowHasADialog)
{
    show(globalHotkey);
    QWindow another;
    another.show();
    QWindow dialog;
    dialog.setTransientParent(&another);
    dialog.show();
    EXPECT_EQ(showingsWhileCovered(), 2);
}

TEST_F(SettingsWindowControllerTest, ComesBackFromAnIcon)
{
    show(globalHotkey);
    controller.settingsWindow()->setWindowStates(Qt::WindowMinimized);
    show(globalHotkey);
    EXPECT_FALSE(controller.settingsWindow()->windowStates().testFlag(Qt::WindowMinimized));
}

TEST_F(SettingsWindowControllerTest, ComesForwardAsLargeAsItIs)
{
    show(globalHotkey);
    controller.settingsWindow()->setWindowStates(Qt::WindowMaximized);
    show(globalHotkey);
    EXPECT_TRUE(controller.settingsWindow()->windowStates().testFlag(Qt::WindowMaximized));
}

TEST_F(SettingsWindowControllerTest, ClosedWindowIsMadeAnewOnTheRequestedTab)
{
    show(globalHotkey);
    const QPointer<SecondaryWindow> first = controller.settingsWindow();
    first->close();
    EXPECT_EQ(controller.settingsWindow(), nullptr);
    EXPECT_EQ(controller.view(), nullptr);
    bench.advance(0);
    EXPECT_TRUE(first.isNull());
    show(other);
    EXPECT_EQ(view().selectedItem(), other);
}

TEST_F(SettingsWindowControllerTest, ReopensBeforeTheClosedOneHasGone)
{
    show(globalHotkey);
    controller.settingsWindow()->close();
    show(other);
    bench.advance(0);
    ASSERT_NE(controller.settingsWindow(), nullptr);
    EXPECT_TRUE(controller.settingsWindow()->isVisible());
    EXPECT_EQ(view().selectedItem(), other);
}

TEST_F(SettingsWindowControllerTest, OtherWindowsMayClose)
{
    show(globalHotkey);
    const SecondaryWindow* const open = controller.settingsWindow();
    QWindow another;
    another.show();
    another.close();
    bench.advance(0);
    EXPECT_EQ(controller.settingsWindow(), open);
}

TEST_F(SettingsWindowControllerTest, RecordingEndsWithTheWindow)
{
    show(globalHotkey);
    view().globalHotkey()->recorder()->startRecording();
    controller.settingsWindow()->close();
    QWindow another;
    QKeyEvent event(QEvent::KeyPress, Qt::Key_K, Qt::ControlModifier, 40, 0, 0);
    event.ignore();
    struct Listener : QWindow {
        int keys = 0;
        void keyPressEvent(QKeyEvent*) override { ++keys; }
    } listener;
    QCoreApplication::sendEvent(&listener, &event);
    EXPECT_EQ(listener.keys, 1);
    bench.advance(5000);
    EXPECT_EQ(bench.fake.scheduler.pendingCount(), 1) << "the bench's own screen";
}

TEST_F(SettingsWindowControllerTest, WhatWasSavedIsStoredThoughTheWindowCloses)
{
    show(globalHotkey);
    ShortcutRecorderView& recorder = *view().globalHotkey()->recorder();
    recorder.startRecording();
    recorder.handleEvent({KeyEvent::keyDown, 40, 0x100000});
    recorder.saveShortcut();
    controller.settingsWindow()->close();
    bench.advance(0);
    EXPECT_EQ(bench.settings.globalHotkeyCode(), 40);
    EXPECT_EQ(bench.hotkeys.customKeyCode(), 40);
}

TEST_F(SettingsWindowControllerTest, PathThatIsBeingTypedIsStoredThoughTheWindowCloses)
{
    show(obsidianVault);
    const QString vault = bench.makeVault(QStringLiteral("vault"), 1);
    item("vaultPath")->setProperty("text", vault);
    EXPECT_EQ(bench.vaultPath(), QString());
    controller.settingsWindow()->close();
    EXPECT_EQ(bench.vaultPath(), vault);
    bench.advance(0);
    bench.finishBuilds();
    EXPECT_EQ(bench.index.indexedFileCount(), 1) << "the build goes on";
}

TEST_F(SettingsWindowControllerTest, PathThatIsBeingTypedIsStoredThoughTheProgramEnds)
{
    auto ending = std::make_unique<SettingsWindowController>(bench.services(), bench.windowSystem);
    ending->showSettingsWithTab(obsidianVault);
    ending->view()->obsidianVault()->setObsidianFolderPath(QStringLiteral("/vault"));
    ending.reset();
    EXPECT_EQ(bench.vaultPath(), QStringLiteral("/vault"));
}

TEST_F(SettingsWindowControllerTest, TemplateIsStoredOnceTheWindowCloses)
{
    show(QStringLiteral("/new_note"));
    view().newNote()->setEditingTemplateContent(QStringLiteral("typed"));
    controller.settingsWindow()->close();
    EXPECT_EQ(bench.settings.obsidianTemplates().first().content, QStringLiteral("typed"));
}

TEST_F(SettingsWindowControllerTest, PanelClosesWithTheWindow)
{
    show(obsidianVault);
    view().obsidianVault()->browse(controller.settingsWindow());
    controller.settingsWindow()->close();
    EXPECT_FALSE(bench.asksForFolder());
}

TEST_F(SettingsWindowControllerTest, KeyboardBeginsInTheSidebarAndEscapeClosesNothing)
{
    show(globalHotkey);
    EXPECT_EQ(controller.settingsWindow()->activeFocusItem()->objectName(), QStringLiteral("row0"));
    QTest::keyClick(controller.settingsWindow(), Qt::Key_Escape);
    ASSERT_NE(controller.settingsWindow(), nullptr);
    EXPECT_TRUE(controller.settingsWindow()->isVisible());
    QTest::keyClick(controller.settingsWindow(), Qt::Key_Down);
    EXPECT_EQ(view().selectedItem(), QStringLiteral("obsidianVault"));
}

TEST_F(SettingsWindowControllerTest, KeysThatAreHeldLightUp)
{
    show(globalHotkey);
    QTest::keyPress(controller.settingsWindow(), Qt::Key_Alt);
    const QObject* const recorder = item("recorder");
    EXPECT_EQ(recorder->property("pressedKeys").toStringList(), QStringList(QStringLiteral("⌥")));
    QTest::keyRelease(controller.settingsWindow(), Qt::Key_Alt, Qt::AltModifier);
    EXPECT_EQ(recorder->property("pressedKeys").toStringList(), QStringList());
}

TEST_F(SettingsWindowControllerTest, StaysWhereItIsWithoutAScreen)
{
    bench.windowSystem.hasScreen = false;
    show(globalHotkey);
    EXPECT_EQ(controller.settingsWindow()->size(), QSize(900, 600));
}
