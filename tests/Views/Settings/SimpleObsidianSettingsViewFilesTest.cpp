#include "Views/Settings/SimpleObsidianSettingsView.h"

#include "Views/Settings/TemplateSettingsFixture.h"

#include <QSignalSpy>
#include <QTest>

namespace jotwell {

using namespace std::chrono_literals;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const QString sync = u"arrow.triangle.2.circlepath"_qs;

/// The screen with "x" and "y" in the folder, of which "x" is selected.
class SyncedTemplateSettings : public TemplateSettingsTest {
protected:
    SyncedTemplateSettings()
    {
        put(u"x"_qs, "text of x");
        put(u"y"_qs, "text of y");
        useFolder();
        appear();
        select(u"x"_qs);
        settle();
    }
};

} // namespace

TEST_F(SyncedTemplateSettings, StandBehindTheOthersWithTheirSymbol)
{
    EXPECT_THAT(tabs(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs, u"x"_qs, u"y"_qs));
    EXPECT_EQ(view->tabs()->items()[2].secondaryIcon, QString());
    EXPECT_EQ(view->tabs()->items()[3].secondaryIcon, sync);
    EXPECT_TRUE(view->isSynced());
}

TEST_F(SyncedTemplateSettings, ComeAndGoWithTheirFiles)
{
    put(u"w"_qs, "");
    touch();
    EXPECT_THAT(tabs(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs, u"w"_qs, u"x"_qs, u"y"_qs));
    EXPECT_EQ(view->editingTemplateName(), u"x"_qs);
    QFile::remove(pathOf(u"x"_qs));
    touch();
    EXPECT_EQ(view->editingTemplateName(), u"y"_qs);
    QFile::remove(pathOf(u"y"_qs));
    touch();
    EXPECT_EQ(view->editingTemplateName(), u"w"_qs);
}

TEST_F(SyncedTemplateSettings, AreNeitherRenamedNorDeleted)
{
    view->setEditingTemplateName(u"z"_qs);
    view->deleteTemplate();
    settle();
    EXPECT_EQ(view->editingTemplateName(), u"x"_qs);
    EXPECT_TRUE(inFile(u"x"_qs));
    EXPECT_EQ(settings.obsidianTemplates(), stored);
}

TEST_F(SyncedTemplateSettings, TextGoesToTheFile)
{
    view->setEditingTemplateContent(u"typed"_qs);
    settle();
    EXPECT_EQ(inFile(u"x"_qs), "typed");
    EXPECT_EQ(templates.syncedTemplates().first().content, u"typed"_qs);
    EXPECT_EQ(settings.obsidianTemplates(), stored);
    EXPECT_EQ(view->notice(), QString());
}

TEST_F(SyncedTemplateSettings, SwitchIsStoredAndKnownAtOnce)
{
    view->setShowInDropdown(false);
    EXPECT_FALSE(templates.syncedTemplates().first().showInDropdown);
    settle();
    const QUuid id = *view->selectedTemplateId();
    EXPECT_FALSE(settings.getSyncedTemplateShowInDropdown(id));
    touch();
    EXPECT_FALSE(view->showInDropdown());
    EXPECT_FALSE(templates.syncedTemplates().first().showInDropdown);
    EXPECT_EQ(inFile(u"x"_qs), "text of x");
}

TEST_F(SyncedTemplateSettings, ChangedFileIsShown)
{
    put(u"x"_qs, "theirs");
    touch();
    EXPECT_EQ(view->editingTemplateContent(), u"theirs"_qs);
    view->setEditingTemplateContent(u"theirs and ours"_qs);
    settle();
    EXPECT_EQ(inFile(u"x"_qs), "theirs and ours");
    EXPECT_FALSE(inFile(u"x (conflict)"_qs));
}

TEST_F(SyncedTemplateSettings, FileWrittenInPlaceIsShownWhenTheUserComesBack)
{
    put(u"x"_qs, "theirs");
    settle();
    EXPECT_EQ(view->editingTemplateContent(), u"text of x"_qs);
    emit qApp->applicationStateChanged(Qt::ApplicationActive);
    settle();
    EXPECT_EQ(view->editingTemplateContent(), u"theirs"_qs);
}

TEST_F(SyncedTemplateSettings, FileWrittenInPlaceIsShownWhenTheScreenComesBack)
{
    put(u"x"_qs, "theirs");
    view->disappear();
    view->appear();
    settle();
    EXPECT_EQ(view->editingTemplateContent(), u"theirs"_qs);
}

TEST_F(SyncedTemplateSettings, UnseenChangeIsKeptBesideTheUsersText)
{
    put(u"x"_qs, "theirs");
    view->setEditingTemplateContent(u"ours"_qs);
    settle();
    EXPECT_EQ(inFile(u"x"_qs), "ours");
    EXPECT_EQ(inFile(u"x (conflict)"_qs), "theirs");
    EXPECT_THAT(tabs(),
                ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs, u"x"_qs, u"x (conflict)"_qs, u"y"_qs));
    EXPECT_EQ(view->editingTemplateContent(), u"ours"_qs);
    EXPECT_THAT(view->notice().toStdString(), HasSubstr("x (conflict).md"));
    view->setEditingTemplateContent(u"ours, longer"_qs);
    settle();
    EXPECT_FALSE(inFile(u"x (conflict 2)"_qs));
    EXPECT_THAT(view->notice().toStdString(), HasSubstr("x (conflict).md")) << "still to be read";
    select(u"y"_qs);
    EXPECT_EQ(view->notice(), QString());
}

TEST_F(SyncedTemplateSettings, OwnWritesChangeNothingOnScreen)
{
    const QSignalSpy changes(view.get(), &SimpleObsidianSettingsView::editingChanged);
    view->setEditingTemplateContent(u"typed"_qs);
    settle();
    touch();
    EXPECT_EQ(changes.size(), 1) << "the edit itself";
}

TEST_F(SyncedTemplateSettings, VanishedFileIsMadeAnewByAnEdit)
{
    QFile::remove(pathOf(u"x"_qs));
    view->setEditingTemplateContent(u"typed"_qs);
    settle();
    EXPECT_EQ(inFile(u"x"_qs), "typed");
    touch();
    EXPECT_EQ(view->editingTemplateContent(), u"typed"_qs);
}

TEST_F(SyncedTemplateSettings, FailedSaveIsToldAndTriedAgain)
{
    QDir(folder.path()).removeRecursively();
    view->setEditingTemplateContent(u"typed"_qs);
    settle();
    EXPECT_EQ(view->notice(), u"Failed to write template file: No such file or directory"_qs);
    touch();
    EXPECT_EQ(view->editingTemplateContent(), u"typed"_qs);
    QDir().mkpath(folder.path());
    view->setEditingTemplateContent(u"typed on"_qs);
    settle();
    EXPECT_EQ(inFile(u"x"_qs), "typed on");
    EXPECT_EQ(view->notice(), QString());
}

TEST_F(SyncedTemplateSettings, UnsavedTextIsTriedAgainWhenTheUserComesBack)
{
    QDir(folder.path()).removeRecursively();
    view->setEditingTemplateContent(u"typed"_qs);
    settle();
    QDir().mkpath(folder.path());
    emit qApp->applicationStateChanged(Qt::ApplicationActive);
    settle();
    EXPECT_EQ(inFile(u"x"_qs), "typed");
}

TEST_F(SyncedTemplateSettings, UnsavedTextBecomesATemplateOfTheUsers)
{
    QDir(folder.path()).removeRecursively();
    view->setEditingTemplateContent(u"typed"_qs);
    select(u"b"_qs);
    settle();
    EXPECT_THAT(storedNames(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs, u"x (unsaved)"_qs));
    EXPECT_EQ(settings.obsidianTemplates().last().content, u"typed"_qs);
    EXPECT_FALSE(settings.obsidianTemplates().last().type.isSynced());
    EXPECT_EQ(view->notice(), QString());
}

TEST_F(SyncedTemplateSettings, UnsavedTextOutlivesTheScreen)
{
    QDir(folder.path()).removeRecursively();
    view->setEditingTemplateContent(u"typed"_qs);
    view.reset();
    EXPECT_EQ(settings.obsidianTemplates().last().content, u"typed"_qs);
}

TEST_F(SyncedTemplateSettings, NobodyWaitsForTheDisk)
{
    fake.files.hold();
    view->setEditingTemplateContent(u"typed"_qs);
    ASSERT_TRUE(fake.files.waitForSyncs(1));
    select(u"y"_qs);
    select(u"x"_qs);
    EXPECT_EQ(view->editingTemplateContent(), u"typed"_qs);
    view->setEditingTemplateContent(u"typed on"_qs);
    emit qApp->applicationStateChanged(Qt::ApplicationActive);
    view->disappear();
    view->appear();
    EXPECT_EQ(view->editingTemplateName(), u"x"_qs);
    EXPECT_EQ(view->editingTemplateContent(), u"typed on"_qs);
    EXPECT_NE(inFile(u"x"_qs), "typed on") << "nothing of it is stored by now";
    fake.files.letGo();
    settle();
    EXPECT_EQ(inFile(u"x"_qs), "typed on");
    EXPECT_EQ(view->editingTemplateContent(), u"typed on"_qs);
    EXPECT_FALSE(inFile(u"x (conflict)"_qs));
    EXPECT_EQ(settings.obsidianTemplates(), stored);
}

TEST_F(SyncedTemplateSettings, ComingBackBeforeAllIsStoredShowsWhatIsNewer)
{
    fake.files.hold();
    view->setEditingTemplateContent(u"typed"_qs);
    ASSERT_TRUE(fake.files.waitForSyncs(1));
    select(u"b"_qs);
    view->setEditingTemplateContent(u"newer"_qs);
    view->disappear();
    view->appear();
    EXPECT_EQ(view->editingTemplateName(), u"b"_qs);
    EXPECT_EQ(view->editingTemplateContent(), u"newer"_qs);
    emit qApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_EQ(view->editingTemplateContent(), u"newer"_qs);
    fake.files.letGo();
    settle();
    EXPECT_EQ(settings.obsidianTemplates()[1].content, u"newer"_qs);
}

TEST_F(SyncedTemplateSettings, EarlierTextDoesNotComeBackWhileALaterOneIsStored)
{
    fake.files.hold(2);
    view->setEditingTemplateContent(u"typed"_qs);
    ASSERT_TRUE(fake.files.waitForSyncs(2));
    view->setEditingTemplateContent(u"typed on"_qs);
    select(u"y"_qs);
    select(u"x"_qs);
    const QSignalSpy changes(view.get(), &SimpleObsidianSettingsView::editingChanged);
    fake.files.letGo();
    settle();
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_EQ(inFile(u"x"_qs), "typed on");
}

TEST_F(SyncedTemplateSettings, EarlierTextDoesNotComeBackUnderTheUsersHands)
{
    fake.files.hold(2);
    view->setEditingTemplateContent(u"typed"_qs);
    ASSERT_TRUE(fake.files.waitForSyncs(2));
    view->setEditingTemplateContent(u"typed on"_qs);
    const QSignalSpy changes(view.get(), &SimpleObsidianSettingsView::editingChanged);
    fake.files.letGo();
    settle();
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_EQ(inFile(u"x"_qs), "typed on");
}

TEST_F(SyncedTemplateSettings, EarlierTextDoesNotComeBackThoughTheLatestIsTheSameOnceMore)
{
    fake.files.hold(2);
    view->setEditingTemplateContent(u"typed"_qs);
    ASSERT_TRUE(fake.files.waitForSyncs(2));
    view->setEditingTemplateContent(u"typed on"_qs);
    view->setEditingTemplateContent(u"typed"_qs);
    const QSignalSpy changes(view.get(), &SimpleObsidianSettingsView::editingChanged);
    fake.files.letGo();
    settle();
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_EQ(inFile(u"x"_qs), "typed");
}

TEST_F(SyncedTemplateSettings, NoReadingTakesBackATextThatIsOnItsWay)
{
    fake.files.hold();
    view->setEditingTemplateContent(u"typed"_qs);
    ASSERT_TRUE(fake.files.waitForSyncs(1));
    select(u"y"_qs);
    templates.loadInBackground();
    fake.background.waitForDone();
    QCoreApplication::processEvents();
    select(u"x"_qs);
    EXPECT_EQ(view->editingTemplateContent(), u"typed"_qs);
    fake.files.letGo();
    settle();
    EXPECT_EQ(inFile(u"x"_qs), "typed");
    put(u"x"_qs, "theirs");
    touch();
    EXPECT_EQ(view->editingTemplateContent(), u"theirs"_qs);
}

TEST_F(SyncedTemplateSettings, EarlierSaveTakesBackNoLaterSwitch)
{
    fake.files.hold(2); // those of the first save
    view->setEditingTemplateContent(u"typed"_qs);
    view->setEditingTemplateContent(u"typed on"_qs);
    view->setShowInDropdown(false);
    ASSERT_TRUE(QTest::qWaitFor([this] { return fake.files.waitForSyncs(3, 0ms); }));
    view->setShowInDropdown(true);
    QStringList seen;
    QObject::connect(view.get(), &SimpleObsidianSettingsView::editingChanged, view.get(),
                     [&] { seen.append(view->showInDropdown() ? u"on"_qs : u"off"_qs); });
    fake.files.letGo();
    settle();
    EXPECT_FALSE(seen.contains(u"off"_qs));
    EXPECT_TRUE(view->showInDropdown());
}

TEST_F(SyncedTemplateSettings, SaveIsTakenForDoneOnceItIs)
{
    view->setEditingTemplateContent(u"one"_qs);
    view->waitUntilStored();
    fake.files.hold();
    view->setEditingTemplateContent(u"two"_qs);
    ASSERT_TRUE(fake.files.waitForSyncs(1));
    QCoreApplication::processEvents(); // the end of the first one comes by here as well
    fake.files.letGo();
    settle();
    put(u"x"_qs, "theirs");
    touch();
    EXPECT_EQ(view->editingTemplateContent(), u"theirs"_qs) << "nobody is in the middle of an edit";
}

TEST_F(SyncedTemplateSettings, TextThatFailsAfterItWasLeftIsKeptOnce)
{
    QDir(folder.path()).removeRecursively();
    view->setEditingTemplateContent(u"typed"_qs);
    view->setEditingTemplateContent(u"typed on"_qs);
    select(u"b"_qs);
    settle();
    EXPECT_THAT(storedNames(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs, u"x (unsaved)"_qs));
    EXPECT_EQ(tabs(), storedNames()) << "that of the file has gone with it";
    EXPECT_EQ(settings.obsidianTemplates().last().content, u"typed on"_qs);
    EXPECT_EQ(view->editingTemplateName(), u"b"_qs);
}

TEST_F(SyncedTemplateSettings, TextThatCameAfterTheScreenHadGoneIsKept)
{
    view->disappear();
    QDir(folder.path()).removeRecursively();
    view->setEditingTemplateContent(u"composed"_qs);
    settle();
    view->appear();
    settle();
    EXPECT_EQ(settings.obsidianTemplates().last().content, u"composed"_qs);
}

TEST_F(SyncedTemplateSettings, TemplateOfTheFolderBeforeIsLeftOnceItIsStored)
{
    fake.files.hold();
    view->setEditingTemplateContent(u"typed"_qs);
    ASSERT_TRUE(fake.files.waitForSyncs(1));
    settings.setTemplatesFolderPath(QString());
    templates.followFolder();
    EXPECT_EQ(view->editingTemplateContent(), u"typed"_qs) << "in the middle of an edit";
    fake.files.letGo();
    settle();
    EXPECT_EQ(inFile(u"x"_qs), "typed");
    EXPECT_EQ(view->editingTemplateName(), u"a"_qs);
}

TEST_F(SyncedTemplateSettings, NothingComesInWhileAnInputMethodIsAtWork)
{
    view->setComposing(true);
    put(u"x"_qs, "theirs");
    touch();
    EXPECT_EQ(view->editingTemplateContent(), u"text of x"_qs);
    view->setEditingTemplateContent(u"text of xあ"_qs);
    view->setComposing(false);
    settle();
    EXPECT_EQ(inFile(u"x"_qs), "text of xあ");
    EXPECT_EQ(inFile(u"x (conflict)"_qs), "theirs");
}

TEST_F(SyncedTemplateSettings, CancelledCompositionLetsTheirTextIn)
{
    view->setComposing(true);
    put(u"x"_qs, "theirs");
    touch();
    view->setComposing(false);
    EXPECT_EQ(view->editingTemplateContent(), u"theirs"_qs);
    EXPECT_FALSE(inFile(u"x (conflict)"_qs));
}

TEST_F(TemplateSettingsTest, ChosenFolderIsStoredReadAndWatched)
{
    put(u"x"_qs, "");
    appear();
    view->chooseTemplatesFolder(nullptr);
    ASSERT_TRUE(folders.question);
    EXPECT_EQ(folders.question->message, u"Select a folder containing .md template files"_qs);
    EXPECT_EQ(folders.question->prompt, u"Select Templates Folder"_qs);
    folders.answer(folder.path());
    EXPECT_EQ(view->templatesFolderPath(), folder.path());
    settle();
    EXPECT_EQ(settings.templatesFolderPath(), folder.path());
    EXPECT_EQ(tabs().last(), u"x"_qs);
    put(u"y"_qs, "");
    touch();
    EXPECT_EQ(tabs().last(), u"y"_qs);
}

TEST_F(TemplateSettingsTest, CancelledPanelChangesNothing)
{
    appear();
    view->chooseTemplatesFolder(nullptr);
    folders.cancel();
    settle();
    EXPECT_THAT(fake.defaults.keys(), ElementsAre(u"ObsidianTemplates"_qs));
}

TEST_F(TemplateSettingsTest, PanelClosesWithTheScreen)
{
    appear();
    view->chooseTemplatesFolder(nullptr);
    EXPECT_TRUE(folders.isOpen());
    view->disappear();
    EXPECT_FALSE(folders.isOpen());
}

TEST_F(TemplateSettingsTest, TypedFolderIsFollowedAndAnEmptiedOneLeft)
{
    put(u"x"_qs, "");
    appear();
    view->setTemplatesFolderPath(folder.path().chopped(1));
    settle();
    EXPECT_THAT(tabs(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs));
    view->setTemplatesFolderPath(folder.path());
    settle();
    EXPECT_EQ(tabs().last(), u"x"_qs);
    select(u"x"_qs);
    view->setTemplatesFolderPath(QString());
    settle();
    EXPECT_THAT(tabs(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs));
    EXPECT_EQ(view->editingTemplateName(), u"c"_qs);
    EXPECT_THAT(fake.folders.watched(), IsEmpty());
    EXPECT_EQ(settings.templatesFolderPath(), QString());
}

TEST_F(TemplateSettingsTest, OneOfThousandsOfFilesIsEditedLikeAnyOther)
{
    for (int number = 0; number < 5000; ++number)
        put(QString::number(number), QByteArray(1000, 'x'));
    useFolder();
    appear();
    select(u"4321"_qs);
    view->setEditingTemplateContent(u"typed"_qs);
    settle();
    EXPECT_EQ(inFile(u"4321"_qs), "typed");
    EXPECT_EQ(view->editingTemplateName(), u"4321"_qs);
    EXPECT_EQ(view->tabs()->items().size(), 5003);
}

} // namespace jotwell
