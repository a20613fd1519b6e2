#include "Services/TemplateSyncService.h"

#include "Services/TemplateSyncFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;

TEST_F(WatchedTemplates, SaveWritesTheFileAndTheList)
{
    ObsidianTemplate edited = named(u"a"_qs);
    edited.content = u"\u00e4\n{{title}}"_qs;
    edited.showInDropdown = false;
    EXPECT_TRUE(m_service->saveTemplate(edited));
    EXPECT_EQ(m_folder.bytesOf(u"a.md"_qs), "\xc3\xa4\n{{title}}");
    EXPECT_EQ(m_service->syncedTemplates().first(), edited);
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs));
    EXPECT_EQ(m_folder.names(), (QStringList{u"a.md"_qs, u"b.md"_qs}));
}

TEST_F(WatchedTemplates, SaveRenamesNoFile)
{
    ObsidianTemplate edited = named(u"a"_qs);
    edited.name = u"z"_qs;
    EXPECT_TRUE(m_service->saveTemplate(edited));
    EXPECT_EQ(m_folder.names(), (QStringList{u"a.md"_qs, u"b.md"_qs}));
    EXPECT_THAT(names(), ElementsAre(u"z"_qs, u"b"_qs)); // as given, until the next load
    m_service->loadSyncedTemplates();
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs));
}

TEST_F(WatchedTemplates, SaveOfAVanishedFileWritesANewOne)
{
    const ObsidianTemplate before = named(u"a"_qs);
    m_folder.remove(u"a.md"_qs);
    EXPECT_TRUE(m_service->saveTemplate(before));
    EXPECT_EQ(m_folder.bytesOf(u"a.md"_qs), "a");
}

TEST_F(WatchedTemplates, SaveOfOneThatIsNotListedWritesItsFileOnly)
{
    const ObsidianTemplate other{QUuid::createUuid(), u"c"_qs, u"c"_qs, true,
                                 TemplateType::synced(m_folder.pathOf(u"c.md"_qs))};
    EXPECT_TRUE(m_service->saveTemplate(other));
    EXPECT_EQ(m_folder.bytesOf(u"c.md"_qs), "c");
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs));
}

TEST_F(WatchedTemplates, SaveGoesByTheIdentifierAndNotByTheName)
{
    ObsidianTemplate twin = named(u"a"_qs);
    twin.id = named(u"b"_qs).id;
    twin.type = named(u"b"_qs).type;
    EXPECT_TRUE(m_service->saveTemplate(twin));
    EXPECT_EQ(m_service->syncedTemplates().at(1), twin);
    EXPECT_EQ(m_folder.bytesOf(u"a.md"_qs), "a");
}

TEST_F(WatchedTemplates, SaveOfARegularOneFails)
{
    ObsidianTemplate regular = named(u"a"_qs);
    regular.content = u"edited"_qs;
    regular.type = TemplateType::regular();
    const auto saved = m_service->saveTemplate(regular);
    EXPECT_EQ(saved.error(), TemplateSaveError(TemplateSyncError()));
    EXPECT_EQ(TemplateSyncError().errorDescription(), u"Template is not synced with a file"_qs);
    EXPECT_EQ((TemplateSyncError{TemplateSyncError::Kind::fileNotFound, {}}.errorDescription()),
              u"Template file not found"_qs);
    EXPECT_EQ((TemplateSyncError{TemplateSyncError::Kind::writeError, SystemError{ENOSPC}}
                   .errorDescription()),
              u"Failed to write template file: No space left on device"_qs);
    EXPECT_EQ(named(u"a"_qs).content, u"a"_qs);
    EXPECT_EQ(m_folder.bytesOf(u"a.md"_qs), "a");
}

TEST_F(WatchedTemplates, SaveThatFailsKeepsFileAndList)
{
    ObsidianTemplate edited = named(u"a"_qs);
    edited.content = u"edited"_qs;
    QStringList refused;
    for (int call = 0;; ++call) {
        m_edge.files.failAt(call, EDQUOT);
        const auto saved = m_service->saveTemplate(edited);
        if (saved) // what is left of the calls can't fail a save any more
            break;
        refused.append(m_edge.files.calls().at(call));
        EXPECT_EQ(saved.error(), TemplateSaveError(SystemError{EDQUOT}));
        EXPECT_EQ(named(u"a"_qs).content, u"a"_qs);
        EXPECT_EQ(m_folder.bytesOf(u"a.md"_qs), "a");
        EXPECT_EQ(m_folder.names(), (QStringList{u"a.md"_qs, u"b.md"_qs}));
    }
    EXPECT_THAT(refused, IsSupersetOf({u"openNameless"_qs, u"write"_qs, u"fsync"_qs}));
}

TEST_F(WatchedTemplates, SaveIntoAFolderThatIsGoneFails)
{
    ObsidianTemplate edited = named(u"a"_qs);
    edited.type = TemplateType::synced(m_folder.pathOf(u"gone/a.md"_qs));
    EXPECT_EQ(m_service->saveTemplate(edited).error(), TemplateSaveError(SystemError{ENOENT}));
    EXPECT_THAT(m_folder.names(), ElementsAre(u"a.md"_qs, u"b.md"_qs));
}

} // namespace

} // namespace jotwell
