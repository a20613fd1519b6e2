#include "Services/Index/FileMetadata.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

struct NameCase {
    const char* rule;
    const char* path;
    const char* fileName;
    const char* title;
};

class FileMetadataNameTest : public testing::TestWithParam<NameCase> {};

TEST_P(FileMetadataNameTest, IsTakenFromThePath)
{
    const NameCase& row = GetParam();
    FileMetadata record;
    record.path = row.path;
    EXPECT_EQ(record.fileName(), QByteArrayView(row.fileName));
    EXPECT_EQ(record.title(), QByteArrayView(row.title));
}

INSTANTIATE_TEST_SUITE_P(
    Paths, FileMetadataNameTest,
    testing::Values(NameCase{"Plain", "/v/note.md", "note.md", "note"},
                    NameCase{"OnlyTheLastExtensionGoes", "/v/a.b.md", "a.b.md", "a.b"},
                    NameCase{"DotsInFoldersDontCount", "/v.x/sub.d/note.md", "note.md", "note"},
                    NameCase{"NoExtension", "/v/note", "note", "note"},
                    NameCase{"ALeadingDotIsNoExtension", "/v/.md", ".md", ".md"}),
    [](const auto& info) { return std::string(info.param.rule); });

TEST(FileMetadataTest, AllTagsAreThoseOfBothKindsOnce)
{
    FileMetadata record;
    record.frontmatterTags = {u"b"_qs, u"c"_qs};
    record.contentTags = {u"a"_qs, u"b"_qs};
    EXPECT_EQ(record.allTags(), (TagSet{u"a"_qs, u"b"_qs, u"c"_qs}));
}

} // namespace

} // namespace jotwell
