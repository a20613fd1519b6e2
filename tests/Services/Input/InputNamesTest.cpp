#include "Services/Input/InputNames.h"

#include "Services/InputFixture.h"

#include <gmock/gmock.h>

namespace jotwell {

namespace {

using testing::ElementsAre;

class InputNamesTest : public CommandTemplateStateTest {
protected:
    void put(const QString& name, bool isShown)
    {
        ObsidianTemplate made = regular(name, u"{{content}}"_qs);
        made.showInDropdown = isShown;
        settings.setObsidianTemplates(settings.obsidianTemplates() + ObsidianTemplates{made});
    }

    const InputNames names{services};
};

TEST_F(InputNamesTest, FollowsTheSettings)
{
    useTemplates({u"One"_qs});
    EXPECT_THAT(names.templateNames(), ElementsAre(u"One"_qs));
    put(u"Two"_qs, true);
    EXPECT_THAT(names.templateNames(), ElementsAre(u"One"_qs, u"Two"_qs));
    useTemplates({u"Two"_qs});
    EXPECT_THAT(names.templateNames(), ElementsAre(u"Two"_qs));
}

TEST_F(InputNamesTest, LeavesOutWhatIsHidden)
{
    useTemplates({u"One"_qs});
    put(u"Hidden"_qs, false);
    EXPECT_THAT(names.templateNames(), ElementsAre(u"One"_qs));
}

TEST_F(InputNamesTest, FollowsTheTemplatesFolder)
{
    useTemplates({u"One"_qs});
    EXPECT_THAT(names.templateNames(), ElementsAre(u"One"_qs));
    ScratchFolder folder;
    folder.put(u"Synced.md"_qs);
    settings.setTemplatesFolderPath(folder.path());
    templates.loadSyncedTemplates();
    EXPECT_THAT(names.templateNames(), ElementsAre(u"One"_qs, u"Synced"_qs));
    settings.setTemplatesFolderPath(std::nullopt);
    templates.loadSyncedTemplates();
    EXPECT_THAT(names.templateNames(), ElementsAre(u"One"_qs));
}

TEST_F(InputNamesTest, GivesTheSameListWhileNothingChanges)
{
    useTemplates({u"One"_qs, u"Two"_qs});
    EXPECT_TRUE(names.enabledTemplates().isSharedWith(names.enabledTemplates()));
    EXPECT_TRUE(names.templateNames().isSharedWith(names.templateNames()));
}

} // namespace

} // namespace jotwell
