#include "Views/Settings/SimpleObsidianSettingsView.h"

#include "Views/Settings/TemplateSettingsFixture.h"

#include <QSignalSpy>
#include <QTest>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString legacyText = u"# {{title}}\n\n{{content}}\n\n---\nCreated: {{date}}"_qs;

} // namespace

TEST_F(TemplateSettingsTest, ShowsWhatIsStored)
{
    settings.setTemplatesFolderPath(u"/nowhere"_qs);
    settings.setObsidianTemplate(u"old"_qs);
    settings.setLastUsedTemplateId(stored[1].id);
    appear();
    EXPECT_EQ(view->templatesFolderPath(), u"/nowhere"_qs);
    EXPECT_EQ(view->obsidianTemplate(), u"old"_qs);
    EXPECT_EQ(view->templates(), stored);
    EXPECT_EQ(view->selectedTemplateId(), stored[1].id);
    EXPECT_EQ(view->editingTemplateName(), u"b"_qs);
    EXPECT_EQ(view->editingTemplateContent(), u"text of b"_qs);
    EXPECT_THAT(tabs(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs));
}

TEST_F(TemplateSettingsTest, BeginsWithTheFirstIfTheLastUsedOneIsGone)
{
    settings.setLastUsedTemplateId(QUuid::createUuid());
    appear();
    EXPECT_EQ(view->selectedTemplateId(), stored[0].id);
    EXPECT_EQ(view->obsidianTemplate(), legacyText);
}

TEST_F(TemplateSettingsTest, ComingOnShowWritesNothing)
{
    const QStringList before = fake.defaults.keys();
    appear();
    view->disappear();
    EXPECT_EQ(fake.defaults.keys(), before);
}

TEST_F(TemplateSettingsTest, EachChangeIsStoredByItself)
{
    appear();
    view->setEditingTemplateName(u"A"_qs);
    EXPECT_TRUE(QTest::qWaitFor([this] { return storedNames().first() == u"A"_qs; }));
    EXPECT_THAT(storedNames(), ElementsAre(u"A"_qs, u"b"_qs, u"c"_qs));
    EXPECT_THAT(tabs(), ElementsAre(u"A"_qs, u"b"_qs, u"c"_qs));
    view->setEditingTemplateContent(u"other"_qs);
    view->setShowInDropdown(false);
    settle();
    const ObsidianTemplate expected{stored[0].id, u"A"_qs, u"other"_qs, false, {}};
    EXPECT_EQ(settings.obsidianTemplates().first(), expected);
    EXPECT_EQ(settings.lastUsedTemplateId(), stored[0].id);
}

TEST_F(TemplateSettingsTest, FirstSaveStoresTheOldTextAndTheBuiltInTemplates)
{
    fake.defaults.remove(u"ObsidianTemplates"_qs);
    appear();
    const QUuid meeting = ObsidianTemplate::meetingTemplate().id;
    view->selectTab(meeting.toString());
    settle();
    EXPECT_THAT(fake.defaults.keys(), testing::IsSupersetOf({u"ObsidianTemplates"_qs}));
    EXPECT_EQ(fake.defaults.string(u"ObsidianTemplate"_qs), legacyText);
    EXPECT_EQ(settings.lastUsedTemplateId(), meeting);
}

TEST_F(TemplateSettingsTest, FastTypingEndsWithTheLastText)
{
    appear();
    QString text;
    for (int key = 0; key < 200; ++key) {
        text += u'x';
        view->setEditingTemplateContent(text);
    }
    view->disappear();
    view->waitUntilStored();
    EXPECT_EQ(settings.obsidianTemplates().first().content, text);
}

TEST_F(TemplateSettingsTest, ScreenThatHasGoneIsNeitherAskingNorComposing)
{
    appear();
    view->setShowAddTemplate(true);
    view->setComposing(true);
    view->disappear();
    EXPECT_FALSE(view->showAddTemplate());
    EXPECT_FALSE(view->isComposing());
}

TEST_F(TemplateSettingsTest, LastEditIsStoredThoughTheScreenGoes)
{
    appear();
    view->setEditingTemplateContent(u"the last"_qs);
    view.reset();
    EXPECT_EQ(settings.obsidianTemplates().first().content, u"the last"_qs);
}

TEST_F(TemplateSettingsTest, AnotherProgramsTemplatesStay)
{
    appear();
    ObsidianTemplates theirs = stored;
    theirs[1].content = u"theirs"_qs;
    theirs[0].name = u"their name"_qs;
    theirs.append(regular(u"d"_qs));
    settings.setObsidianTemplates(theirs);
    view->setEditingTemplateContent(u"ours"_qs);
    settle();
    theirs[0].content = u"ours"_qs;
    EXPECT_EQ(settings.obsidianTemplates(), theirs);
    EXPECT_THAT(tabs(), ElementsAre(u"their name"_qs, u"b"_qs, u"c"_qs, u"d"_qs));
    EXPECT_EQ(view->editingTemplateName(), u"their name"_qs);
}

TEST_F(TemplateSettingsTest, AnotherProgramsDeletionStands)
{
    appear();
    settings.setObsidianTemplates({stored[0], stored[2]});
    view->setEditingTemplateName(u"A"_qs);
    settle();
    EXPECT_THAT(storedNames(), ElementsAre(u"A"_qs, u"c"_qs));
    EXPECT_THAT(tabs(), ElementsAre(u"A"_qs, u"c"_qs));
}

TEST_F(TemplateSettingsTest, EditedTemplateSurvivesItsDeletionElsewhere)
{
    appear();
    settings.setObsidianTemplates({stored[1]});
    view->setEditingTemplateContent(u"typed"_qs);
    settle();
    EXPECT_THAT(storedNames(), ElementsAre(u"b"_qs, u"a"_qs));
    EXPECT_EQ(settings.obsidianTemplates().last().content, u"typed"_qs);
    EXPECT_EQ(view->editingTemplateContent(), u"typed"_qs);
}

TEST_F(TemplateSettingsTest, AnotherProgramsFolderStays)
{
    appear();
    settings.setTemplatesFolderPath(u"/theirs"_qs);
    settings.setObsidianTemplate(u"theirs"_qs);
    view->setEditingTemplateName(u"A"_qs);
    settle();
    EXPECT_EQ(settings.templatesFolderPath(), u"/theirs"_qs);
    EXPECT_EQ(settings.obsidianTemplate(), u"theirs"_qs);
}

TEST_F(TemplateSettingsTest, TildeOfTheFolderIsTheHome)
{
    appear();
    view->setTemplatesFolderPath(u"~/Templates of nobody"_qs);
    settle();
    EXPECT_EQ(settings.templatesFolderPath(), QDir::homePath() + u"/Templates of nobody"_qs);
    EXPECT_EQ(view->templatesFolderPath(), u"~/Templates of nobody"_qs) << "as it is being typed";
}

TEST_F(TemplateSettingsTest, ComingBackToTheProgramShowsWhatIsStoredNow)
{
    appear();
    ObsidianTemplates theirs = stored;
    theirs[0].content = u"theirs"_qs;
    settings.setObsidianTemplates(theirs);
    emit qApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_EQ(view->editingTemplateContent(), u"theirs"_qs);
}

TEST_F(TemplateSettingsTest, AddedTemplateIsSelected)
{
    appear();
    view->setShowAddTemplate(true);
    view->addTemplate(u"new"_qs, u"text\n"_qs);
    settle();
    EXPECT_FALSE(view->showAddTemplate());
    EXPECT_THAT(tabs(), ElementsAre(u"a"_qs, u"b"_qs, u"c"_qs, u"new"_qs));
    const ObsidianTemplate added = settings.obsidianTemplates().last();
    EXPECT_EQ(added.name, u"new"_qs);
    EXPECT_EQ(added.content, u"text\n"_qs);
    EXPECT_TRUE(added.showInDropdown);
    EXPECT_FALSE(added.type.isSynced());
    EXPECT_EQ(view->selectedTemplateId(), added.id);
    EXPECT_EQ(settings.lastUsedTemplateId(), added.id);
}

TEST_F(TemplateSettingsTest, TemplateWithoutANameIsANewTemplate)
{
    appear();
    view->addTemplate(QString(), QString());
    settle();
    EXPECT_EQ(storedNames().last(), u"New Template"_qs);
    view->addTemplate(u" "_qs, QString());
    settle();
    EXPECT_EQ(storedNames().last(), u" "_qs);
}

TEST_F(TemplateSettingsTest, DeletionSelectsTheNeighbour)
{
    appear();
    select(u"b"_qs);
    view->deleteTemplate();
    settle();
    EXPECT_THAT(storedNames(), ElementsAre(u"a"_qs, u"c"_qs));
    EXPECT_EQ(view->editingTemplateName(), u"c"_qs);
    EXPECT_EQ(settings.lastUsedTemplateId(), stored[2].id);
    view->deleteTemplate();
    EXPECT_EQ(view->editingTemplateName(), u"a"_qs);
    view->deleteTemplate();
    settle();
    EXPECT_FALSE(view->hasSelection());
    EXPECT_EQ(view->selectedTabId(), QString());
    EXPECT_EQ(settings.lastUsedTemplateId(), std::nullopt);
    EXPECT_THAT(tabs(), IsEmpty());
    view->deleteTemplate();
    view->setEditingTemplateContent(u"nowhere"_qs);
    EXPECT_EQ(view->editingTemplateContent(), QString());
}

TEST_F(TemplateSettingsTest, NamesOfAllKindsAreKept)
{
    appear();
    for (const QString& name : {QString(), u"b"_qs, u"a/b\\..//"_qs, QString(500, u'x'),
                                u"\U0001F4A1 \u0645"_qs, u"line\nend"_qs}) {
        view->setEditingTemplateName(name);
        settle();
        EXPECT_EQ(settings.obsidianTemplates().first().name, name);
        EXPECT_EQ(tabs().first(), name);
    }
    EXPECT_EQ(settings.obsidianTemplates().at(1), stored[1]) << "that of the same name";
}

TEST_F(TemplateSettingsTest, UnknownTabIsNotSelected)
{
    appear();
    const QSignalSpy changes(view.get(), &SimpleObsidianSettingsView::selectedTemplateIdChanged);
    view->selectTab(QUuid::createUuid().toString());
    view->selectTab(u"nonsense"_qs);
    view->selectTab(view->selectedTabId());
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(TemplateSettingsTest, FieldsAreToldBeforeTheSelection)
{
    appear();
    QString told;
    QObject::connect(view.get(), &SimpleObsidianSettingsView::editingChanged, view.get(),
                     [&] { told += u"fields "_qs; });
    QObject::connect(view.get(), &SimpleObsidianSettingsView::selectedTemplateIdChanged, view.get(),
                     [&] { told += u"selection "_qs; });
    select(u"c"_qs);
    EXPECT_EQ(told, u"fields selection "_qs);
}

} // namespace jotwell
