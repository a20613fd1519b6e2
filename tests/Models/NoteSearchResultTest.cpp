#include "Models/NoteSearchResult.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

struct FileNameRow {
    const char* name;
    QString path;
    QString fileName;
};

class NoteSearchResultFileName : public testing::TestWithParam<FileNameRow> {};

const FileNameRow fileNameRows[] = {
    {"LosesItsExtension", u"/vault/Inbox/Plan.md"_qs, u"Plan"_qs},
    {"LosesTheLastExtensionOnly", u"/vault/a.b.md"_qs, u"a.b"_qs},
    {"DotsOfFoldersDontCount", u"/vault/v1.2/plan"_qs, u"plan"_qs},
    {"LeadingDotIsNoExtension", u"/vault/.md"_qs, u".md"_qs},
    {"BlanksStay", u"/vault/ a b .md"_qs, u" a b "_qs},
};

TEST_P(NoteSearchResultFileName, OfAPath)
{
    EXPECT_EQ(NoteSearchResult::forPath(GetParam().path).fileName, GetParam().fileName);
}

INSTANTIATE_TEST_SUITE_P(Rows, NoteSearchResultFileName, testing::ValuesIn(fileNameRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct PathRow {
    const char* name;
    QString path;
};

class NoteSearchResultPath : public testing::TestWithParam<PathRow> {};

const PathRow pathRows[] = {
    {"Plain", u"/vault/Plan.md"_qs},
    {"Blank", u"/my vault/a plan.md"_qs},
    {"Percent", u"/vault/100%20.md"_qs},
    {"HashAndQuestionMark", u"/vault/a#b?c.md"_qs},
    {"ColonAndBackslash", u"/vault/a:b\\c.md"_qs},
    {"ControlCharacters", u"/vault/a\nb\tc\u0001.md"_qs},
    {"Emoji", u"/vault/\U0001F600.md"_qs},
    {"Decomposed", u"/vault/a\u0308.md"_qs},
    {"Precomposed", u"/vault/\u00e4.md"_qs},
    {"NonCharacter", u"/vault/\ufffe.md"_qs},
};

TEST_P(NoteSearchResultPath, IsTheSameInPathAndUrl)
{
    const NoteSearchResult note = NoteSearchResult::forPath(GetParam().path);
    EXPECT_EQ(note.filePath, GetParam().path);
    EXPECT_TRUE(note.fileURL.isLocalFile());
    EXPECT_EQ(note.fileURL.toLocalFile(), GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(Rows, NoteSearchResultPath, testing::ValuesIn(pathRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(NoteSearchResult, EachRecordHasAnIdentifierOfItsOwn)
{
    const NoteSearchResult first = NoteSearchResult::forPath(u"/vault/a.md"_qs);
    const NoteSearchResult second = NoteSearchResult::forPath(u"/vault/a.md"_qs);
    EXPECT_FALSE(first.id.isNull());
    EXPECT_NE(first.id, second.id);
}

TEST(NoteSearchResult, OfAPathKnowsNothingOfAMatch)
{
    const NoteSearchResult note = NoteSearchResult::forPath(u"/vault/a.md"_qs);
    EXPECT_EQ(note.snippet, std::nullopt);
    EXPECT_EQ(note.relevanceScore, std::nullopt);
    EXPECT_FALSE(note.isFullTextResult);
}

} // namespace

} // namespace jotwell
