#include "Services/TemplateSyncFixture.h"

#include <gmock/gmock.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Counts what the service tells of.
class FollowedTemplates : public WatchedTemplates {
protected:
    FollowedTemplates()
    {
        QObject::connect(m_service.get(), &TemplateSyncService::syncedTemplatesChanged,
                         [this] { ++m_changes; });
    }

    int m_changes = 0;
};

} // namespace

TEST_F(FollowedTemplates, AnotherFolderIsReadInTheBackgroundAndWatched)
{
    const ScratchFolder other;
    other.put(u"c.md"_qs, "c");
    m_settings.setTemplatesFolderPath(other.path());
    m_service->followFolder();
    EXPECT_THAT(m_edge.folders.watched(), ElementsAre(other.path()));
    settle();
    EXPECT_THAT(names(), ElementsAre(u"c"_qs));
    other.put(u"d.md"_qs, "d");
    m_edge.folders.touch(other.path());
    settle();
    EXPECT_THAT(names(), ElementsAre(u"c"_qs, u"d"_qs));
}

TEST_F(FollowedTemplates, NoFolderIsAnEmptyListWithoutAWatch)
{
    m_settings.setTemplatesFolderPath(std::nullopt);
    m_service->followFolder();
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_THAT(m_edge.folders.watched(), IsEmpty());
}

TEST_F(FollowedTemplates, ReadingOfTheFolderBeforeDoesNotCount)
{
    touch();
    m_edge.background.waitForDone(); // read, but not yet told
    m_settings.setTemplatesFolderPath(std::nullopt);
    m_service->followFolder();
    m_changes = 0;
    settle();
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(m_changes, 0);
}

TEST_F(FollowedTemplates, OnlyTheNewFolderIsTold)
{
    const ScratchFolder other;
    other.put(u"c.md"_qs, "c");
    m_folder.put(u"late.md"_qs, "");
    touch();
    m_edge.background.waitForDone(); // read, but not yet told
    m_settings.setTemplatesFolderPath(other.path());
    m_service->followFolder();
    settle();
    EXPECT_THAT(names(), ElementsAre(u"c"_qs));
    EXPECT_EQ(m_changes, 1);
}

TEST_F(FollowedTemplates, WhatOthersHaveStoredIsKnownWithoutAReading)
{
    m_service->setContent(named(u"a"_qs).id, u"other"_qs);
    m_service->setShowInDropdown(named(u"b"_qs).id, false);
    EXPECT_EQ(named(u"a"_qs).content, u"other"_qs);
    EXPECT_FALSE(named(u"b"_qs).showInDropdown);
    EXPECT_TRUE(named(u"a"_qs).showInDropdown);
    EXPECT_EQ(m_changes, 2);
    m_service->setContent(QUuid::createUuid(), u"nobody's"_qs);
    EXPECT_EQ(m_changes, 2);
}

TEST_F(FollowedTemplates, ReadingFromBeforeDoesNotTakeItBack)
{
    touch();
    m_edge.background.waitForDone(); // read, but not yet told
    m_folder.put(u"a.md"_qs, "other");
    m_service->setContent(named(u"a"_qs).id, u"other"_qs);
    settle();
    EXPECT_EQ(named(u"a"_qs).content, u"other"_qs);
}

} // namespace jotwell
