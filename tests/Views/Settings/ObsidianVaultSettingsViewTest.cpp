#include "Services/Unprivileged.h"
#include "Views/Settings/SettingsBench.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace jotwell;

namespace {

using namespace std::chrono_literals;
using testing::StartsWith;
using Kind = IndexStatus::Kind;

const Clock::TimePoint now{FakeClock::usualTime};
const int vaultRow = SettingsSidebar::rowOf(QStringLiteral("obsidianVault")).value();
const int otherRow = SettingsSidebar::rowOf(QStringLiteral("other")).value();

QString of(const char* text)
{
    return QString::fromUtf8(text);
}

QString textOf(Kind kind, std::optional<Clock::TimePoint> lastIndexUpdate = {},
               const QString& message = {})
{
    return ObsidianVaultSettingsView::indexStatusText({kind, message}, lastIndexUpdate, now);
}

class ObsidianVaultSettingsViewTest : public testing::Test {
protected:
    ObsidianVaultSettingsViewTest()
    {
        qputenv("HOME", bench.folder.path().toLocal8Bit());
        bench.setVaultPath(old);
        bench.settingsView.select(vaultRow);
    }
    ~ObsidianVaultSettingsViewTest() override { qputenv("HOME", m_home); }

    void type(const QString& path)
    {
        screen.setObsidianFolderPath(path);
        screen.commitPath();
    }
    std::string builtStatus()
    {
        bench.finishBuilds();
        return screen.indexStatusText().toStdString();
    }

    SettingsBench bench;
    const QString old = bench.makeVault(of("old"), 1);
    const QString vault = bench.makeVault(of("vault"), 3);
    ObsidianVaultSettingsView& screen = *bench.settingsView.obsidianVault();

private:
    const QByteArray m_home = qgetenv("HOME");
};

} // namespace

TEST(ObsidianVaultSettingsTexts, OfEachState)
{
    EXPECT_EQ(textOf(Kind::notStarted),
              of("Index not built. Build the index to enable fast search."));
    EXPECT_EQ(textOf(Kind::ready), of("Index is ready"));
    EXPECT_EQ(textOf(Kind::ready, now - 5min), of("Index last updated 5m ago"));
    EXPECT_EQ(textOf(Kind::updating, now - 48h), of("Index last updated 2d ago"));
    EXPECT_EQ(textOf(Kind::error, now, of("Disk gone")), of("Error: Disk gone"));
}

TEST_F(ObsidianVaultSettingsViewTest, PathIsReadWhenTheScreenComesOnShow)
{
    EXPECT_EQ(screen.obsidianFolderPath(), old);
    bench.settingsView.select(otherRow);
    bench.setVaultPath(vault);
    EXPECT_EQ(screen.obsidianFolderPath(), old);
    bench.settingsView.select(vaultRow);
    EXPECT_EQ(screen.obsidianFolderPath(), vault);
    EXPECT_EQ(bench.builds(), 0);
}

TEST_F(ObsidianVaultSettingsViewTest, PathIsTakenWhenItsTypingHasEnded)
{
    for (const char* beginning : {"/", "/h", "/home"})
        screen.setObsidianFolderPath(of(beginning));
    EXPECT_EQ(bench.vaultPath(), old);
    EXPECT_EQ(bench.builds(), 0);
    type(vault);
    EXPECT_EQ(bench.vaultPath(), vault);
    EXPECT_EQ(bench.builds(), 1);
    EXPECT_THAT(builtStatus(), StartsWith("Index last updated "));
    EXPECT_EQ(bench.index.monitor().monitoredPath(), vault);
    EXPECT_EQ(bench.index.indexedFileCount(), 3);
}

TEST_F(ObsidianVaultSettingsViewTest, UnchangedPathStartsNoBuild)
{
    type(old);
    screen.setObsidianFolderPath(vault);
    type(old);
    bench.settingsView.select(otherRow);
    EXPECT_EQ(bench.vaultPath(), old);
    EXPECT_EQ(bench.builds(), 0);
}

TEST_F(ObsidianVaultSettingsViewTest, EmptyPathIsStoredAndStartsNoBuild)
{
    type(QString());
    EXPECT_EQ(bench.fake.defaults.string(of("ObsidianFolderPath")), QString());
    EXPECT_TRUE(bench.fake.defaults.storedType(of("ObsidianFolderPath")));
    EXPECT_EQ(bench.builds(), 0);
    EXPECT_FALSE(screen.hasPath());
    screen.rebuildIndex();
    EXPECT_EQ(bench.builds(), 0);
}

TEST_F(ObsidianVaultSettingsViewTest, WhatWasTypedIsTakenWhenTheScreenIsLeft)
{
    screen.setObsidianFolderPath(vault);
    bench.settingsView.select(otherRow);
    EXPECT_EQ(bench.vaultPath(), vault);
    EXPECT_EQ(bench.builds(), 1);
}

TEST_F(ObsidianVaultSettingsViewTest, TildeIsTheHome)
{
    const QString home = QDir::homePath();
    for (const auto& [typed, stored] :
         {std::pair(of("~/Notes/"), home + of("/Notes/")), std::pair(of("~"), home),
          std::pair(of("~ada/Notes"), of("~ada/Notes")), std::pair(of("/a/~/b"), of("/a/~/b")),
          std::pair(vault + u'/', vault + u'/')}) {
        bench.holdBuilds();
        type(typed);
        EXPECT_EQ(bench.vaultPath(), stored);
        EXPECT_EQ(screen.obsidianFolderPath(), stored);
    }
}

TEST_F(ObsidianVaultSettingsViewTest, FieldShowsTheHomeAlsoIfItIsNoNewPath)
{
    bench.setVaultPath(QDir::homePath());
    screen.loadSettings();
    type(of("~"));
    EXPECT_EQ(screen.obsidianFolderPath(), QDir::homePath());
    EXPECT_EQ(bench.builds(), 0);
}

TEST_F(ObsidianVaultSettingsViewTest, PanelAsksFromThePresentPathOn)
{
    screen.browse(nullptr);
    ASSERT_TRUE(bench.asksForFolder());
    EXPECT_EQ(bench.folders.question->prompt, of("Select Obsidian Vault Folder"));
    EXPECT_EQ(bench.folders.question->folder, old);
    screen.setObsidianFolderPath(of("~/Notes"));
    screen.browse(nullptr);
    EXPECT_EQ(bench.folders.question->folder, QDir::homePath() + of("/Notes"));
}

TEST_F(ObsidianVaultSettingsViewTest, ChoiceInThePanelIsTakenAtOnce)
{
    screen.browse(nullptr);
    EXPECT_EQ(bench.vaultPath(), old);
    bench.answerPanel(vault);
    EXPECT_EQ(screen.obsidianFolderPath(), vault);
    EXPECT_EQ(bench.vaultPath(), vault);
    EXPECT_EQ(bench.builds(), 1);
    bench.finishBuilds();
    screen.browse(nullptr);
    bench.answerPanel(vault);
    EXPECT_EQ(bench.builds(), 1) << "the same again";
}

TEST_F(ObsidianVaultSettingsViewTest, PanelClosesWithTheScreen)
{
    screen.browse(nullptr);
    bench.settingsView.select(otherRow);
    EXPECT_FALSE(bench.asksForFolder());
    bench.answerPanel(vault);
    EXPECT_EQ(bench.vaultPath(), old);
    EXPECT_EQ(bench.builds(), 0);
}

TEST_F(ObsidianVaultSettingsViewTest, PathOfAnotherProgramShowsWhenTheUserComesBack)
{
    bench.setVaultPath(vault);
    emit qApp->focusWindowChanged(nullptr);
    EXPECT_EQ(screen.obsidianFolderPath(), vault);
    bench.settingsView.select(otherRow);
    EXPECT_EQ(bench.vaultPath(), vault);
    bench.setVaultPath(old);
    emit qApp->focusWindowChanged(nullptr);
    EXPECT_EQ(screen.obsidianFolderPath(), vault) << "not on show";
    EXPECT_EQ(bench.builds(), 0);
}

TEST_F(ObsidianVaultSettingsViewTest, StalePathIsNotWrittenBack)
{
    bench.setVaultPath(vault);
    screen.commitPath();
    bench.settingsView.select(otherRow);
    EXPECT_EQ(bench.vaultPath(), vault);
}

TEST_F(ObsidianVaultSettingsViewTest, PathThatAnotherProgramHasStoredMeanwhileIsNoNewOne)
{
    bench.setVaultPath(vault);
    type(vault);
    EXPECT_EQ(bench.builds(), 0);
}

TEST_F(ObsidianVaultSettingsViewTest, NotesOfAPathWithASlashAtItsEndAreFound)
{
    type(vault + u'/');
    bench.finishBuilds();
    EXPECT_EQ(bench.index.indexedFileCount(), 3);
    EXPECT_NE(bench.index.index().notes().find((vault + of("/2.md")).toUtf8()), nullptr);
}

TEST_F(ObsidianVaultSettingsViewTest, WhatIsBeingTypedIsLeftAloneByAnotherProgram)
{
    const QString third = bench.makeVault(of("third"), 0);
    screen.setObsidianFolderPath(third);
    bench.setVaultPath(vault);
    emit qApp->focusWindowChanged(nullptr);
    EXPECT_EQ(screen.obsidianFolderPath(), third);
    screen.commitPath();
    EXPECT_EQ(bench.vaultPath(), third);
    EXPECT_EQ(bench.builds(), 1);
}

TEST_F(ObsidianVaultSettingsViewTest, RebuildsOneAtATime)
{
    bench.holdBuilds();
    screen.rebuildIndex();
    EXPECT_EQ(bench.builds(), 1);
    screen.rebuildIndex();
    EXPECT_EQ(bench.builds(), 1);
    bench.finishBuilds();
    screen.rebuildIndex();
    EXPECT_EQ(bench.builds(), 2);
}

TEST_F(ObsidianVaultSettingsViewTest, RebuildTakesWhatWasTyped)
{
    screen.setObsidianFolderPath(vault);
    screen.rebuildIndex();
    EXPECT_EQ(bench.builds(), 1);
    EXPECT_EQ(bench.vaultPath(), vault);
    bench.finishBuilds();
    EXPECT_EQ(bench.index.monitor().monitoredPath(), vault);
}

TEST_F(ObsidianVaultSettingsViewTest, AnotherPathIsBuiltAlsoWhileABuildRuns)
{
    bench.holdBuilds();
    screen.rebuildIndex();
    type(vault);
    EXPECT_EQ(bench.builds(), 2);
}

TEST_F(ObsidianVaultSettingsViewTest, PathThatCannotBeReadIsToldAndCanBeMended)
{
    const QString path = bench.folder.filePath(of("gone"));
    type(path);
    EXPECT_THAT(builtStatus(), StartsWith("Error: "));

    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    screen.rebuildIndex();
    EXPECT_THAT(builtStatus(), StartsWith("Error: ")) << "a file";

    file.remove();
    ASSERT_EQ(symlink("gone", path.toLocal8Bit().constData()), 0);
    screen.rebuildIndex();
    EXPECT_THAT(builtStatus(), StartsWith("Error: ")) << "a link to itself";

    QFile::remove(path);
    bench.makeVault(of("gone"), 2);
    screen.rebuildIndex();
    EXPECT_THAT(builtStatus(), StartsWith("Index last updated "));
    EXPECT_EQ(bench.index.indexedFileCount(), 2);
}

TEST_F(ObsidianVaultSettingsViewTest, FolderThatMayNotBeReadIsTold)
{
    ASSERT_EQ(chmod(vault.toLocal8Bit().constData(), 0), 0);
    {
        const Unprivileged user(QFileInfo(vault).path());
        type(vault);
        EXPECT_THAT(builtStatus(), StartsWith("Error: "));
    }
    ASSERT_EQ(chmod(vault.toLocal8Bit().constData(), 0700), 0);
}

TEST_F(ObsidianVaultSettingsViewTest, StatusFollowsTheIndex)
{
    QSignalSpy changes(&screen, &ObsidianVaultSettingsView::indexStatusTextChanged);
    EXPECT_EQ(screen.indexStatusText(),
              of("Index not built. Build the index to enable fast search."));
    bench.holdBuilds();
    screen.rebuildIndex();
    bench.advance(16);
    EXPECT_TRUE(screen.progress()->isIndexing());
    EXPECT_EQ(changes.size(), 0) << "the progress stands there";
    bench.finishBuilds();
    bench.advance(16);
    EXPECT_FALSE(screen.progress()->isIndexing());
    EXPECT_EQ(screen.progress()->fileCountText(), of("1 of 1 files"));
    EXPECT_EQ(screen.indexStatusText(), of("Index last updated 0s ago"));
}

TEST_F(ObsidianVaultSettingsViewTest, DatesMoveOnOnceAMinuteWhileTheScreenIsOnShow)
{
    screen.rebuildIndex();
    bench.finishBuilds();
    bench.fake.clock.advance(5min);
    bench.advance(59'999);
    EXPECT_EQ(screen.indexStatusText(), of("Index last updated 0s ago"));
    bench.advance(1);
    EXPECT_EQ(screen.indexStatusText(), of("Index last updated 5m ago"));
    EXPECT_EQ(screen.badge()->statusText(), of("Indexed 5 minutes ago"));
    bench.fake.clock.advance(5min);
    bench.advance(60'000);
    EXPECT_EQ(screen.indexStatusText(), of("Index last updated 10m ago"));
    bench.settingsView.select(otherRow);
    bench.fake.clock.advance(5min);
    bench.advance(60'000);
    EXPECT_EQ(screen.indexStatusText(), of("Index last updated 10m ago"));
    bench.settingsView.select(vaultRow);
    EXPECT_EQ(screen.indexStatusText(), of("Index last updated 15m ago"));
}

TEST_F(ObsidianVaultSettingsViewTest, UpdatesDoNotMultiplyByComingBack)
{
    for (int visit = 0; visit < 5; ++visit) {
        bench.settingsView.select(otherRow);
        bench.settingsView.select(vaultRow);
    }
    bench.advance(60'000);
    EXPECT_EQ(bench.fake.scheduler.pendingCount(), 1);
}

TEST_F(ObsidianVaultSettingsViewTest, BuildGoesOnWithoutItsScreen)
{
    bench.holdBuilds();
    {
        SimpleSettingsView closing(bench.services(), bench.windowSystem, of("obsidianVault"));
        closing.obsidianVault()->setObsidianFolderPath(vault);
        closing.leave();
    }
    EXPECT_TRUE(bench.index.isIndexing());
    bench.finishBuilds();
    EXPECT_EQ(bench.index.monitor().monitoredPath(), vault);
}
